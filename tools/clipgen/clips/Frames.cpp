#include <cmath>

#include "ClipList.h"
#include "clips/Forms.h"

namespace vellora::clipgen {
namespace {

constexpr QSizeF kSize(400, 300);

/// What lies between two outlines.
QPainterPath rim(const QPainterPath& outer, const QPainterPath& inner) {
    QPainterPath path = outer;
    path.addPath(inner);
    path.setFillRule(Qt::OddEvenFill);
    return path;
}

Drawing goldFrame() {
    Drawing d(kSize);
    const std::vector<QColor> gold{QColor(0xF9E7A8), QColor(0xC9972F), QColor(0xF4D980),
                                   QColor(0x9A6A17)};
    d.bands(rim(box({4, 4, 392, 292}, 5), box({44, 44, 312, 212})), {0, 0}, {400, 300}, gold, 28);
    d.bands(rim(box({16, 16, 368, 268}), box({34, 34, 332, 232})), {400, 300}, {0, 0}, gold, 28);
    for (const QRectF& line : {QRectF(4, 4, 392, 292), QRectF(16, 16, 368, 268),
                               QRectF(34, 34, 332, 232), QRectF(44, 44, 312, 212)})
        d.outline(box(line, line.x() < 10 ? 5 : 0), {QColor(0x6E4A10), 1.4});
    for (const QPointF corner :
         {QPointF(25, 25), QPointF(375, 25), QPointF(25, 275), QPointF(375, 275)}) {
        d.paint(scallop(corner, 17, 12, 8), QColor(0xF4D980), {QColor(0x6E4A10), 1.2});
        d.paint(disc(corner, 6), QColor(0xB8862B), {QColor(0x6E4A10), 1});
    }
    return d;
}

Drawing filmStrip() {
    Drawing d(kSize);
    QPainterPath strip = box({2, 10, 396, 280}, 6);
    strip.addPath(box({30, 58, 340, 184}, 8));
    for (int i = 0; i < 11; ++i) {
        strip.addPath(box({16.0 + i * 34.5, 23, 20, 22}, 4));
        strip.addPath(box({16.0 + i * 34.5, 255, 20, 22}, 4));
    }
    d.fill(strip, QColor(0x23232B));
    d.outline(box({30, 58, 340, 184}, 8), {QColor(0x9A9AAC), 2});
    d.outline(box({5, 13, 390, 274}, 5), {QColor(0x9A9AAC), 2});
    return d;
}

Drawing instantPhoto() {
    Drawing d(QSizeF(300, 340));
    const auto tilt = [](const QPainterPath& path) { return turned(path, {150, 170}, -4); };
    d.fill(tilt(rim(box({26, 30, 256, 290}, 4), box({46, 50, 216, 200}))), QColor(0xB9B4AC));
    d.paint(tilt(rim(box({20, 24, 256, 290}, 4), box({40, 44, 216, 200}))), QColor(0xFCFAF4),
            {QColor(0xD8D2C6), 1.2});
    d.outline(tilt(box({40, 44, 216, 200})), {QColor(0xA9A397), 1.5});
    const QPainterPath tape = turned(box({108, 4, 84, 30}), {150, 20}, 3);
    d.fill(tape, QColor(0xF2D98A));
    for (int i = 0; i < 4; ++i)
        d.outline(turned(curve({118.0 + i * 20, 6}, {126.0 + i * 20, 12}, {112.0 + i * 20, 24},
                               {120.0 + i * 20, 32}),
                         {150, 20}, 3),
                  {QColor(0xE2C36A), 2});
    return d;
}

Drawing stampFrame() {
    Drawing d(kSize);
    QPainterPath outer = box({12, 12, 376, 276});
    QPainterPath holes;
    for (int i = 0; i <= 18; ++i) {
        holes.addEllipse(QPointF(12 + i * 376 / 18.0, 12), 6.2, 6.2);
        holes.addEllipse(QPointF(12 + i * 376 / 18.0, 288), 6.2, 6.2);
    }
    for (int i = 1; i < 13; ++i) {
        holes.addEllipse(QPointF(12, 12 + i * 276 / 13.0), 6.2, 6.2);
        holes.addEllipse(QPointF(388, 12 + i * 276 / 13.0), 6.2, 6.2);
    }
    outer = outer.subtracted(holes);
    d.fill(rim(outer, box({40, 40, 320, 220})), QColor(0xFBF7EA));
    d.outline(outer, {QColor(0xC9BFA4), 1.2});
    d.outline(box({34, 34, 332, 232}), {QColor(0xA8323C), 3});
    d.outline(box({40, 40, 320, 220}), {QColor(0xA8323C), 1});
    return d;
}

Drawing leafFrame() {
    Drawing d(kSize);
    const auto both = [&d](const QPainterPath& path, QColor color) {
        d.fill(path, color);
        d.fill(mirrored(path, 200), color);
        d.fill(flippedDown(path, 150), color);
        d.fill(flippedDown(mirrored(path, 200), 150), color);
    };
    both(strand(curve({200, 20}, {140, 8}, {80, 30}, {34, 30}), 3), QColor(0x4E7D3B));
    both(strand(curve({20, 150}, {8, 110}, {32, 70}, {34, 30}), 3), QColor(0x4E7D3B));
    for (int i = 0; i < 7; ++i) {
        const double x = 184 - i * 23;
        const double y = 18 + 1.8 * i;
        both(leaf({x, y}, 27, 13, 232 - i * 4), QColor(0x76A84F));
        both(leaf({x - 4, y}, 25, 13, 122 - i * 3), QColor(0x5C9142));
    }
    for (int i = 0; i < 4; ++i) {
        const double y = 136 - i * 24;
        both(leaf({18 + i * 3.0, y}, 24, 12, -150), QColor(0x76A84F));
        both(leaf({19 + i * 3.0, y - 4}, 26, 13, -38), QColor(0x5C9142));
    }
    for (const QPointF corner :
         {QPointF(36, 34), QPointF(364, 34), QPointF(36, 266), QPointF(364, 266)}) {
        for (int i = 0; i < 6; ++i)
            d.paint(leaf(corner, 25, 17, i * 60 + 15), QColor(0xF5A3B5), {QColor(0xD8708A), 1});
        d.paint(disc(corner, 7), QColor(0xFBD75B), {QColor(0xD09A20), 1});
    }
    return d;
}

Drawing ropeFrame() {
    Drawing d(kSize);
    const auto bead = [&d](QPointF at, double angle) {
        d.paint(oval(at, 12, 6.6, angle), QColor(0xDDB87A), {QColor(0x7A5627), 1.3});
        d.outline(turned(curve(at + QPointF(-7, -1), at + QPointF(-3, -3.4), at + QPointF(3, -3.4),
                               at + QPointF(7, -1)),
                         at, angle),
                  {QColor(0xF6E2B6), 1.6});
    };
    for (int i = 0; i < 36; ++i) {
        bead({22 + i * 10.2, 16}, 38);
        bead({22 + i * 10.2, 284}, 38);
    }
    for (int i = 1; i < 26; ++i) {
        bead({14, 16 + i * 10.3}, 128);
        bead({386, 16 + i * 10.3}, 128);
    }
    for (const QPointF corner :
         {QPointF(18, 18), QPointF(382, 18), QPointF(18, 282), QPointF(382, 282)}) {
        d.paint(disc(corner, 16), QColor(0xE8C88F), {QColor(0x7A5627), 2});
        d.outline(spiral(corner, 12, 1.6, 0, true), {QColor(0x7A5627), 2});
    }
    return d;
}

}  // namespace

Style frames() {
    return {QStringLiteral("Frames"),
            QStringLiteral("Frames"),
            {{QStringLiteral("Gold"), goldFrame()},
             {QStringLiteral("Film Strip"), filmStrip()},
             {QStringLiteral("Instant Photo"), instantPhoto()},
             {QStringLiteral("Stamp"), stampFrame()},
             {QStringLiteral("Leaves"), leafFrame()},
             {QStringLiteral("Rope"), ropeFrame()}}};
}

}  // namespace vellora::clipgen
