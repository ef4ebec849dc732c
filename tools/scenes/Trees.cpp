#include "scenes/Trees.h"

namespace vellora::scenes {
namespace {

// Needles hang from a branch: a fan of short strokes, lighter toward the light.
void paintBranch(QPainter& painter, QPointF root, QPointF tip, double hang, Vec3 needles,
                 Dice& dice) {
    constexpr int kNeedles = 26;
    for (int k = 0; k < kNeedles; ++k) {
        const double t = dice.next();
        const QPointF at = root + (tip - root) * t;
        const double drop = hang * dice.between(0.4, 1.2) * (1.1 - 0.7 * t);
        const QColor colour(toDisplay(needles * dice.between(0.55, 1.15)));
        painter.setPen(QPen(colour, hang * 0.16));
        painter.drawLine(at, at + QPointF((tip.x() - root.x()) * 0.16, drop));
    }
}

}  // namespace

void paintConifer(QPainter& painter, QPointF foot, double height, Vec3 needles,
                  std::uint32_t seed) {
    Dice dice(seed);
    const double lean = height * dice.between(-0.015, 0.015);
    const QColor bark(toDisplay(needles * 0.7));
    painter.setPen(QPen(bark, height * 0.022, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(foot, foot + QPointF(lean * 0.5, -height * 0.5));
    const int whorls = 34;
    for (int k = 0; k < whorls; ++k) {
        const double t = double(k) / whorls;  // 0 at the lowest branches, 1 at the top
        const double y = foot.y() - height * (0.08 + 0.92 * t);
        const double x = foot.x() + lean * t;
        const double reach = height * 0.21 * std::pow(1 - t, 0.85) + height * 0.006;
        for (int side = 0; side < 10; ++side) {
            const double spread = dice.between(-1, 1);
            const QPointF tip(x + reach * spread * dice.between(0.75, 1.15),
                              y + reach * dice.between(0.10, 0.42));
            const double light = 1.15 - 0.65 * spread - 0.25 * (1 - t);
            paintBranch(painter, {x, y}, tip, height * 0.042 * (1.3 - t), needles * light, dice);
        }
    }
}

}  // namespace vellora::scenes
