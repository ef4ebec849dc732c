#include "ui/pages/PhotoInfoEditPage.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QUrl>
#include <QVBoxLayout>

#include <vellora/base/HostText.h>
#include <vellora/base/PhotoListNode.h>
#include <vellora/host/Language.h>

#include "base/ResourceIds.h"
#include "ui/EditSession.h"
#include "ui/controls/ControlId.h"
#include "ui/controls/TransparentStatic.h"
#include "ui/controls/TypedText.h"
#include "ui/controls/UserPrompts.h"
#include "ui/pages/InfoTexts.h"

namespace vellora {
namespace {

constexpr std::int32_t kTitleLabel = 3009;
constexpr std::int32_t kTitleEdit = 3010;
constexpr std::int32_t kDescriptionLabel = 3014;
constexpr std::int32_t kDescriptionEdit = 3015;
constexpr std::int32_t kDefaultDuration = 2;

std::int32_t durationOf(std::int32_t stored) {
    return stored < 1 ? kDefaultDuration : stored;
}

QString withPlainLineEnds(QString text) {
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

}  // namespace

CPhotoInfoEditPage::CPhotoInfoEditPage(EditSession& session, QWidget* parent)
    : CEditPage(dialog_id::kInfoPage, kPageLine, parent),
      m_session(session),
      m_title(withId(new QLineEdit(this), kTitleEdit)),
      m_descriptionEdit(withId(new QPlainTextEdit(this), kDescriptionEdit)) {
    BuildControls();
    connect(m_title, &QLineEdit::textChanged, this, &CPhotoInfoEditPage::OnTitleChanged);
    connect(m_descriptionEdit, &QPlainTextEdit::textChanged, this,
            &CPhotoInfoEditPage::OnDescriptionChanged);
}

void CPhotoInfoEditPage::BuildControls() {
    setWindowTitle(QStringLiteral("Photo Information"));
    auto* title = withId(new CTransparentStatic(QStringLiteral("Title:"), this), kTitleLabel);
    auto* description =
        withId(new CTransparentStatic(QStringLiteral("Description:"), this), kDescriptionLabel);
    title->setBuddy(m_title);
    description->setBuddy(m_descriptionEdit);
    m_title->setTextMargins(2, 0, 2, 0);
    m_descriptionEdit->setTabChangesFocus(true);
    m_descriptionEdit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    Translate();
    describe(*m_title, title->text());
    describe(*m_descriptionEdit, description->text());

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kPageMargin, kPageMargin, kPageMargin, kPageMargin);
    layout->setSpacing(kPageSpacing / 2);
    layout->addWidget(title);
    layout->addWidget(m_title);
    layout->addSpacing(kPageSpacing);
    layout->addWidget(description);
    layout->addWidget(m_descriptionEdit, 1);
}

void CPhotoInfoEditPage::Load() {
    m_photo = m_session.node();
    const QSignalBlocker titleBlocker(m_title);
    const QSignalBlocker descriptionBlocker(m_descriptionEdit);
    setEnabled(m_photo != nullptr);
    if (m_photo == nullptr) {
        m_title->clear();
        m_descriptionEdit->clear();
        return;
    }
    m_firstDuration = durationOf(m_photo->first_duration);
    m_secondDuration = durationOf(m_photo->second_duration);
    m_carried = m_photo->carried;
    m_link = hostText(m_photo->link);
    m_loadedDescription = hostText(m_photo->description);
    m_title->setText(hostText(m_photo->title));
    m_title->setCursorPosition(0);
    m_descriptionEdit->setPlainText(withPlainLineEnds(m_loadedDescription));
    m_shownDescription = typedText(*m_descriptionEdit);
}

void CPhotoInfoEditPage::Save() {
    if (m_photo != nullptr && m_photo == m_session.node()) {
        m_session.perform(PhotoEdit::Details, [this] { WriteRecord(*m_photo); });
    }
}

void CPhotoInfoEditPage::WriteRecord(_PHOTO_LIST_NODE& photo) const {
    photo.first_duration = m_firstDuration;
    photo.second_duration = m_secondDuration;
    photo.carried = m_carried;
    setHostText(photo.link, m_link);
    setHostText(photo.title, m_title->text());
    // A description that nobody touched keeps its line ends and whatever else the control changes.
    const QString shown = typedText(*m_descriptionEdit);
    setHostText(photo.description, shown == m_shownDescription ? m_loadedDescription : shown);
}

void CPhotoInfoEditPage::Forget() {
    m_photo = nullptr;
    Load();
}

void CPhotoInfoEditPage::OpenLink() {
    userPrompts().openUrl(QUrl::fromUserInput(m_link));
}

void CPhotoInfoEditPage::OnTitleChanged() {
    const QString typed = m_title->text();
    const CheckedText checked = checkTitle(typed);
    if (checked.text != typed) {
        const auto behind = typed.size() - m_title->cursorPosition();
        const QSignalBlocker blocker(m_title);
        m_title->setText(checked.text);
        m_title->setCursorPosition(
            static_cast<int>(std::max(checked.text.size() - behind, qsizetype{0})));
    }
    if (checked.removedCharacters) {
        ShowProblem(string_id::kForbiddenTitleCharacters);
    }
    if (checked.shortened) {
        ShowProblem(string_id::kTitleTooLong);
    }
}

void CPhotoInfoEditPage::OnDescriptionChanged() {
    const CheckedText checked = checkDescription(typedText(*m_descriptionEdit));
    if (!checked.shortened) {
        return;
    }
    const int position = m_descriptionEdit->textCursor().position();
    {
        const QSignalBlocker blocker(m_descriptionEdit);
        m_descriptionEdit->setPlainText(checked.text);
    }
    QTextCursor cursor = m_descriptionEdit->textCursor();
    cursor.setPosition(std::min(position, static_cast<int>(checked.text.size())));
    m_descriptionEdit->setTextCursor(cursor);
    ShowProblem(string_id::kDescriptionTooLong);
}

void CPhotoInfoEditPage::ShowProblem(std::int32_t textId) {
    const QString text = LanguageString(textId);
    userPrompts().showError(window(), text, text);
}

}  // namespace vellora
