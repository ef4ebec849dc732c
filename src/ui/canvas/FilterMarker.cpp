#include "ui/canvas/FilterMarker.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include <vellora/host/Language.h>

#include "ui/behaviour/CanvasKeys.h"

namespace vellora {
namespace {

/// The fraction in as many decimals as a project file keeps, so that the filter works on the same
/// pixels after loading. It is rounded up: a filter cuts off the parts of pixels.
float fractionOf(int part, int whole) {
    constexpr double kUnits = 1'000'000.0;
    return static_cast<float>(std::ceil(part * kUnits / whole) / kUnits);
}

}  // namespace

FilterMarker::FilterMarker(QWidget* canvas) : QWidget(canvas) {
    resize(kSide, kSide);
    setCursor(Qt::SizeAllCursor);
    setFocusPolicy(Qt::StrongFocus);
    const QString purpose = LanguageWord(QStringLiteral("Drag to where the filter works"));
    setToolTip(purpose);
    setAccessibleName(purpose);
    hide();
}

void FilterMarker::showOn(const Rect& placed) {
    m_placed = placed;
    moveInside(
        {placed.left + (placed.width() - kSide) / 2, placed.top + (placed.height() - kSide) / 2});
    announce();
    raise();
    show();
}

void FilterMarker::moveInside(QPoint corner) {
    const int right = std::max(m_placed.left, m_placed.right - kSide);
    const int bottom = std::max(m_placed.top, m_placed.bottom - kSide);
    move(std::clamp(corner.x(), m_placed.left, right),
         std::clamp(corner.y(), m_placed.top, bottom));
}

void FilterMarker::announce() {
    if (m_placed.isEmpty()) {
        return;
    }
    Q_EMIT regionChanged(fractionOf(x() - m_placed.left, m_placed.width()),
                         fractionOf(y() - m_placed.top, m_placed.height()),
                         fractionOf(kSide, m_placed.width()), fractionOf(kSide, m_placed.height()));
}

void FilterMarker::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF outer = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    painter.setPen(QPen(QColor(0, 0, 0, 180), 3.0));
    painter.drawRoundedRect(outer, 3.0, 3.0);
    painter.setPen(QPen(hasFocus() ? QColor(0, 168, 255) : QColor(Qt::white), 1.5));
    painter.drawRoundedRect(outer, 3.0, 3.0);
    const QPointF centre = outer.center();
    painter.drawLine(centre - QPointF(3.0, 0.0), centre + QPointF(3.0, 0.0));
    painter.drawLine(centre - QPointF(0.0, 3.0), centre + QPointF(0.0, 3.0));
}

void FilterMarker::mousePressEvent(QMouseEvent* event) {
    m_grab = event->position().toPoint();
    event->accept();
}

void FilterMarker::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons().testFlag(Qt::LeftButton)) {
        moveInside(mapToParent(event->position().toPoint()) - m_grab);
        announce();
    }
    event->accept();
}

void FilterMarker::keyPressEvent(QKeyEvent* event) {
    const QPoint step = nudgeOf(*event);
    if (step.isNull()) {
        QWidget::keyPressEvent(event);
        return;
    }
    moveInside(pos() + step);
    announce();
}

}  // namespace vellora
