#include "desktop/MessageBox.h"

#include <QLabel>
#include <QTextDocument>

namespace vellora::desktop {

MessageBox::MessageBox(Icon icon, const QString& title, const QString& text,
                       StandardButtons buttons, QWidget* parent)
    : QMessageBox(icon, title, text, buttons, parent) {}

void MessageBox::showEvent(QShowEvent* event) {
    // The format of a box is not that of its informative text.
    for (QLabel* label : findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
    }
    QMessageBox::showEvent(event);
}

QMessageBox::StandardButton MessageBox::ask(QWidget* parent, const QString& title,
                                            const QString& text, StandardButtons buttons,
                                            StandardButton preferred) {
    MessageBox box(Question, title, text, buttons, parent);
    box.setDefaultButton(preferred);
    return static_cast<StandardButton>(box.exec());
}

void MessageBox::warn(QWidget* parent, const QString& title, const QString& text) {
    MessageBox(Warning, title, text, Ok, parent).exec();
}

QString shownAsItIs(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

}  // namespace vellora::desktop
