// The canvas's mouse, keys and drops.

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QToolTip>
#include <QUrl>

#include <vellora/host/Language.h>
#include <vellora/model/DVDImageText.h>

#include "ui/EditSession.h"
#include "ui/LanguageIds.h"
#include "ui/behaviour/Bounded.h"
#include "ui/behaviour/ClipPlacement.h"
#include "ui/behaviour/TextDraft.h"
#include "ui/canvas/InPlaceText.h"
#include "ui/canvas/PhotoEditShowWnd.h"
#include "ui/canvas/SpriteMenu.h"
#include "ui/skin/SkinStyle.h"

namespace vellora {
namespace {

/// The step of an arrow key, 10 units with Shift; null for any other key.
QPoint nudgeOf(const QKeyEvent& event) {
    const int step = event.modifiers().testFlag(Qt::ShiftModifier) ? 10 : 1;
    switch (event.key()) {
        case Qt::Key_Left:
            return {-step, 0};
        case Qt::Key_Right:
            return {step, 0};
        case Qt::Key_Up:
            return {0, -step};
        case Qt::Key_Down:
            return {0, step};
        default:
            return {};
    }
}

bool actsOnRelease(int key) {
    return key == Qt::Key_Delete || key == Qt::Key_Return || key == Qt::Key_Enter ||
           key == Qt::Key_Escape || key == Qt::Key_F2;
}

/// The files of a drag that can become art clips.
QStringList clipFiles(const QMimeData* data) {
    QStringList files;
    for (const QUrl& url : data->urls()) {
        const QString file = url.toLocalFile();
        if (!file.isEmpty() && (isClipFile(file) || isVectorClip(file))) {
            files.append(file);
        }
    }
    return files;
}

}  // namespace

bool CPhotoEditShowWnd::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (actsOnRelease(key->key()) || !nudgeOf(*key).isNull() ||
            key->matches(QKeySequence::Copy) || key->matches(QKeySequence::Paste)) {
            event->accept();
            return true;
        }
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
        m_selected = text;
        m_textProperties = text->GetStyle();
        Q_EMIT TextSelected();
        OpenEditor(*text);
    } else if (m_mouse.crop().isEmpty() && spriteAt(m_session, point).sprite == nullptr) {
        m_selected = nullptr;
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
    fillSpriteMenu(
        *menu, [this](int id) { return IsCommandEnabled(id); }, [this](int id) { Command(id); });
    skin::applySkin(*menu);
    menu->popup(event->globalPos());
}

bool CPhotoEditShowWnd::HandleKeyPress(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Copy)) {
        Command(kSpriteCopy);
    } else if (event.matches(QKeySequence::Paste)) {
        Command(kSpritePaste);
    } else if (const QPoint step = nudgeOf(event); !step.isNull()) {
        Nudge(step);
    } else if (actsOnRelease(event.key())) {
        m_key.press(event.key());
    } else {
        return false;
    }
    return true;
}

void CPhotoEditShowWnd::Nudge(QPoint step) {
    CDVDImageSprite* selected = GetSelected();
    if (selected != nullptr && !IsEditorOpen()) {
        m_session.moveSprite(selected, boundedSum(selected->GetPosition(), step));
    }
}

void CPhotoEditShowWnd::keyPressEvent(QKeyEvent* event) {
    if (HandleKeyPress(*event)) {
        event->accept();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void CPhotoEditShowWnd::keyReleaseEvent(QKeyEvent* event) {
    if (m_key.release(*event)) {
        event->accept();
        HandleKeyRelease(event->key());
    } else {
        QWidget::keyReleaseEvent(event);
    }
}

void CPhotoEditShowWnd::HandleKeyRelease(int key) {
    switch (key) {
        case Qt::Key_Delete:
            CommitEditor();
            DeleteSelected();
            break;
        case Qt::Key_Escape:
            if (IsEditorOpen()) {
                m_typing->clear();
                CommitEditor();
            } else {
                DropCropFrame();
            }
            break;
        case Qt::Key_F2:
            if (CDVDImageSprite* selected = GetSelected();
                selected != nullptr && selected->GetKind() == kTextSprite && !IsEditorOpen()) {
                OpenEditor(static_cast<CDVDImageText&>(*selected));
            }
            break;
        default:
            CommitEditor();
            break;
    }
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
    if (m_session.isOpen() && !clipFiles(event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void CPhotoEditShowWnd::dropEvent(QDropEvent* event) {
    QPoint centre = event->position().toPoint();
    for (const QString& file : clipFiles(event->mimeData())) {
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

}  // namespace vellora
