#pragma once

#include <QPoint>

#include "ui/behaviour/KeyOnRelease.h"

namespace vellora {

/// What a key asks of the canvas.
enum class KeyAction {
    None,         ///< Nothing: the key is not the canvas's.
    Wait,         ///< It acts when it is released.
    Nudge,        ///< Move the selected sprite by `nudgeOf`.
    SelectAbove,  ///< Select the next sprite above.
    SelectBelow,
    Copy,
    Paste,
    Delete,
    Type,    ///< Open the in-place editor on the selected text.
    Commit,  ///< Commit the in-place editor.
    Cancel,  ///< Empty the in-place editor, or drop the crop frame.
};

/// The step of an arrow key, 10 units with Shift; null for any other key.
QPoint nudgeOf(const QKeyEvent& event);

/// The keys of the canvas. Delete, Return, Escape and F2 act when they are released.
class CanvasKeys {
public:
    /// Whether the canvas wants the key although it may be a shortcut of the dialog.
    [[nodiscard]] static bool claims(const QKeyEvent& event);

    KeyAction press(const QKeyEvent& event);
    KeyAction release(const QKeyEvent& event);

private:
    KeyOnRelease m_pressed;
};

}  // namespace vellora
