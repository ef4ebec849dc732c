#pragma once

#include <QString>

namespace vellora {

/// The language file named by the host; empty for none.
void setLanguageFilePath(const QString& path);
const QString& languageFilePath();

}  // namespace vellora
