#pragma once

#include <optional>

class QMenu;

namespace vellora {

/// Fills a menu with the text macros, in the language of the module.
void fillMacroMenu(QMenu& menu);

/// The macro that a menu command inserts; none for a command without one.
std::optional<int> macroOfCommand(int command);

}  // namespace vellora
