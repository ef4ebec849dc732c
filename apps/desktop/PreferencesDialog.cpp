#include "desktop/PreferencesDialog.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "common/Assets.h"
#include "desktop/Language.h"
#include "desktop/MessageBox.h"

namespace vellora::desktop {
namespace {

/// Stands in the list for "ask for a file"; no path and no language has this name.
const QString kOtherFile = QStringLiteral("?");

/// What goes over the whole width of the dialog, in lines as long as it is wide.
QLabel* noteLabel(const QString& text) {
    auto* label = new QLabel(text);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

}  // namespace

PreferencesDialog::PreferencesDialog(const Preferences& preferences, QWidget* parent)
    : QDialog(parent),
      m_language(new QComboBox),
      m_assets(new QLineEdit(preferences.assetsFolder)),
      m_background(new QPushButton),
      m_choice(preferences.language),
      m_colour(preferences.background) {
    setWindowTitle(tr("Preferences"));
    m_assets->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
    fillLanguages(m_choice);
    connect(m_language, &QComboBox::activated, this, &PreferencesDialog::languageActivated);
    connect(m_background, &QPushButton::clicked, this, &PreferencesDialog::chooseBackground);
    showBackground();

    auto* form = new QFormLayout;
    form->addRow(tr("&Language:"), m_language);
    form->addRow(QString(),
                 noteLabel(tr("For the program and the edit dialog. With a language file of your "
                              "own the program itself speaks English or German, as the line "
                              "\"code\" in the file's section \"LANGUAGE\" says.")));
    auto* folder = new QLabel(tr("&Folder of text styles and clips:"));
    folder->setBuddy(m_assets);
    form->addRow(folder, assetsRow());
    form->addRow(tr("&Background of new photos:"), m_background);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

QWidget* PreferencesDialog::assetsRow() {
    m_assets->setPlaceholderText(QDir::toNativeSeparators(hostkit::assetsFolder()));
    m_assets->setClearButtonEnabled(true);
    auto* browse = new QPushButton(tr("B&rowse..."));
    browse->setAccessibleDescription(tr("Styles and clips"));
    connect(browse, &QPushButton::clicked, this, [this] {
        const QString chosen =
            QFileDialog::getExistingDirectory(this, tr("Styles and clips"), m_assets->text());
        if (!chosen.isEmpty()) {
            m_assets->setText(chosen);
        }
    });
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_assets, 1);
    layout->addWidget(browse);
    return row;
}

void PreferencesDialog::fillLanguages(const QString& choice) {
    m_language->clear();
    m_language->addItem(tr("As the system"), QString());
    for (const LanguageChoice& language : shippedLanguages()) {
        m_language->addItem(language.name, language.value);
    }
    if (m_language->findData(choice) < 0) {
        m_language->addItem(QFileInfo(choice).fileName(), choice);
    }
    m_language->insertSeparator(m_language->count());
    m_language->addItem(tr("Other language file..."), kOtherFile);
    m_language->setCurrentIndex(m_language->findData(choice));
    m_language->setToolTip(shownAsItIs(QDir::toNativeSeparators(choice)));
}

void PreferencesDialog::languageActivated(int index) {
    const QString chosen = m_language->itemData(index).toString();
    if (chosen != kOtherFile) {
        m_choice = chosen;
        return;
    }
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Language file"), QFileInfo(m_choice).absolutePath(),
                                     tr("Language files (*.ini)"));
    m_choice = file.isEmpty() ? m_choice : file;
    fillLanguages(m_choice);
}

Preferences PreferencesDialog::preferences() const {
    return {m_choice, m_assets->text(), m_colour};
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
