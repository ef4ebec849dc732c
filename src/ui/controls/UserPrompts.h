#pragma once

#include <QColor>
#include <QString>
#include <QUrl>
#include <functional>
#include <optional>

class QWidget;

namespace vellora {

/// What the dialogs ask of the user and of the system beside their own windows. Replaceable, so
/// that a test can answer in the user's place.
struct UserPrompts {
    /// Tells of an error: the text as message, with a caption, until it is dismissed.
    std::function<void(QWidget* parent, const QString& text, const QString& caption)> showError;
    /// Asks for an existing file. The filter lists names and patterns between bars, in the form
    /// "Name|*.a;*.b|Name|*.c||". Empty when the user thinks better of it.
    std::function<QString(QWidget* parent, const QString& title, const QString& filter)> openFile;
    /// Asks for a colour, starting from one.
    std::function<std::optional<QColor>(QWidget* parent, const QString& title, QColor start)>
        pickColour;
    /// Opens an address with whatever the system opens it with.
    std::function<void(const QUrl& url)> openUrl;
};

/// The prompts in use; the user-interface thread's.
UserPrompts& userPrompts();

/// The same filter in the form in which file dialogs here take it.
QString fileDialogFilter(const QString& barred);

}  // namespace vellora
