#pragma once

#include <QPoint>

#include <vellora/base/Rect.h>

namespace vellora {

enum CropMode : int {
    kCropManual = 0,
    kCropFourToThree = 1,
    kCropSixteenToNine = 2,
    kCropNone = 3
};

/// The crop frame on the canvas: its modes, its handles and how they drag it. In stage units.
class CropFrame {
public:
    static constexpr int kNoHandle = 0;
    static constexpr int kInside = 9;

    [[nodiscard]] int mode() const { return m_mode; }
    [[nodiscard]] const Rect& rect() const { return m_frame; }
    [[nodiscard]] bool isEmpty() const { return m_frame.isEmpty(); }
    /// The handle under the mouse or being dragged: 1 to 8 clockwise from the top-left corner,
    /// `kInside` or `kNoHandle`.
    [[nodiscard]] int handle() const { return m_handle; }

    /// Starts a mode with its first frame.
    ///
    /// @param placed  Where the photo lies: the bounds of the frame.
    /// @return False, with nothing changed, for the present mode, an unknown one or without a
    ///         photo.
    bool setMode(int mode, const Rect& placed);
    /// Empties frame and bounds; the mode stays.
    void clear();
    /// Empties the frame and goes to `kCropNone`.
    void drop();

    [[nodiscard]] int handleAt(QPoint point) const;
    /// The point of handle 1 to 8.
    [[nodiscard]] QPoint handlePoint(int handle) const;

    /// The mouse moves over the frame with no button down.
    void hover(QPoint point) { m_handle = handleAt(point); }
    void press(QPoint point);
    /// Drags the handle that was pressed. A drag that the mode does not allow leaves the frame as
    /// it was.
    /// @return Whether the frame changed.
    bool drag(QPoint point);
    void release() { m_handle = kNoHandle; }

private:
    [[nodiscard]] Rect draggedFreely(QPoint point) const;
    [[nodiscard]] Rect draggedKeepingAspect(QPoint point) const;
    [[nodiscard]] Rect movedFreely(QPoint point) const;
    [[nodiscard]] Rect movedStepwise(QPoint point) const;

    int m_mode = kCropNone;
    int m_handle = kNoHandle;
    Rect m_frame;
    Rect m_bounds;
    QPoint m_grab;   ///< Where the mouse went down.
    Rect m_grabbed;  ///< The frame at that time.
};

}  // namespace vellora
