#include "desktop/PreferencesDialog.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>

#include "common/Assets.h"

namespace vellora::desktop {
namespace {

QWidget* withBrowse(QLineEdit* edit, const QString& what, const std::function<QString()>& ask) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* browse = new QPushButton(PreferencesDialog::tr("Browse..."));
    browse->setAccessibleName(what);
    layout->addWidget(edit, 1);
    layout->addWidget(browse);
    QObject::connect(browse, &QPushButton::clicked, edit, [edit, ask] {
        const QString chosen = ask();
        if (!chosen.isEmpty()) {
            edit->setText(chosen);
        }
    });
    return row;
}

}  // namespace

PreferencesDialog::PreferencesDialog(const Preferences& preferences, QWidget* parent)
    : QDialog(parent),
      m_language(new QLineEdit(preferences.languageFile)),
      m_assets(new QLineEdit(preferences.assetsFolder)),
      m_background(new QPushButton),
      m_colour(preferences.background) {
    setWindowTitle(tr("Preferences"));
    setMinimumWidth(520);
    m_language->setPlaceholderText(tr("English"));
    m_assets->setPlaceholderText(hostkit::assetsFolder());
    m_language->setClearButtonEnabled(true);
    m_assets->setClearButtonEnabled(true);

    auto* form = new QFormLayout;
    form->addRow(tr("&Language file of the editor:"),
                 withBrowse(m_language, tr("Browse for a language file"), [this] {
                     return QFileDialog::getOpenFileName(
                         this, tr("Language file"),
                         Preferences::load().effectiveAssetsFolder() + QStringLiteral("/lang"),
                         tr("Language files (*.ini)"));
                 }));
    form->addRow(tr("&Folder of text styles and clips:"),
                 withBrowse(m_assets, tr("Browse for a folder"), [this] {
                     return QFileDialog::getExistingDirectory(this, tr("Styles and clips"));
                 }));
    form->addRow(tr("&Background of new photos:"), m_background);
    connect(m_background, &QPushButton::clicked, this, &PreferencesDialog::chooseBackground);
    showBackground();

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

Preferences PreferencesDialog::preferences() const {
    return {m_language->text(), m_assets->text(), m_colour};
}

void PreferencesDialog::chooseBackground() {
    const QColor chosen = QColorDialog::getColor(
        {redOf(m_colour), greenOf(m_colour), blueOf(m_colour)}, this, tr("Background"));
    if (chosen.isValid()) {
        m_colour =
            makeColorRef(static_cast<unsigned>(chosen.red()), static_cast<unsigned>(chosen.green()),
                         static_cast<unsigned>(chosen.blue()));
        showBackground();
    }
}

void PreferencesDialog::showBackground() {
    const QColor colour(redOf(m_colour), greenOf(m_colour), blueOf(m_colour));
    QPixmap swatch(48, 16);
    swatch.fill(colour);
    m_background->setIcon(swatch);
    m_background->setIconSize(swatch.size());
    m_background->setText(colour.name());
}

}  // namespace vellora::desktop
