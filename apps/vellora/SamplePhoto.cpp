#include "SamplePhoto.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QRandomGenerator>
#include <cmath>

namespace vellora::cli {
namespace {

constexpr int kWidth = 600;
constexpr int kHeight = 450;

void paintSky(QPainter& painter) {
    QLinearGradient sky(0, 0, 0, 290);
    sky.setColorAt(0, QColor(58, 118, 190));
    sky.setColorAt(1, QColor(250, 222, 190));
    painter.fillRect(0, 0, kWidth, kHeight, sky);
    QRadialGradient sun(450, 120, 170);
    sun.setColorAt(0, QColor(255, 250, 225));
    sun.setColorAt(0.17, QColor(255, 246, 205));
    sun.setColorAt(0.22, QColor(255, 226, 160, 130));
    sun.setColorAt(1, QColor(255, 220, 170, 0));
    painter.fillRect(0, 0, kWidth, 300, sun);
    QRandomGenerator random(3);
    for (int k = 0; k < 70; ++k) {
        const QPointF at(110 + 170 * (k % 2) + random.bounded(150), 60 + random.bounded(50.0));
        const double size = 10 + random.bounded(24.0);
        painter.setBrush(QColor(255, 255, 255, 34));
        painter.drawEllipse(at, 2.2 * size, size);
    }
}

void paintHills(QPainter& painter) {
    const QColor colours[] = {QColor(120, 142, 178), QColor(86, 124, 120), QColor(92, 138, 66)};
    for (int layer = 0; layer < 3; ++layer) {
        QPolygonF hill;
        hill << QPointF(0, kHeight);
        for (int x = 0; x <= kWidth; x += 4) {
            const double crest = 230 + 50 * layer - 34 * std::sin(0.012 * x + 2.1 * layer) -
                                 13 * std::sin(0.031 * x + layer);
            hill << QPointF(x, crest);
        }
        hill << QPointF(kWidth, kHeight);
        QLinearGradient ground(0, 200 + 50 * layer, 0, 420);
        ground.setColorAt(0, colours[layer]);
        ground.setColorAt(1, colours[layer].darker(150));
        painter.setBrush(ground);
        painter.drawPolygon(hill);
    }
}

void paintHouse(QPainter& painter) {
    painter.setBrush(QColor(240, 230, 210));
    painter.drawRect(340, 300, 110, 80);
    painter.setBrush(QColor(206, 192, 170));
    painter.drawRect(450, 300, 50, 80);
    painter.setBrush(QColor(178, 66, 46));
    painter.drawPolygon(QPolygonF({{328, 302}, {356, 250}, {476, 250}, {512, 302}}));
    painter.setBrush(QColor(70, 92, 118));
    for (const int x : {356, 418, 464}) {
        painter.drawRect(x, 318, 20, 24);
    }
    painter.setBrush(QColor(110, 72, 46));
    painter.drawRect(386, 332, 24, 48);
}

void paintTree(QPainter& painter) {
    painter.setBrush(QColor(86, 60, 42));
    painter.drawPolygon(QPolygonF({{138, 410}, {148, 280}, {164, 280}, {176, 410}}));
    QRandomGenerator random(8);
    for (int k = 0; k < 420; ++k) {
        const double angle = random.bounded(6.283);
        const double far = std::sqrt(random.bounded(1.0));
        const QPointF at(156 + 88 * far * std::cos(angle), 220 + 78 * far * std::sin(angle));
        const int light = 60 + static_cast<int>(0.35 * (at.x() - 68) + 0.3 * (300 - at.y()));
        painter.setBrush(
            QColor(light * 6 / 10 + random.bounded(24), light + random.bounded(40), 38));
        painter.drawEllipse(at, 9, 7);
    }
}

void paintMeadow(QPainter& painter) {
    QRandomGenerator random(5);
    const QColor petals[] = {QColor(236, 70, 60), QColor(250, 214, 70), QColor(250, 250, 250)};
    for (int k = 0; k < 260; ++k) {
        const double y = 384 + random.bounded(64.0);
        const double size = 0.8 + (y - 380) / 26;
        painter.setBrush(petals[random.bounded(3)]);
        painter.drawEllipse(QPointF(random.bounded(600.0), y), 1.2 * size, size);
    }
}

}  // namespace

QImage paintSamplePhoto() {
    QImage photo(kWidth, kHeight, QImage::Format_BGR888);
    QPainter painter(&photo);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    paintSky(painter);
    paintHills(painter);
    paintTree(painter);
    paintHouse(painter);
    paintMeadow(painter);
    return photo;
}

}  // namespace vellora::cli
