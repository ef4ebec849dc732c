#pragma once

#include <QPoint>
#include <QWidget>

#include <vellora/base/Rect.h>

namespace vellora {

/// The marker with which the region of a region filter is placed: a small transparent square over
/// the photo, dragged with the mouse or moved with the arrow keys.
class FilterMarker : public QWidget {
    Q_OBJECT

public:
    static constexpr int kSide = 20;

    explicit FilterMarker(QWidget* canvas);

    /// Puts the marker in the middle of the photo and shows it.
    /// @param placed  Where the photo lies on the canvas.
    void showOn(const Rect& placed);

Q_SIGNALS:
    /// The marker covers another part of the photo: left, top, width and height in fractions of
    /// the photo's size.
    void regionChanged(float x, float y, float cx, float cy);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void moveInside(QPoint corner);
    void announce();

    Rect m_placed;
    QPoint m_grab;
};

}  // namespace vellora
