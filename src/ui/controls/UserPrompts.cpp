#include "ui/controls/UserPrompts.h"

#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QMessageBox>
#include <QStringList>

namespace vellora {
namespace {

void showErrorBox(QWidget* parent, const QString& text, const QString& caption) {
    QMessageBox box(QMessageBox::Critical, caption, text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

QString askForFile(QWidget* parent, const QString& title, const QString& filter) {
    return QFileDialog::getOpenFileName(parent, title, {}, fileDialogFilter(filter));
}

std::optional<QColor> askForColour(QWidget* parent, const QString& title, QColor start) {
    const QColor chosen = QColorDialog::getColor(start, parent, title);
    return chosen.isValid() ? std::optional(chosen) : std::nullopt;
}

}  // namespace

UserPrompts& userPrompts() {
    static UserPrompts prompts{showErrorBox, askForFile, askForColour, QDesktopServices::openUrl};
    return prompts;
}

QString fileDialogFilter(const QString& barred) {
    const QStringList parts = barred.split(u'|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype index = 0; index + 1 < parts.size(); index += 2) {
        const QString name = parts[index].section(u'(', 0, 0).trimmed();
        QString patterns = parts[index + 1];
        filters << QStringLiteral("%1 (%2)").arg(name, patterns.replace(u';', u' '));
    }
    return filters.join(QStringLiteral(";;"));
}

}  // namespace vellora
