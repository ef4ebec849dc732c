#pragma once

#include <QList>
#include <QString>

namespace vellora::desktop {

/// A language that is offered to the user.
struct LanguageChoice {
    QString name;   ///< In the language itself.
    QString value;  ///< What the preferences keep.
};

/// The languages whose files the program brings along.
QList<LanguageChoice> shippedLanguages();

/// Puts the program, the standard dialogs and the edit dialog into one language.
///
/// @param choice  Empty: the language of the user's system, English where there is none of it. The
///                name of a shipped language: that one. A path: the edit dialog takes this language
///                file, and the program the language that the file declares (`code` in its section
///                `LANGUAGE`), else English. A file that is gone counts as no choice.
void useLanguage(const QString& choice);

}  // namespace vellora::desktop
