#include "ui/canvas/PhotoEditShowWnd.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <vellora/base/Types.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/Language.h>
#include <vellora/model/DVDImageText.h>

#include "ui/EditSession.h"
#include "ui/LanguageIds.h"
#include "ui/behaviour/Bounded.h"
#include "ui/behaviour/ClipPlacement.h"
#include "ui/behaviour/TextDraft.h"
#include "ui/canvas/CanvasLayers.h"
#include "ui/canvas/CanvasMarks.h"
#include "ui/canvas/FilterMarker.h"
#include "ui/canvas/InPlaceText.h"
#include "ui/canvas/SpriteMenu.h"
#include "ui/skin/SkinStyle.h"

namespace vellora {

CPhotoEditShowWnd::CPhotoEditShowWnd(EditSession& session, QWidget* parent)
    : QWidget(parent),
      m_session(session),
      m_layers(std::make_unique<CanvasLayers>(session)),
      m_typing(new InPlaceText(*this)),
      m_marker(new FilterMarker(this)),
      m_selection(session),
      m_newSprites(session),
      m_mouse(session) {
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
    ExpandTexts();
    RedrawSprites();
}

void CPhotoEditShowWnd::ExpandTexts() {
    expandTexts(m_session, m_slideIndex, m_slideCount);
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
    if (CDVDImageText* selected = m_selection.text(); selected != nullptr) {
        m_session.setTextStyle(selected, properties);
    }
}

void CPhotoEditShowWnd::AddText() {
    CommitEditor();
    if (CDVDImageText* added = m_newSprites.addText(m_textProperties); added != nullptr) {
        Select(added);
        // So that the keys that move, type over and delete it reach it.
        setFocus(Qt::OtherFocusReason);
    }
}

bool CPhotoEditShowWnd::AddClip(const QString& file, const QPoint* centre, QString* reason) {
    auto clip = m_newSprites.makeClip(file, centre, reason);
    if (clip == nullptr) {
        return false;
    }
    CommitEditor();
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
        if (m_selection.text() == nullptr) {
            AddText();
        }
        EditSelected();
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
        m_selection.forget(edited);
    }
    ExpandTexts();
    m_selection.set(committed.selected);
    RedrawSprites();
    setFocus(Qt::OtherFocusReason);
    if (committed.isNew && committed.selected != nullptr) {
        Q_EMIT SpriteSelected();
    }
}

void CPhotoEditShowWnd::Command(int id) {
    CommitEditor();
    if (id == kSpriteDelete) {
        m_mouse.drop();
    }
    const CDVDImageSprite* before = GetSelected();
    m_selection.run(id);
    if (GetSelected() != before) {
        AnnounceSelection();
    }
}

void CPhotoEditShowWnd::Select(CDVDImageSprite* sprite) {
    m_selection.set(sprite);
    AnnounceSelection();
}

void CPhotoEditShowWnd::AnnounceSelection() {
    setAccessibleDescription(m_selection.name());
    update();
    if (const CDVDImageText* text = m_selection.text(); text != nullptr) {
        m_textProperties = text->GetStyle();
        Q_EMIT TextSelected();
    }
    if (GetSelected() != nullptr) {
        Q_EMIT SpriteSelected();
    }
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
    m_selection.keepCopied();
}

void CPhotoEditShowWnd::OnPhotoChanged() {
    m_selection.set(nullptr);
    m_mouse.release();
    m_mouse.crop().clear();
    m_marker->hide();
    unsetCursor();
    ExpandTexts();
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
        ExpandTexts();
    }
    RedrawSprites();
}

bool CPhotoEditShowWnd::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        CanvasKeys::claims(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), ToolTipAt(help->pos()), this);
        return true;
    }
    return QWidget::event(event);
}

QString CPhotoEditShowWnd::ToolTipAt(QPoint point) const {
    return textAt(m_session, point) != nullptr ? LanguageString(kDoubleClickToEdit) : QString();
}

SpriteHit CPhotoEditShowWnd::SelectAt(QPoint point) {
    const SpriteHit hit = spriteAt(m_session, point);
    Select(hit.sprite);
    // Whoever heard of the selection may have taken the sprite away.
    return m_session.holds(hit.sprite) ? hit : SpriteHit{};
}

void CPhotoEditShowWnd::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const QPoint point = event->position().toPoint();
    m_pressedBesideEditor = IsEditorOpen();
    setFocus(Qt::MouseFocusReason);
    m_mouse.press(point);
    if (const auto shape = m_mouse.cursorAt(point)) {
        setCursor(*shape);
    }
    if (IsEditorOpen()) {
        return;
    }
    if (!m_session.isOpen()) {
        event->ignore();
        return;
    }
    if (const SpriteHit hit = SelectAt(point); hit.sprite != nullptr) {
        m_mouse.grab(hit, point);
    }
    update();
}

