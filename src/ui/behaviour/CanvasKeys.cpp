#include "ui/behaviour/CanvasKeys.h"

namespace vellora {
namespace {

KeyAction onRelease(int key) {
    switch (key) {
        case Qt::Key_Delete:
            return KeyAction::Delete;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return KeyAction::Commit;
        case Qt::Key_Escape:
            return KeyAction::Cancel;
        case Qt::Key_F2:
            return KeyAction::Type;
        default:
            return KeyAction::None;
    }
}

KeyAction actionOf(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Copy)) {
        return KeyAction::Copy;
    }
    if (event.matches(QKeySequence::Paste)) {
        return KeyAction::Paste;
    }
    if (!nudgeOf(event).isNull()) {
        return KeyAction::Nudge;
    }
    // With Ctrl they go to another photo.
    if (!event.modifiers().testFlag(Qt::ControlModifier)) {
        if (event.key() == Qt::Key_PageUp) {
            return KeyAction::SelectAbove;
        }
        if (event.key() == Qt::Key_PageDown) {
            return KeyAction::SelectBelow;
        }
    }
    return onRelease(event.key()) != KeyAction::None ? KeyAction::Wait : KeyAction::None;
}

}  // namespace

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

bool CanvasKeys::claims(const QKeyEvent& event) {
    return actionOf(event) != KeyAction::None;
}

KeyAction CanvasKeys::press(const QKeyEvent& event) {
    const KeyAction action = actionOf(event);
    if (action == KeyAction::Wait) {
        m_pressed.press(event.key());
    }
    return action;
}

KeyAction CanvasKeys::release(const QKeyEvent& event) {
    return m_pressed.release(event) ? onRelease(event.key()) : KeyAction::None;
}

}  // namespace vellora
