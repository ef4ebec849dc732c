#include "ui/canvas/PhotoEditShowWnd.h"

#include <QFileInfo>
#include <QPainter>

#include <vellora/base/Types.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/Language.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>
#include <vellora/model/DVDImageText.h>

#include "ui/EditSession.h"
#include "ui/LanguageIds.h"
#include "ui/behaviour/ClipPlacement.h"
#include "ui/behaviour/TextDraft.h"
#include "ui/canvas/CanvasLayers.h"
#include "ui/canvas/CanvasMarks.h"
#include "ui/canvas/FilterMarker.h"
#include "ui/canvas/InPlaceText.h"
#include "ui/canvas/SpriteMenu.h"

namespace vellora {
namespace {

/// Where the middle of the first added clip lies.
constexpr QPoint kFirstClip(kStageWidth / 2, kStageHeight / 2);

/// What assistive technology calls a sprite.
QString nameOf(const CDVDImageSprite& sprite) {
    if (sprite.GetKind() == kTextSprite) {
        return static_cast<const CDVDImageText&>(sprite).GetText();
    }
    return QFileInfo(static_cast<const CDVDImageProps&>(sprite).GetFile()).fileName();
}

}  // namespace

CPhotoEditShowWnd::CPhotoEditShowWnd(EditSession& session, QWidget* parent)
    : QWidget(parent),
      m_session(session),
      m_layers(std::make_unique<CanvasLayers>(session)),
      m_typing(new InPlaceText(*this)),
      m_marker(new FilterMarker(this)),
      m_mouse(session),
      m_clipPlaces(kFirstClip, kFirstClip) {
    setFixedSize(kStageWidth, kStageHeight);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    setAccessibleName(LanguageWord(QStringLiteral("Photo")));
    connect(&session, &EditSession::photoAboutToChange, this,
            &CPhotoEditShowWnd::OnPhotoAboutToChange);
    connect(&session, &EditSession::photoChanged, this, &CPhotoEditShowWnd::OnPhotoChanged);
    connect(&session, &EditSession::edited, this, &CPhotoEditShowWnd::OnEdited);
    connect(m_typing, &InPlaceText::committed, this, &CPhotoEditShowWnd::CommitEditor);
    connect(m_marker, &FilterMarker::regionChanged, this,
            [this](float x, float y, float cx, float cy) {
                CPhotoProcessor::SetPreviewROI(x, y, cx, cy);
                Redraw();
            });
}

CPhotoEditShowWnd::~CPhotoEditShowWnd() = default;

QSize CPhotoEditShowWnd::sizeHint() const {
    return {kStageWidth, kStageHeight};
}

void CPhotoEditShowWnd::SetSlide(int index, int count) {
    m_slideIndex = index;
    m_slideCount = count;
    RedrawSprites();
}

void CPhotoEditShowWnd::SetCropMode(int mode) {
    if (m_mouse.crop().setMode(mode, m_session.placedPhoto())) {
        m_mouse.drop();
        unsetCursor();
        update();
    }
}

void CPhotoEditShowWnd::ShowFilterMarker(bool show) {
    if (const Rect placed = m_session.placedPhoto(); show && !placed.isEmpty()) {
        m_marker->showOn(placed);
    } else {
        m_marker->hide();
    }
}

void CPhotoEditShowWnd::SetTextProperties(const TextStyle& properties) {
    m_textProperties = properties;
    m_typing->setStyle(properties);
    CDVDImageSprite* selected = GetSelected();
    if (selected != nullptr && selected->GetKind() == kTextSprite) {
        m_session.setTextStyle(static_cast<CDVDImageText*>(selected), properties);
    }
}

void CPhotoEditShowWnd::AddText() {
    CommitEditor();
    if (m_session.isOpen()) {
        Select(addText(m_session, LanguageString(kDoubleClickToEdit), m_textPlaces.next(),
                       m_textProperties));
        // So that the keys that move, type over and delete it reach it.
        setFocus(Qt::OtherFocusReason);
    }
}

bool CPhotoEditShowWnd::AddClip(const QString& file, const QPoint* centre, QString* reason) {
    if (!m_session.isOpen()) {
        return false;
    }
    const QSizeF natural = CDVDImageProps::NaturalSize(file, reason);
    if (natural.isEmpty()) {
        return false;
    }
    CommitEditor();
    auto clip = std::make_unique<CDVDImageProps>(m_session.record(), file);
    const SpritePlace place =
        placeOfClip(natural, isVectorClip(file), centre != nullptr ? *centre : m_clipPlaces.next());
    clip->SetPosition(place.position.x(), place.position.y());
    clip->SetSize(place.size.width(), place.size.height());
    Select(m_session.addSprite(std::move(clip)));
    setFocus(Qt::OtherFocusReason);
    return true;
}

void CPhotoEditShowWnd::InsertMacro(int macro) {
    const QString token = macroToken(macro);
    if (token.isEmpty() || !m_session.isOpen()) {
        return;
    }
    if (!IsEditorOpen()) {
        if (GetSelected() == nullptr || GetSelected()->GetKind() != kTextSprite) {
            AddText();
        }
        OpenEditor(static_cast<CDVDImageText&>(*GetSelected()));
    }
    m_typing->insert(token);
}

bool CPhotoEditShowWnd::IsEditorOpen() const {
    return m_typing->isOpen();
}

void CPhotoEditShowWnd::OpenEditor(CDVDImageText& text) {
    m_layers->hideSprite(&text);
    m_typing->open(text, m_textProperties);
    update();
}

void CPhotoEditShowWnd::CommitEditor() {
    if (!IsEditorOpen()) {
        return;
    }
    m_layers->hideSprite(nullptr);
    const CDVDImageSprite* edited = GetSelected();
    const CommittedDraft committed = commitDraft(m_session, m_typing->close(), m_textProperties);
    if (edited != nullptr && !m_session.holds(edited)) {
        m_clipboard.forget(edited);
    }
    expandTexts(m_session, m_slideIndex, m_slideCount);
    m_selected = committed.selected;
    RedrawSprites();
    setFocus(Qt::OtherFocusReason);
    if (committed.isNew && committed.selected != nullptr) {
        Q_EMIT SpriteSelected();
    }
}

void CPhotoEditShowWnd::Command(int id) {
    CommitEditor();
    CDVDImageSprite* selected = GetSelected();
    switch (id) {
        case kSpriteCopy:
            if (selected != nullptr) {
                m_clipboard.copy(*selected);
            }
            break;
        case kSpritePaste:
            if (CDVDImageSprite* pasted = m_clipboard.paste(m_session); pasted != nullptr) {
                Select(pasted);
            }
            break;
        case kSpriteDelete:
            DeleteSelected();
            break;
        case kSpriteToAll:
            m_session.applyToAll(selected);
            break;
        default:
            if (const auto order = spriteOrderOf(id)) {
                m_session.reorderSprite(selected, *order);
            }
            break;
    }
}

bool CPhotoEditShowWnd::IsCommandEnabled(int id) const {
    return isSpriteCommandEnabled(m_session, GetSelected(), id);
}

void CPhotoEditShowWnd::DeleteSelected() {
    CDVDImageSprite* selected = GetSelected();
    m_selected = nullptr;
    m_mouse.drop();
    if (selected != nullptr) {
        m_clipboard.forget(selected);
        m_session.deleteSprite(selected);
    }
}

CDVDImageSprite* CPhotoEditShowWnd::GetSelected() const {
    return m_session.holds(m_selected) ? m_selected : nullptr;
}

void CPhotoEditShowWnd::Select(CDVDImageSprite* sprite) {
    m_selected = m_session.holds(sprite) ? sprite : nullptr;
    setAccessibleDescription(m_selected != nullptr ? nameOf(*m_selected) : QString());
    update();
    if (m_selected != nullptr) {
        Announce(*m_selected);
    }
}

void CPhotoEditShowWnd::Announce(CDVDImageSprite& sprite) {
    if (sprite.GetKind() == kTextSprite) {
        m_textProperties = static_cast<const CDVDImageText&>(sprite).GetStyle();
        Q_EMIT TextSelected();
    }
    Q_EMIT SpriteSelected();
}

void CPhotoEditShowWnd::DropCropFrame() {
    if (!m_mouse.crop().isEmpty()) {
        m_mouse.crop().drop();
        m_mouse.drop();
        unsetCursor();
        update();
        Q_EMIT CropFrameDropped();
    }
}

void CPhotoEditShowWnd::Redraw() {
    m_layers->invalidateFilter();
    update();
}

void CPhotoEditShowWnd::RedrawSprites() {
    m_layers->invalidateSprites();
    update();
}

void CPhotoEditShowWnd::PictureCommitted() {
    m_mouse.crop().clear();
    unsetCursor();
    m_layers->invalidatePhoto();
    update();
}

void CPhotoEditShowWnd::OnPhotoAboutToChange() {
    CommitEditor();
    m_clipboard.refresh(m_session);
}

void CPhotoEditShowWnd::OnPhotoChanged() {
    m_selected = nullptr;
    m_mouse.release();
    m_mouse.crop().clear();
    m_marker->hide();
    unsetCursor();
    expandTexts(m_session, m_slideIndex, m_slideCount);
    m_layers->invalidatePhoto();
    update();
}

void CPhotoEditShowWnd::OnEdited(PhotoEdit kind) {
    if (kind == PhotoEdit::Picture) {
        m_layers->invalidatePhoto();
        update();
        return;
    }
    if (!m_mouse.isDraggingSprite()) {
        expandTexts(m_session, m_slideIndex, m_slideCount);
    }
    RedrawSprites();
}

void CPhotoEditShowWnd::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.drawImage(rect(), m_layers->composed(devicePixelRatioF()));
    const CDVDImageSprite* selected = GetSelected();
    if (selected != nullptr && selected != m_typing->target()) {
        drawSelection(painter, *selected);
    }
    drawCropFrame(painter, m_mouse.crop());
    if (m_showsFocus) {
        drawFocusFrame(painter);
    }
}

}  // namespace vellora
