#include "Sheet.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>

#include <vellora/model/ClipInfo.h>

namespace vellora::clipgen {
namespace {

constexpr int kCell = 118;
constexpr int kMargin = 9;
constexpr int kTitle = 22;
constexpr int kGap = 14;

void drawHills(QPainter& painter, const QRect& box, double height, QColor color) {
    QPainterPath hills(QPointF(box.left(), box.bottom() + 1));
    const double base = box.top() + box.height() * height;
    const double step = box.width() / 4.0;
    hills.lineTo(box.left(), base);
    for (int i = 0; i < 4; ++i) {
        const double x = box.left() + i * step;
        const double lift = box.height() * (i % 2 == 0 ? 0.12 : -0.08);
        hills.cubicTo(x + step * 0.35, base - lift, x + step * 0.65, base + lift, x + step, base);
    }
    hills.lineTo(box.right() + 1, box.bottom() + 1);
    painter.fillPath(hills, color);
}

void drawDay(QPainter& painter, const QRect& box) {
    QLinearGradient sky(box.topLeft(), box.bottomLeft());
    sky.setColorAt(0, QColor(0xB8DCF4));
    sky.setColorAt(0.6, QColor(0xF3F1E4));
    painter.fillRect(box, sky);
    drawHills(painter, box, 0.62, QColor(0xD9E2C4));
    drawHills(painter, box, 0.78, QColor(0xC4D3A4));
}

void drawNight(QPainter& painter, const QRect& box) {
    QLinearGradient sky(box.topLeft(), box.bottomLeft());
    sky.setColorAt(0, QColor(0x0D1428));
    sky.setColorAt(0.7, QColor(0x3A2C4A));
    painter.fillRect(box, sky);
    drawHills(painter, box, 0.62, QColor(0x1C2233));
    drawHills(painter, box, 0.78, QColor(0x11151F));
}

void drawClip(QPainter& painter, const QString& path, const QRect& cell) {
    const QImage clip = RenderClip(path, kCell - 2 * kMargin);
    painter.drawImage(cell.x() + (cell.width() - clip.width()) / 2,
                      cell.y() + (cell.height() - clip.height()) / 2, clip);
}

}  // namespace

QImage drawSheet(const QList<SheetRow>& rows) {
    qsizetype columns = 0;
    for (const SheetRow& row : rows)
        columns = std::max(columns, row.clips.size());
    const int half = static_cast<int>(columns) * kCell;
    const int rowHeight = kTitle + kCell;
    QImage sheet(2 * half + 3 * kGap, static_cast<int>(rows.size()) * rowHeight + kGap,
                 QImage::Format_RGB32);
    sheet.fill(QColor(0xF7F7F5));
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(13);
    painter.setFont(font);
    int y = 0;
    for (const SheetRow& row : rows) {
        painter.setPen(QColor(0x30303A));
        painter.drawText(kGap, y + kTitle - 6, row.title);
        const QRect day(kGap, y + kTitle, half, kCell);
        const QRect night(2 * kGap + half, y + kTitle, half, kCell);
        drawDay(painter, day);
        drawNight(painter, night);
        for (int i = 0; i < row.clips.size(); ++i) {
            drawClip(painter, row.clips[i], {day.x() + i * kCell, day.y(), kCell, kCell});
            drawClip(painter, row.clips[i], {night.x() + i * kCell, night.y(), kCell, kCell});
        }
        y += rowHeight;
    }
    return sheet;
}

}  // namespace vellora::clipgen
