#include "ui/pages/TextMacroMenu.h"

#include <QMenu>
#include <algorithm>
#include <array>

#include <vellora/host/Language.h>

namespace vellora {
namespace {

struct MacroCommand {
    int command;
    int macro;
    const char* text;  ///< Null for a command that no menu offers.
};

constexpr std::array kCommands = std::to_array<MacroCommand>({
    {32823, 0, "$[F] File name with extension"},
    {32824, 1, "$[f] File name"},
    {32825, 2, "$[e] File extension"},
    {32826, 3, "$[t] Photo title"},
    {32772, 4, "$[d] Photo description"},
    {32827, 5, "$[T] Current date"},
    {32828, 6, nullptr},
    {32829, 7, nullptr},
    {32830, 8, "$[o] Folder name"},
    {32831, 9, "$[D] Full path"},
});

}  // namespace

void fillMacroMenu(QMenu& menu) {
    for (const MacroCommand& entry : kCommands) {
        if (entry.text != nullptr) {
            QAction* action = menu.addAction(QString::fromLatin1(entry.text));
            action->setProperty(kCommandIdProperty, entry.command);
        }
    }
    TranslateMenu(menu);
}

std::optional<int> macroOfCommand(int command) {
    const auto* entry = std::ranges::find(kCommands, command, &MacroCommand::command);
    return entry != kCommands.end() ? std::optional(entry->macro) : std::nullopt;
}

}  // namespace vellora
