#pragma once

#include <QDialog>
#include <cstdint>

#include <vellora/base/Types.h>

#include "ui/dialog/FrameZones.h"

namespace vellora {

class CCoolButtonBar;

/// Commands of the system buttons.
enum SystemCommand : int { kSystemMaximize = 14, kSystemRestore = 15, kSystemClose = 16 };

/// The skinned frame of the module's dialogs: it has no caption of the window system, paints its
/// own, and is moved and sized by dragging its edges.
class CVUDFrame : public QDialog {
    Q_OBJECT

public:
    /// @param dialogId  The dialog's template, by which language files name it.
    CVUDFrame(std::int32_t dialogId, QWidget* parent);

    /// The picture behind everything; not owned, may be null.
    void SetBkImage(const QImage* image);
    /// The colour of the frame's brush, red in the low byte.
    void SetFrameColor(COLORREF colour);
    /// The brush for what has no background of its own.
    [[nodiscard]] QBrush GetFrameBrush() const;
    [[nodiscard]] std::int32_t GetDialogId() const { return m_dialogId; }

    void SetResizable(bool resizable);
    void SetDraggable(bool draggable) { m_draggable = draggable; }
    [[nodiscard]] bool IsMaximized() const { return m_maximized; }
    /// `kSystemMaximize`, `kSystemRestore` or `kSystemClose`.
    void SystemCommand(int command);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void childEvent(QChildEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void PlaceSystemBars();
    void PaintCaption(QPainter& painter) const;
    [[nodiscard]] QSize SmallestSize() const;
    [[nodiscard]] bool StartSystemDrag();

    CCoolButtonBar* m_sysBar;   ///< Maximise and close.
    CCoolButtonBar* m_sysBar2;  ///< Restore and close.
    const QImage* m_background = nullptr;
    bool m_resizable = true;
    bool m_dragging = false;
    bool m_maximized = false;
    bool m_draggable = true;
    unsigned m_zone = kZoneNone;
    QPoint m_mouseDown;
    QRect m_dragStart;
    QRect m_restore;
    std::int32_t m_dialogId;
    COLORREF m_colour = 0x00FFF0F0;
};

}  // namespace vellora
