#include "ui/skin/SkinIcons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <cmath>
#include <numbers>

#include "ui/skin/Skin.h"

namespace vellora::skin {
namespace {

// Icons are drawn in a box of 24 x 24 units.
constexpr double kBox = 24.0;
constexpr double kStroke = 1.8;

/// Collects the lines and faces of one icon.
class Pen {
public:
    Pen(QPainter& painter, const QColor& colour) : m_painter(painter), m_colour(colour) {}

    void lines(const QPainterPath& path, double width = kStroke) {
        m_painter.setBrush(Qt::NoBrush);
        m_painter.setPen(QPen(m_colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        m_painter.drawPath(path);
    }
    void polyline(const QPolygonF& points, double width = kStroke) {
        QPainterPath path;
        path.addPolygon(points);
        lines(path, width);
    }
    void face(const QPolygonF& points) {
        m_painter.setBrush(m_colour);
        m_painter.setPen(QPen(m_colour, 1.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        m_painter.drawPolygon(points);
    }
    void axis(QPointF from, QPointF to) {
        QPen pen(m_colour, 1.2, Qt::CustomDashLine, Qt::FlatCap);
        pen.setDashPattern({2.0, 1.7});
        m_painter.setPen(pen);
        m_painter.drawLine(from, to);
    }

private:
    QPainter& m_painter;
    QColor m_colour;
};

QPolygonF closed(QPolygonF points) {
    points << points.first();
    return points;
}

void drawFlip(Pen& pen) {
    pen.face({{9.5, 5.5}, {9.5, 18.5}, {2.8, 18.5}});
    pen.polyline(closed({{14.5, 5.5}, {14.5, 18.5}, {21.2, 18.5}}), 1.5);
    pen.axis({12.0, 2.5}, {12.0, 21.5});
}

/// An open circle with an arrow head at its upper left end.
void drawTurn(Pen& pen) {
    const QRectF circle(4.5, 5.0, 15.0, 15.0);
    QPainterPath arc;
    arc.arcMoveTo(circle, 140.0);
    arc.arcTo(circle, 140.0, -310.0);
    pen.lines(arc, 2.0);
    const double angle = 140.0 * std::numbers::pi / 180.0;
    const QPointF end(12.0 + 7.5 * std::cos(angle), 12.5 - 7.5 * std::sin(angle));
    pen.polyline({{end.x() - 1.0, end.y() - 5.0}, end, {end.x() + 5.2, end.y() + 0.9}}, 2.0);
}

void drawMaximize(Pen& pen) {
    pen.polyline(closed({{5.0, 5.0}, {19.0, 5.0}, {19.0, 19.0}, {5.0, 19.0}}), 2.4);
}

void drawRestore(Pen& pen) {
    pen.polyline(closed({{4.0, 9.0}, {15.0, 9.0}, {15.0, 20.0}, {4.0, 20.0}}), 2.2);
    pen.polyline({{9.0, 4.5}, {20.0, 4.5}, {20.0, 15.0}}, 2.2);
}

void drawCross(Pen& pen) {
    pen.polyline({{6.0, 6.0}, {18.0, 18.0}}, 2.2);
    pen.polyline({{18.0, 6.0}, {6.0, 18.0}}, 2.2);
}

void drawAddText(Pen& pen) {
    pen.polyline({{4.0, 7.0}, {4.0, 4.5}, {16.0, 4.5}, {16.0, 7.0}});
    pen.polyline({{10.0, 4.5}, {10.0, 19.5}});
    pen.polyline({{7.5, 19.5}, {12.5, 19.5}});
    pen.polyline({{19.0, 13.0}, {19.0, 20.0}});
    pen.polyline({{15.5, 16.5}, {22.5, 16.5}});
}

void drawMacro(Pen& pen) {
    pen.polyline({{7.0, 4.0}, {3.5, 4.0}, {3.5, 20.0}, {7.0, 20.0}});
    pen.polyline({{17.0, 4.0}, {20.5, 4.0}, {20.5, 20.0}, {17.0, 20.0}});
    QPainterPath curve;
    curve.moveTo(15.5, 8.8);
    curve.cubicTo(14.0, 6.6, 8.6, 7.0, 8.6, 9.6);
    curve.cubicTo(8.6, 12.6, 15.6, 11.4, 15.6, 14.6);
    curve.cubicTo(15.6, 17.2, 9.8, 17.4, 8.2, 15.2);
    pen.lines(curve);
    pen.polyline({{12.0, 5.2}, {12.0, 18.8}}, 1.3);
}

void drawAlbum(Pen& pen) {
    pen.polyline(closed({{3.0, 9.0}, {16.0, 9.0}, {16.0, 20.0}, {3.0, 20.0}}));
    pen.polyline({{6.0, 6.2}, {18.8, 6.2}, {18.8, 17.0}}, 1.5);
    pen.polyline({{9.0, 3.4}, {21.6, 3.4}, {21.6, 14.0}}, 1.3);
}

void drawDelete(Pen& pen) {
    pen.polyline({{4.0, 6.5}, {20.0, 6.5}});
    pen.polyline({{9.0, 6.0}, {9.0, 3.5}, {15.0, 3.5}, {15.0, 6.0}});
    pen.polyline({{6.0, 6.8}, {7.0, 20.5}, {17.0, 20.5}, {18.0, 6.8}});
    pen.polyline({{10.2, 10.0}, {10.5, 17.0}}, 1.4);
    pen.polyline({{13.8, 10.0}, {13.5, 17.0}}, 1.4);
}

void drawBroken(Pen& pen) {
    pen.polyline(closed({{3.5, 5.0}, {20.5, 5.0}, {20.5, 19.0}, {3.5, 19.0}}), 1.4);
    pen.polyline({{4.0, 16.0}, {9.0, 11.0}, {12.0, 14.0}, {14.5, 9.5}, {20.0, 16.5}}, 1.4);
    pen.polyline({{5.0, 20.5}, {19.0, 3.5}}, 1.8);
}

void drawShape(QPainter& painter, Pen& pen, Icon icon) {
    const auto mirrored = [&painter] {
        painter.translate(kBox, 0.0);
        painter.scale(-1.0, 1.0);
    };
    switch (icon) {
        case Icon::FlipX:
            return drawFlip(pen);
        case Icon::FlipY:
            painter.translate(kBox, 0.0);
            painter.rotate(90.0);
            return drawFlip(pen);
        case Icon::RotateLeft:
            return drawTurn(pen);
        case Icon::RotateRight:
            mirrored();
            return drawTurn(pen);
        case Icon::Next:
            mirrored();
            [[fallthrough]];
        case Icon::Previous:
            return pen.polyline({{14.5, 4.5}, {7.5, 12.0}, {14.5, 19.5}}, 2.4);
        case Icon::Close:
            return drawCross(pen);
        case Icon::Maximize:
            return drawMaximize(pen);
        case Icon::Restore:
            return drawRestore(pen);
        case Icon::AddText:
            return drawAddText(pen);
        case Icon::Macro:
            return drawMacro(pen);
        case Icon::Album:
            return drawAlbum(pen);
        case Icon::Delete:
            return drawDelete(pen);
        case Icon::Broken:
            return drawBroken(pen);
        case Icon::None:
            return;
    }
}

class PathIconEngine : public QIconEngine {
public:
    explicit PathIconEngine(Icon icon) : m_icon(icon) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QColor ink = mode == QIcon::Disabled   ? kDisabledText
                           : mode == QIcon::Selected ? kAccentText
                                                     : kText;
        drawIcon(*painter, rect, m_icon, ink);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new PathIconEngine(m_icon); }

private:
    Icon m_icon;
};

}  // namespace

void drawIcon(QPainter& painter, const QRectF& rect, Icon icon, const QColor& colour) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const double side = std::min(rect.width(), rect.height());
    painter.translate(rect.center().x() - side / 2, rect.center().y() - side / 2);
    painter.scale(side / kBox, side / kBox);
    Pen pen(painter, colour);
    drawShape(painter, pen, icon);
    painter.restore();
}

QIcon makeIcon(Icon icon) {
    return QIcon(new PathIconEngine(icon));
}

}  // namespace vellora::skin
