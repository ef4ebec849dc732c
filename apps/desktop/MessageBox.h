#pragma once

#include <QMessageBox>

namespace vellora::desktop {

/// A question or a message. Its texts are shown as they are: names of files may look like markup.
class MessageBox : public QMessageBox {
public:
    MessageBox(Icon icon, const QString& title, const QString& text, StandardButtons buttons,
               QWidget* parent);

    static StandardButton ask(QWidget* parent, const QString& title, const QString& text,
                              StandardButtons buttons = Yes | No,
                              StandardButton preferred = NoButton);
    static void warn(QWidget* parent, const QString& title, const QString& text);

protected:
    void showEvent(QShowEvent* event) override;
};

/// What shows a text as it is where a text that looks like markup would be taken for such: in tool
/// tips.
QString shownAsItIs(const QString& text);

}  // namespace vellora::desktop
