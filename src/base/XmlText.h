#pragma once

#include <QString>

namespace vellora {

/// The text without the characters that no XML 1.0 document can hold: control characters other
/// than tab and line breaks, lone surrogates, U+FFFE and U+FFFF. Every text that enters the module
/// passes through here, so that the project writer can copy what it gets.
QString xmlText(QString text);

}  // namespace vellora
