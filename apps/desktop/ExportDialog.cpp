#include "desktop/ExportDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QStandardPaths>

#include "desktop/MessageBox.h"

namespace vellora::desktop {
namespace {

constexpr int kLargestSide = 30000;
constexpr qint64 kMostPixels = 200'000'000;  // of a picture that `vellora render` makes

QSpinBox* sideBox(const QString& name) {
    auto* box = new QSpinBox;
    box->setRange(1, kLargestSide);
    box->setAccessibleName(name);
    return box;
}

}  // namespace

ExportDialog::ExportDialog(int slides, QWidget* parent)
    : QDialog(parent),
      m_folder(new QLineEdit),
      m_ownSize(new QCheckBox(tr("&Each photo's own size"))),
      m_width(sideBox(tr("Width in pixels"))),
      m_height(sideBox(tr("Height in pixels"))),
      m_fit(new QComboBox),
      m_quality(new QSpinBox),
      m_numbered(new QCheckBox(tr("Start names with the &place in the show"))) {
    setWindowTitle(tr("Export %Ln photo(s)", nullptr, slides));
    m_folder->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
    m_fit->addItem(tr("Picture as large as fits"), ExportOptions::Box);
    m_fit->addItem(tr("Exactly this size, photo fitted inside"), ExportOptions::Inside);
    m_fit->addItem(tr("Exactly this size, filled by the photo"), ExportOptions::Fill);
    m_quality->setRange(1, 100);
    restore();

    auto* browse = new QPushButton(tr("B&rowse..."));
    auto* folderRow = new QHBoxLayout;
    folderRow->addWidget(m_folder, 1);
    folderRow->addWidget(browse);
    auto* sizeRow = new QHBoxLayout;
    sizeRow->addWidget(m_width);
    sizeRow->addWidget(new QLabel(QStringLiteral("\u00d7")));
    sizeRow->addWidget(m_height);
    sizeRow->addStretch(1);
    auto* form = new QFormLayout;
    auto* folder = new QLabel(tr("&Folder:"));
    folder->setBuddy(m_folder);
    form->addRow(folder, folderRow);
    form->addRow(QString(), m_ownSize);
    auto* size = new QLabel(tr("&Size in pixels:"));
    size->setBuddy(m_width);
    form->addRow(size, sizeRow);
    form->addRow(tr("F&it:"), m_fit);
    form->addRow(tr("JPEG &quality:"), m_quality);
    form->addRow(QString(), m_numbered);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    buttons->addButton(tr("E&xport"), QDialogButtonBox::AcceptRole);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);

    const auto enableSize = [this](bool own) {
        for (QWidget* widget : {static_cast<QWidget*>(m_width), static_cast<QWidget*>(m_height),
                                static_cast<QWidget*>(m_fit)}) {
            widget->setEnabled(!own);
        }
    };
    connect(m_ownSize, &QCheckBox::toggled, this, enableSize);
    enableSize(m_ownSize->isChecked());
    connect(browse, &QPushButton::clicked, this, &ExportDialog::chooseFolder);
    connect(buttons, &QDialogButtonBox::accepted, this, &ExportDialog::acceptChecked);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void ExportDialog::restore() {
    const QSettings settings;
    const auto value = [&settings](const char* key, const QVariant& fallback) {
        return settings.value(QStringLiteral("export/") + QLatin1String(key), fallback);
    };
    m_folder->setText(
        value("folder", QStandardPaths::writableLocation(QStandardPaths::PicturesLocation))
            .toString());
    m_ownSize->setChecked(value("ownSize", false).toBool());
    m_width->setValue(value("width", 1920).toInt());
    m_height->setValue(value("height", 1080).toInt());
    m_fit->setCurrentIndex(m_fit->findData(value("fit", ExportOptions::Box).toInt()));
    m_quality->setValue(value("quality", 90).toInt());
    m_numbered->setChecked(value("numbered", true).toBool());
}

ExportOptions ExportDialog::options() const {
    ExportOptions result;
    result.folder = m_folder->text();
    result.size = m_ownSize->isChecked() ? QSize(0, 0) : QSize(m_width->value(), m_height->value());
    result.fit = static_cast<ExportOptions::Fit>(m_fit->currentData().toInt());
    if (m_ownSize->isChecked()) {
        result.fit = ExportOptions::Box;
    }
    result.quality = m_quality->value();
    result.numbered = m_numbered->isChecked();
    return result;
}

void ExportDialog::chooseFolder() {
    const QString chosen =
        QFileDialog::getExistingDirectory(this, tr("Export to"), m_folder->text());
    if (!chosen.isEmpty()) {
        m_folder->setText(chosen);
    }
}

void ExportDialog::acceptChecked() {
    const QString folder = m_folder->text();
    if (folder.isEmpty() || !QDir().mkpath(folder) || !QFileInfo(folder).isWritable()) {
        MessageBox::warn(this, windowTitle(), tr("The folder cannot be written to."));
        return;
    }
    const qint64 pixels = qint64{m_width->value()} * m_height->value();
    if (!m_ownSize->isChecked() && pixels > kMostPixels) {
        MessageBox::warn(this, windowTitle(),
                         tr("%L1 by %L2 pixels are too many. A picture has at most %L3 million.")
                             .arg(m_width->value())
                             .arg(m_height->value())
                             .arg(kMostPixels / 1'000'000));
        m_width->setFocus();
        return;
    }
    QSettings settings;
    const auto store = [&settings](const char* key, const QVariant& value) {
        settings.setValue(QStringLiteral("export/") + QLatin1String(key), value);
    };
    store("folder", folder);
    store("ownSize", m_ownSize->isChecked());
    store("width", m_width->value());
    store("height", m_height->value());
    store("fit", m_fit->currentData());
    store("quality", m_quality->value());
    store("numbered", m_numbered->isChecked());
    accept();
}

}  // namespace vellora::desktop
