#include "ui/pages/PhotoEditOperPropsPage.h"

#include <QComboBox>
#include <QDir>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <vellora/host/Language.h>

#include "base/ResourceIds.h"
#include "ui/behaviour/ClipPlacement.h"
#include "ui/canvas/PhotoEditShowWnd.h"
#include "ui/controls/ControlId.h"
#include "ui/controls/SpritePropsListBox.h"
#include "ui/controls/UserPrompts.h"
#include "ui/skin/SkinIcons.h"
#include "ui/skin/SkinStyle.h"

namespace vellora {

CPhotoEditOperPropsPage::CPhotoEditOperPropsPage(CPhotoEditShowWnd& canvas,
                                                 const QString& baseFolder, QWidget* parent)
    : CEditPage(dialog_id::kArtClipPage, kPageLine, parent),
      m_canvas(canvas),
      m_baseFolder(baseFolder),
      m_styleCombo(withId(new QComboBox(this), 1243)),
      m_clips(withId(new CSpritePropsListBox(this), 1021)) {
    BuildControls();
    FillStyles();
    connect(m_styleCombo, &QComboBox::currentIndexChanged, this,
            &CPhotoEditOperPropsPage::FillClips);
    connect(m_clips, &QListWidget::itemDoubleClicked, this,
            [this](const QListWidgetItem* item) { OnClipChosen(*item); });
    FillClips();
}

void CPhotoEditOperPropsPage::BuildControls() {
    setWindowTitle(QStringLiteral("Art Clips"));
    auto* more = withId(new QPushButton(QStringLiteral("More..."), this), 1305);
    auto* toAll = withId(new QPushButton(QStringLiteral("Add Selected to All Photos"), this), 1358);
    toAll->setIcon(skin::makeIcon(skin::Icon::Album));
    toAll->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_styleCombo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    Translate();
    describe(*m_styleCombo, LanguageString(string_id::kArtClipStyles));
    describe(*m_clips, LanguageString(string_id::kArtClips));
    describe(*more, more->text(), LanguageString(string_id::kAddArtClip));
    describe(*toAll, toAll->text());
    connect(more, &QPushButton::clicked, this, &CPhotoEditOperPropsPage::OnMore);
    connect(toAll, &QPushButton::clicked, this, [this] { m_canvas.Command(kSpriteToAll); });

    auto* top = new QHBoxLayout;
    top->setSpacing(kPageSpacing);
    top->addWidget(m_styleCombo, 1);
    top->addWidget(more);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kPageMargin, kPageMargin, kPageMargin, kPageMargin);
    layout->setSpacing(kPageSpacing);
    layout->addLayout(top);
    layout->addWidget(m_clips, 1);
    layout->addWidget(toAll);
}

void CPhotoEditOperPropsPage::FillStyles() {
    m_styles = readArtClipStyles(m_baseFolder);
    for (const ArtClipStyle& style : m_styles) {
        m_styleCombo->addItem(LanguageWord(style.name));
    }
    m_styleCombo->setEnabled(!m_styles.empty());
}

void CPhotoEditOperPropsPage::FillClips() {
    const int index = m_styleCombo->currentIndex();
    QString folder = artClipFolder(m_baseFolder);
    QStringList files;
    if (index >= 0) {
        const ArtClipStyle& style = m_styles[static_cast<std::size_t>(index)];
        files = listArtClips(m_baseFolder, style);
        folder += u'/' + style.path;
    }
    m_clips->SetFiles(files);
    m_clips->SetEmptyText(LanguageString(string_id::kNoArtClips) + u'\n' +
                          QDir::toNativeSeparators(folder));
}

void CPhotoEditOperPropsPage::OnClipChosen(const QListWidgetItem& item) {
    AddClip(m_clips->GetFile(item));
}

void CPhotoEditOperPropsPage::OnMore() {
    const QString file = userPrompts().openFile(window(), LanguageString(string_id::kAddArtClip),
                                                QString::fromUtf16(kArtClipFileFilter));
    if (!file.isEmpty()) {
        AddClip(file);
    }
}

void CPhotoEditOperPropsPage::AddClip(const QString& file) {
    if (!isClipFile(file) || !m_canvas.AddClip(file)) {
        const QString text = LanguageString(string_id::kNotAPicture);
        userPrompts().showError(window(), text + u'\n' + QDir::toNativeSeparators(file), text);
    }
}

}  // namespace vellora
