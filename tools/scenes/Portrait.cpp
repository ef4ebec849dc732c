#include <QPainter>
#include <QPainterPath>

#include "scenes/Hair.h"
#include "scenes/Light.h"
#include "scenes/SceneMath.h"
#include "scenes/Scenes.h"

// A young woman in a sunny park, painted with soft gradients before a background out of focus.
// Lengths are in picture heights, from the middle of the face; light comes from the upper left.

namespace vellora::scenes {
namespace {

constexpr double kFaceY = 0.40;
const QColor kSkinLight(250, 212, 182);
const QColor kSkin(238, 190, 158);
const QColor kSkinShade(196, 134, 106);

QColor withAlpha(QColor colour, int alpha) {
    colour.setAlpha(alpha);
    return colour;
}

void fillSpot(QPainter& painter, QPointF centre, double rx, double ry, QColor colour, int alpha) {
    painter.save();
    painter.translate(centre);
    painter.scale(rx, ry);
    QRadialGradient spot(QPointF(0, 0), 1.0);
    spot.setColorAt(0, withAlpha(colour, alpha));
    spot.setColorAt(0.5, withAlpha(colour, alpha * 55 / 100));
    spot.setColorAt(1, withAlpha(colour, 0));
    painter.fillRect(QRectF(-1, -1, 2, 2), spot);
    painter.restore();
}

QImage paintPark(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    const double height = size.height();
    shadeAll(image, [&](double px, double py) {
        const double x = px / height;
        const double y = py / height;
        const double leaves = fbm(3.2 * x + 5, 3.2 * y, 5, 13);
        const Vec3 wood = mix(Vec3{0.16, 0.28, 0.13}, Vec3{0.80, 0.78, 0.38},
                              smoothstep(-0.35, 0.55, leaves + 0.45 - 0.9 * y - 0.25 * x));
        const Vec3 lawn =
            mix(Vec3{0.36, 0.50, 0.18}, Vec3{0.55, 0.62, 0.24}, 0.5 + fbm(3 * x, 11 * y, 3, 14));
        return mix(wood, lawn, smoothstep(0.66, 0.78, y));
    });
    defocus(image, 0.03 * height);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    Dice dice(29);
    for (int k = 0; k < 90; ++k) {
        const QPointF at(dice.next() * size.width(), 0.66 * height * dice.next());
        const double radius = height * dice.between(0.008, 0.034);
        const double warm = dice.next();
        const QColor light(255, int(mix(205, 250, warm)), int(mix(110, 190, warm)));
        QRadialGradient disc(at, radius);
        const int alpha = int(dice.between(25, 95));
        disc.setColorAt(0, withAlpha(light, alpha * 7 / 10));
        disc.setColorAt(0.86, withAlpha(light, alpha));
        disc.setColorAt(1, withAlpha(light, 0));
        painter.setBrush(disc);
        painter.drawEllipse(at, radius, radius);
    }
    return image;
}

void paintBust(QPainter& painter) {
    QPainterPath neck;
    neck.moveTo(-0.062, 0.08);
    neck.cubicTo(-0.060, 0.20, -0.066, 0.235, -0.135, 0.265);
    neck.lineTo(0.135, 0.265);
    neck.cubicTo(0.066, 0.235, 0.060, 0.20, 0.062, 0.08);
    QPainterPath shoulders;
    shoulders.moveTo(-0.085, 0.242);
    shoulders.cubicTo(-0.20, 0.285, -0.295, 0.295, -0.335, 0.42);
    shoulders.lineTo(-0.38, 0.70);
    shoulders.lineTo(0.38, 0.70);
    shoulders.lineTo(0.335, 0.42);
    shoulders.cubicTo(0.295, 0.295, 0.20, 0.285, 0.085, 0.242);
    shoulders.closeSubpath();
    QLinearGradient skin(-0.15, 0, 0.17, 0.05);
    skin.setColorAt(0, kSkinLight);
    skin.setColorAt(0.45, kSkin);
    skin.setColorAt(1, kSkinShade);
    painter.fillPath(shoulders, skin);
    painter.fillPath(neck, skin);
    fillSpot(painter, {0.012, 0.165}, 0.105, 0.055, QColor(140, 76, 56), 190);
    fillSpot(painter, {-0.075, 0.293}, 0.06, 0.010, QColor(170, 104, 80), 110);
    fillSpot(painter, {0.075, 0.293}, 0.06, 0.010, QColor(150, 88, 66), 120);
    QPainterPath dress;
    dress.moveTo(-0.235, 0.295);
    dress.cubicTo(-0.20, 0.36, -0.10, 0.445, 0, 0.45);
    dress.cubicTo(0.10, 0.445, 0.20, 0.36, 0.235, 0.295);
    dress.cubicTo(0.31, 0.32, 0.34, 0.40, 0.35, 0.47);
    dress.lineTo(0.40, 0.70);
    dress.lineTo(-0.40, 0.70);
    dress.lineTo(-0.35, 0.47);
    dress.cubicTo(-0.34, 0.40, -0.31, 0.32, -0.235, 0.295);
    QLinearGradient cloth(-0.35, 0.3, 0.35, 0.6);
    cloth.setColorAt(0, QColor(86, 148, 176));
    cloth.setColorAt(0.5, QColor(44, 104, 140));
    cloth.setColorAt(1, QColor(22, 58, 88));
    painter.fillPath(dress, cloth);
    painter.save();
    painter.setClipPath(dress);
    Dice dice(71);
    for (int k = 0; k < 22; ++k) {
        const double x = dice.between(-0.36, 0.36);
        const bool light = k % 2 == 0;
        fillSpot(painter, {x, dice.between(0.42, 0.62)}, dice.between(0.008, 0.02), 0.16,
                 light ? QColor(150, 205, 225) : QColor(8, 30, 52), light ? 80 : 100);
    }
    painter.restore();
}

QPainterPath faceOutline() {
    QPainterPath face;
    face.moveTo(0, -0.175);
    face.cubicTo(0.085, -0.175, 0.126, -0.115, 0.124, -0.025);
    face.cubicTo(0.122, 0.055, 0.105, 0.100, 0.062, 0.142);
    face.cubicTo(0.035, 0.168, 0.018, 0.174, 0, 0.174);
    face.cubicTo(-0.018, 0.174, -0.035, 0.168, -0.062, 0.142);
    face.cubicTo(-0.105, 0.100, -0.122, 0.055, -0.124, -0.025);
    face.cubicTo(-0.126, -0.115, -0.085, -0.175, 0, -0.175);
    return face;
}

void paintFaceSkin(QPainter& painter) {
    const QPainterPath face = faceOutline();
    QRadialGradient skin(QPointF(-0.035, -0.045), 0.235);
    skin.setColorAt(0, kSkinLight);
    skin.setColorAt(0.45, QColor(244, 202, 171));
    skin.setColorAt(0.75, kSkin);
    skin.setColorAt(1, kSkinShade);
    painter.fillPath(face, skin);
    painter.save();
    painter.setClipPath(face);
    fillSpot(painter, {0.115, 0.03}, 0.075, 0.17, QColor(150, 84, 62), 120);
    fillSpot(painter, {0.0, 0.185}, 0.12, 0.05, QColor(160, 92, 70), 110);
    fillSpot(painter, {-0.068, 0.042}, 0.048, 0.036, QColor(236, 112, 100), 105);
    fillSpot(painter, {0.072, 0.042}, 0.046, 0.036, QColor(220, 92, 84), 105);
    fillSpot(painter, {-0.050, -0.022}, 0.044, 0.026, QColor(168, 96, 76), 85);
    fillSpot(painter, {0.052, -0.022}, 0.044, 0.026, QColor(150, 80, 64), 95);
    fillSpot(painter, {0.0, 0.128}, 0.032, 0.010, QColor(170, 96, 76), 90);
    fillSpot(painter, {-0.004, 0.148}, 0.030, 0.018, QColor(255, 228, 205), 100);
    fillSpot(painter, {-0.02, -0.10}, 0.075, 0.035, QColor(255, 236, 214), 90);
    painter.restore();
}

void paintNose(QPainter& painter) {
    fillSpot(painter, {0.019, 0.012}, 0.012, 0.050, QColor(176, 104, 80), 85);
    fillSpot(painter, {-0.004, 0.006}, 0.010, 0.052, QColor(255, 238, 220), 120);
    fillSpot(painter, {-0.003, 0.050}, 0.013, 0.011, QColor(255, 246, 234), 150);
    fillSpot(painter, {0.003, 0.069}, 0.030, 0.009, QColor(164, 90, 70), 120);
    fillSpot(painter, {-0.014, 0.063}, 0.008, 0.0045, QColor(112, 48, 40), 190);
    fillSpot(painter, {0.015, 0.063}, 0.008, 0.0045, QColor(104, 42, 36), 190);
}

void paintMouth(QPainter& painter) {
    QPainterPath upper;
    upper.moveTo(-0.044, 0.0945);
    upper.cubicTo(-0.026, 0.090, -0.012, 0.084, 0, 0.090);
    upper.cubicTo(0.012, 0.084, 0.026, 0.090, 0.044, 0.0945);
    upper.cubicTo(0.022, 0.1035, -0.022, 0.1035, -0.044, 0.0945);
    painter.fillPath(upper, QColor(186, 74, 78));
    QPainterPath lower;
    lower.moveTo(-0.044, 0.0945);
    lower.cubicTo(-0.022, 0.1035, 0.022, 0.1035, 0.044, 0.0945);
    lower.cubicTo(0.026, 0.125, -0.026, 0.125, -0.044, 0.0945);
    QLinearGradient red(0, 0.099, 0, 0.121);
    red.setColorAt(0, QColor(190, 72, 78));
    red.setColorAt(0.5, QColor(222, 108, 106));
    red.setColorAt(1, QColor(192, 82, 82));
    painter.fillPath(lower, red);
    fillSpot(painter, {-0.008, 0.109}, 0.016, 0.005, QColor(255, 216, 206), 170);
    painter.setPen(QPen(QColor(110, 30, 38), 0.0019, Qt::SolidLine, Qt::RoundCap));
    QPainterPath line;
    line.moveTo(-0.047, 0.0930);
    line.cubicTo(-0.022, 0.1042, 0.022, 0.1042, 0.047, 0.0930);
    painter.drawPath(line);
}

void paintEye(QPainter& painter, double side) {
    painter.save();
    painter.translate(0.052 * side, -0.018);
    painter.scale(side, 1);
    QPainterPath opening;
    opening.moveTo(-0.030, 0.004);
    opening.cubicTo(-0.018, -0.016, 0.014, -0.020, 0.032, -0.004);
    opening.cubicTo(0.018, 0.013, -0.014, 0.015, -0.030, 0.004);
    QLinearGradient white(0, -0.015, 0, 0.012);
    white.setColorAt(0, QColor(196, 184, 180));
    white.setColorAt(0.6, QColor(248, 244, 240));
    painter.fillPath(opening, white);
    painter.setClipPath(opening);
    QRadialGradient iris(QPointF(0, 0.001), 0.0145);
    iris.setColorAt(0, QColor(150, 120, 60));
    iris.setColorAt(0.55, QColor(96, 124, 84));
    iris.setColorAt(0.88, QColor(52, 84, 70));
    iris.setColorAt(1, QColor(24, 40, 40));
    painter.setPen(Qt::NoPen);
    painter.setBrush(iris);
    painter.drawEllipse(QPointF(0, -0.001), 0.0145, 0.0145);
    painter.setBrush(QColor(14, 12, 14));
    painter.drawEllipse(QPointF(0, -0.001), 0.0062, 0.0062);
    fillSpot(painter, {0, -0.017}, 0.034, 0.011, QColor(40, 16, 14), 170);
    painter.setBrush(QColor(255, 255, 255, 235));
    painter.drawEllipse(QPointF(-0.005 * side, -0.0065), 0.0032, 0.0032);
    painter.setClipping(false);
    painter.setPen(QPen(QColor(44, 22, 18), 0.0040, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(Qt::NoBrush);
    QPainterPath lid;
    lid.moveTo(-0.031, 0.004);
    lid.cubicTo(-0.018, -0.017, 0.014, -0.021, 0.037, -0.007);
    painter.drawPath(lid);
    painter.setPen(QPen(QColor(44, 22, 18), 0.0013, Qt::SolidLine, Qt::RoundCap));
    for (int k = 0; k < 9; ++k) {
        const QPointF root = lid.pointAtPercent(0.30 + 0.078 * k);
        painter.drawLine(root, root + QPointF(0.0010 + 0.0009 * k, -0.0042));
    }
    painter.setPen(QPen(QColor(150, 90, 72, 170), 0.0016));
    QPainterPath crease;
    crease.moveTo(-0.027, -0.008);
    crease.cubicTo(-0.014, -0.026, 0.014, -0.029, 0.034, -0.016);
    painter.drawPath(crease);
    painter.setPen(QPen(QColor(92, 52, 34, 150), 0.0021, Qt::SolidLine, Qt::RoundCap));
    for (int k = 0; k < 60; ++k) {
        const double t = k / 59.0;
        const double x = mix(-0.036, 0.046, t);
        const double y = -0.043 - 0.016 * std::sin(2.2 * t + 0.25) + 0.010 * t;
        const double bush = 0.007 * (1 - t) + 0.002;
        painter.drawLine(QPointF(x, y + bush * 0.6), QPointF(x + 0.007, y - bush * 0.5));
    }
    painter.restore();
}

}  // namespace

QImage paintPortrait(QSize size) {
    QImage image = paintPark(size);
    const double height = size.height();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(size.width() / 2.0, kFaceY * height);
    painter.scale(1.12 * height, 1.12 * height);
    paintHairBehind(painter);
    paintBust(painter);
    paintFaceSkin(painter);
    paintNose(painter);
    paintMouth(painter);
    paintEye(painter, -1);
    paintEye(painter, 1);
    paintHairInFront(painter);
    painter.end();
    addGrain(image, 0.018, 4);
    return image;
}

}  // namespace vellora::scenes