void CPhotoEditShowWnd::mouseMoveEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    if (!event->buttons().testFlag(Qt::LeftButton) && m_mouse.isDown()) {
        EndDrag();  // the release went elsewhere
    }
    if (m_mouse.move(point)) {
        update();
    }
    if (const auto shape = m_mouse.cursorAt(point)) {
        setCursor(*shape);
    }
}

void CPhotoEditShowWnd::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const bool besideEditor = m_pressedBesideEditor;
    EndDrag();
    if (besideEditor) {
        CommitEditor();
    }
}

void CPhotoEditShowWnd::EndDrag() {
    m_pressedBesideEditor = false;
    m_mouse.release();
    RedrawSprites();
}

void CPhotoEditShowWnd::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || IsEditorOpen() || !m_session.isOpen()) {
        return;
    }
    const QPoint point = event->position().toPoint();
    if (CDVDImageText* text = textAt(m_session, point); text != nullptr) {
        m_selection.set(text);
        m_textProperties = text->GetStyle();
        Q_EMIT TextSelected();
        OpenEditor(*text);
    } else if (m_mouse.crop().isEmpty() && spriteAt(m_session, point).sprite == nullptr) {
        m_selection.set(nullptr);
        m_typing->open(point, m_textProperties);
        update();
    }
}

void CPhotoEditShowWnd::contextMenuEvent(QContextMenuEvent* event) {
    CommitEditor();
    if (!m_session.isOpen()) {
        event->ignore();
        return;
    }
    if (event->reason() == QContextMenuEvent::Mouse) {
        SelectAt(event->pos());
    }
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fillSpriteMenu(*menu, m_selection, [this](int id) { Command(id); });
    skin::applySkin(*menu);
    menu->popup(event->globalPos());
}

void CPhotoEditShowWnd::Nudge(QPoint step) {
    CDVDImageSprite* selected = GetSelected();
    if (selected != nullptr && !IsEditorOpen()) {
        m_session.moveSprite(selected, boundedSum(selected->GetPosition(), step));
    }
}

void CPhotoEditShowWnd::StepSelection(int direction) {
    if (!IsEditorOpen()) {
        m_selection.step(direction);
        AnnounceSelection();
    }
}

void CPhotoEditShowWnd::EditSelected() {
    if (CDVDImageText* selected = m_selection.text(); selected != nullptr && !IsEditorOpen()) {
        OpenEditor(*selected);
    }
}

void CPhotoEditShowWnd::Cancel() {
    if (IsEditorOpen()) {
        m_typing->clear();
        CommitEditor();
    } else {
        DropCropFrame();
    }
}

void CPhotoEditShowWnd::keyPressEvent(QKeyEvent* event) {
    if (!Perform(m_keys.press(*event), *event)) {
        QWidget::keyPressEvent(event);
    }
}

void CPhotoEditShowWnd::keyReleaseEvent(QKeyEvent* event) {
    if (!Perform(m_keys.release(*event), *event)) {
        QWidget::keyReleaseEvent(event);
    }
}

bool CPhotoEditShowWnd::Perform(KeyAction action, QKeyEvent& event) {
    switch (action) {
        case KeyAction::None:
            return false;
        case KeyAction::Wait:
            break;
        case KeyAction::Nudge:
            Nudge(nudgeOf(event));
            break;
        case KeyAction::SelectAbove:
            StepSelection(+1);
            break;
        case KeyAction::SelectBelow:
            StepSelection(-1);
            break;
        case KeyAction::Copy:
            Command(kSpriteCopy);
            break;
        case KeyAction::Paste:
            Command(kSpritePaste);
            break;
        case KeyAction::Delete:
            Command(kSpriteDelete);
            break;
        case KeyAction::Type:
            EditSelected();
            break;
        case KeyAction::Commit:
            CommitEditor();
            break;
        case KeyAction::Cancel:
            Cancel();
            break;
    }
    event.accept();
    return true;
}

void CPhotoEditShowWnd::focusInEvent(QFocusEvent* event) {
    m_showsFocus = event->reason() == Qt::TabFocusReason ||
                   event->reason() == Qt::BacktabFocusReason ||
                   event->reason() == Qt::ShortcutFocusReason;
    update();
}

void CPhotoEditShowWnd::focusOutEvent(QFocusEvent* /*event*/) {
    m_showsFocus = false;
    update();
}

void CPhotoEditShowWnd::dragEnterEvent(QDragEnterEvent* event) {
    if (m_session.isOpen() && !clipFilesOf(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void CPhotoEditShowWnd::dropEvent(QDropEvent* event) {
    QPoint centre = event->position().toPoint();
    for (const QString& file : clipFilesOf(*event->mimeData())) {
        QString reason;
        if (AddClip(file, &centre, &reason)) {
            centre += QPoint(20, 20);
        } else {
            QToolTip::showText(mapToGlobal(centre),
                               QFileInfo(file).fileName() + QStringLiteral(": ") + reason, this);
        }
    }
    event->acceptProposedAction();
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
