#include "scenes/Hair.h"

#include <QPainterPath>

#include "scenes/SceneMath.h"

namespace vellora::scenes {
namespace {

const Vec3 kDark{0.15, 0.07, 0.04};
const Vec3 kLight{0.66, 0.37, 0.18};

QColor strandColour(double light) {
    return QColor(toDisplay(mix(kDark, kLight, std::clamp(light, 0.0, 1.0))));
}

// Two cubic curves, the second from the temple down.
struct Lock {
    QPointF points[7];
};

QPointF mixPoints(QPointF a, QPointF b, double t) {
    return a + (b - a) * t;
}

// Strands fill the band between two guiding locks.
void paintBand(QPainter& painter, const Lock& from, const Lock& to, int strands, double shade,
               std::uint32_t seed) {
    Dice dice(seed);
    painter.setBrush(Qt::NoBrush);
    for (int k = 0; k < strands; ++k) {
        const double t = dice.next();
        const double wild = dice.between(-0.0025, 0.0025);
        const double shine = bell(t - 0.38, 0.13) * 0.42 + bell(t - 0.8, 0.1) * 0.2;
        const double light = shade + shine + dice.between(-0.16, 0.16);
        QPointF p[7];
        for (int i = 0; i < 7; ++i) {
            p[i] = mixPoints(from.points[i], to.points[i], t) + QPointF(wild, 0) * i;
        }
        p[6] += QPointF(wild * 2, dice.between(-0.05, 0.03));
        QPainterPath strand(p[0]);
        strand.cubicTo(p[1], p[2], p[3]);
        strand.cubicTo(p[4], p[5], p[6]);
        painter.setPen(
            QPen(strandColour(light), dice.between(0.0011, 0.0032), Qt::SolidLine, Qt::RoundCap));
        painter.drawPath(strand);
    }
}

}  // namespace

void paintHairBehind(QPainter& painter) {
    QPainterPath mass;
    mass.moveTo(0, -0.225);
    mass.cubicTo(0.13, -0.225, 0.175, -0.12, 0.172, 0.0);
    mass.cubicTo(0.17, 0.12, 0.215, 0.22, 0.20, 0.40);
    mass.lineTo(-0.20, 0.40);
    mass.cubicTo(-0.215, 0.22, -0.17, 0.12, -0.172, 0.0);
    mass.cubicTo(-0.175, -0.12, -0.13, -0.225, 0, -0.225);
    painter.fillPath(mass, strandColour(0.08));
    for (const double side : {-1.0, 1.0}) {
        const Lock inner{{{0.06 * side, -0.12},
                          {0.09 * side, -0.06},
                          {0.11 * side, 0.0},
                          {0.10 * side, 0.10},
                          {0.085 * side, 0.20},
                          {0.09 * side, 0.30},
                          {0.12 * side, 0.38}}};
        const Lock outer{{{0.10 * side, -0.19},
                          {0.18 * side, -0.10},
                          {0.18 * side, 0.0},
                          {0.175 * side, 0.10},
                          {0.165 * side, 0.20},
                          {0.19 * side, 0.30},
                          {0.225 * side, 0.42}}};
        paintBand(painter, inner, outer, 420, side < 0 ? 0.18 : 0.06, side < 0 ? 301 : 302);
    }
}

void paintHairInFront(QPainter& painter) {
    const QPointF parting(-0.035, -0.215);
    const Lock crownLeft{{parting,
                          {-0.10, -0.240},
                          {-0.185, -0.13},
                          {-0.168, 0.02},
                          {-0.150, 0.16},
                          {-0.215, 0.27},
                          {-0.225, 0.45}}};
    const Lock browLeft{{{-0.030, -0.170},
                         {-0.075, -0.145},
                         {-0.108, -0.08},
                         {-0.121, 0.02},
                         {-0.128, 0.13},
                         {-0.085, 0.24},
                         {-0.135, 0.42}}};
    const Lock crownRight{{parting,
                           {0.12, -0.268},
                           {0.195, -0.13},
                           {0.170, 0.02},
                           {0.150, 0.16},
                           {0.220, 0.27},
                           {0.230, 0.45}}};
    const Lock browRight{{{-0.022, -0.172},
                          {0.055, -0.150},
                          {0.116, -0.095},
                          {0.122, 0.02},
                          {0.126, 0.13},
                          {0.085, 0.24},
                          {0.140, 0.42}}};
    paintBand(painter, browLeft, crownLeft, 950, 0.30, 311);
    paintBand(painter, browRight, crownRight, 1050, 0.20, 312);
}

}  // namespace vellora::scenes
