#pragma once

#include <QString>

class QPlainTextEdit;

namespace vellora {

/// The text of an edit control, with its no-break spaces, which `toPlainText` turns into blanks.
QString typedText(const QPlainTextEdit& edit);

}  // namespace vellora
