#pragma once

/// @file
/// Texts and pictures of the user interface, from the language file or built in.
///
/// The language file is an INI file in UTF-8 or UTF-16, named by `CImageObj::SetLanguageString`.
/// It is read once, at the first lookup after it was named; name it again to read it again. An
/// entry that is missing or empty is never an error: the built-in text stands in. Values are data:
/// nothing in them is replaced but what a lookup says, and they are shown as plain text. One thread
/// makes lookups, the host's user-interface thread.

#include <QAction>
#include <QImage>
#include <QString>
#include <cstdint>
#include <memory>

#include <vellora/base/Export.h>

class QObject;

namespace vellora {

/// The dynamic property that holds the control id of a dialog's child.
inline constexpr char kControlIdProperty[] = "controlId";

/// The dynamic property that holds the command id of a menu's action.
inline constexpr char kCommandIdProperty[] = "commandId";

/// The text of a string id (section "STRING"); without an entry the module's own.
VELLORA_EXPORT QString LanguageString(std::int32_t id);

/// The text of any section and key, with backslash-n read as a line feed and backslash-t as a
/// tab; empty when there is none.
VELLORA_EXPORT QString LanguageText(const QString& section, const QString& key);

/// The translation of an English word or phrase (section "DICTIONARY"); itself without an entry.
VELLORA_EXPORT QString LanguageWord(const QString& english);

/// The text of a control of a dialog template, with backslash-n read as a line feed; empty when
/// there is none. The key "title" gives the caption.
VELLORA_EXPORT QString LanguageControlText(std::int32_t dialogId, const QString& key);

/// The text of a menu command (section "MENU_DLL"); empty when there is none.
VELLORA_EXPORT QString LanguageMenuText(std::int32_t commandId);

/// A picture by resource id (section "BITMAP"): the file that the language file names in the
/// folder "lang" beside the host's executable, else `builtIn`.
VELLORA_EXPORT QImage LanguageBitmap(std::int32_t id, const QImage& builtIn);

/// A picture by resource id (section "IMAGE"), from the same folder. The caller owns it.
/// @return Null for id -1 or without an entry; a null picture when the file cannot be loaded.
VELLORA_EXPORT std::unique_ptr<QImage> LanguageImage(std::int32_t id);

/// Gives every child of a dialog that carries a control id its text, and the dialog its caption.
/// A text goes to the child's property "text", or "title" where it has no text; whatever has no
/// entry keeps its text.
VELLORA_EXPORT void TranslateDialog(QObject& dialog, std::int32_t dialogId);

/// Gives each action of a menu that carries a command id its text; submenus are walked through.
template <class Menu>
void TranslateMenu(Menu& menu) {
    for (QAction* action : menu.actions()) {
        if (auto* submenu = action->template menu<Menu*>(); submenu != nullptr) {
            TranslateMenu(*submenu);
        } else if (const QVariant id = action->property(kCommandIdProperty); id.isValid()) {
            if (const QString text = LanguageMenuText(id.toInt()); !text.isEmpty()) {
                action->setText(text);
            }
        }
    }
}

}  // namespace vellora
