#include "desktop/Icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <functional>

namespace vellora::desktop {
namespace {

constexpr double kGrid = 24.0;

using Drawing = std::function<void(QPainter&)>;

/// Draws an icon of a 24 x 24 grid at whatever size is asked for.
class VectorIconEngine : public QIconEngine {
public:
    explicit VectorIconEngine(Drawing drawing) : m_drawing(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State /*state*/) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kGrid, rect.height() / kGrid);
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->setPen(QPen(QGuiApplication::palette().color(group, QPalette::ButtonText), 1.7,
                             Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(Qt::NoBrush);
        m_drawing(*painter);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return result;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new VectorIconEngine(m_drawing); }

private:
    Drawing m_drawing;
};

void drawSheet(QPainter& painter) {
    painter.drawPolyline(
        QPolygonF({{14, 3}, {6, 3}, {6, 21}, {18, 21}, {18, 7}, {14, 3}, {14, 7}, {18, 7}}));
}

void drawFolder(QPainter& painter) {
    painter.drawPolygon(QPolygonF({{3, 19}, {3, 5}, {9, 5}, {11, 8}, {21, 8}, {21, 19}}));
}

void drawDisk(QPainter& painter) {
    painter.drawPolygon(QPolygonF({{4, 4}, {17, 4}, {20, 7}, {20, 20}, {4, 20}}));
    painter.drawRect(QRectF(8, 13, 8, 7));
    painter.drawPolyline(QPolygonF({{8, 4}, {8, 9}, {15, 9}, {15, 4}}));
}

void drawAdd(QPainter& painter) {
    painter.drawRoundedRect(QRectF(3, 6, 14, 13), 2, 2);
    painter.drawPolyline(QPolygonF({{3, 16}, {8, 11}, {12, 15}, {14, 13}, {17, 16}}));
    painter.drawLine(QPointF(20, 3), QPointF(20, 9));
    painter.drawLine(QPointF(17, 6), QPointF(23, 6));
}

void drawPencil(QPainter& painter) {
    painter.drawPolygon(QPolygonF({{4, 20}, {5, 15}, {16, 4}, {20, 8}, {9, 19}}));
    painter.drawLine(QPointF(13, 7), QPointF(17, 11));
}

void drawBin(QPainter& painter) {
    painter.drawPolyline(QPolygonF({{6, 7}, {7, 21}, {17, 21}, {18, 7}}));
    painter.drawLine(QPointF(4, 7), QPointF(20, 7));
    painter.drawPolyline(QPolygonF({{9, 7}, {9, 4}, {15, 4}, {15, 7}}));
}

void drawExport(QPainter& painter) {
    painter.drawPolyline(QPolygonF({{4, 13}, {4, 20}, {20, 20}, {20, 13}}));
    painter.drawLine(QPointF(12, 15), QPointF(12, 4));
    painter.drawPolyline(QPolygonF({{8, 8}, {12, 4}, {16, 8}}));
}

void drawPlay(QPainter& painter) {
    painter.setBrush(painter.pen().color());
    painter.drawPolygon(QPolygonF({{7, 4}, {20, 12}, {7, 20}}));
}

void drawProgram(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x24, 0x3b, 0x53));
    painter.drawRoundedRect(QRectF(1, 1, 22, 22), 5, 5);
    painter.setBrush(QColor(0xf6, 0xf4, 0xee));
    painter.drawRoundedRect(QRectF(4, 5, 16, 14), 1.5, 1.5);
    painter.setBrush(QColor(0xf0, 0xa0, 0x3c));
    painter.drawEllipse(QPointF(15.5, 9), 2, 2);
    painter.setBrush(QColor(0x3f, 0x8f, 0x86));
    painter.drawPolygon(QPolygonF({{5, 18}, {10, 10}, {13, 14}, {15, 12}, {19, 18}}));
}

Drawing drawingOf(Icon icon) {
    switch (icon) {
        case Icon::New:
            return drawSheet;
        case Icon::Open:
            return drawFolder;
        case Icon::Save:
            return drawDisk;
        case Icon::Add:
            return drawAdd;
        case Icon::Edit:
            return drawPencil;
        case Icon::Remove:
            return drawBin;
        case Icon::Export:
            return drawExport;
        case Icon::Play:
            return drawPlay;
    }
    return {};
}

}  // namespace

QIcon toolIcon(Icon icon) {
    return QIcon(new VectorIconEngine(drawingOf(icon)));
}

QIcon programIcon() {
    return QIcon(new VectorIconEngine(drawProgram));
}

}  // namespace vellora::desktop
