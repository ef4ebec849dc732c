#include "ClipList.h"
#include "clips/Forms.h"

namespace vellora::clipgen {
namespace {

/// A scroll that narrows to its curl: a strand with a spiral at its end.
void scroll(Drawing& d, const QPainterPath& along, QPointF curl, double radius, double angle,
            bool clockwise, double width, QColor color) {
    d.fill(strand(along, width), color);
    d.fill(strand(spiral(curl, radius, 1.5, angle, clockwise), width), color);
    d.fill(disc(curl, width * 1.15), color);
}

Drawing divider() {
    Drawing d(QSizeF(400, 110));
    const QColor ink(0xC39A3F);
    for (const bool right : {false, true}) {
        const auto side = [right](const QPainterPath& path) {
            return right ? mirrored(path, 200) : path;
        };
        d.fill(side(strand(curve({182, 56}, {140, 10}, {80, 18}, {40, 56}), 4.6)), ink);
        d.fill(side(strand(curve({182, 56}, {150, 96}, {104, 96}, {84, 70}), 4)), ink);
        d.fill(side(strand(spiral({98, 66}, 17, 1.4, 20, false), 3.6)), ink);
        d.fill(side(strand(spiral({34, 66}, 17, 1.4, 20, true), 3.6)), ink);
        d.fill(side(leaf({120, 24}, 40, 15, 222)), ink);
        d.fill(side(leaf({150, 34}, 34, 13, -70)), ink);
        d.fill(side(disc({10, 58}, 4)), ink);
    }
    d.paint(star({200, 56}, 18, 9, 4), QColor(0xF0D58A), {QColor(0x8A6420), 2});
    return d;
}

Drawing cornerScroll() {
    Drawing d(QSizeF(300, 300));
    const QColor ink(0xB06A38);
    const auto flip = [](const QPainterPath& path) {
        return QTransform(0, 1, 1, 0, 0, 0).map(path);
    };
    const auto both = [&](const QPainterPath& path) {
        d.fill(path, ink);
        d.fill(flip(path), ink);
    };
    both(strand(curve({14, 14}, {80, 60}, {170, 12}, {262, 34}), 6));
    both(strand(spiral({262, 52}, 18, 1.5, -90, false), 4.6));
    both(strand(curve({70, 40}, {110, 110}, {150, 100}, {168, 84}), 5));
    both(strand(spiral({152, 78}, 18, 1.5, 20, true), 4.4));
    both(leaf({110, 32}, 54, 20, -18));
    both(leaf({186, 24}, 48, 18, 24));
    both(leaf({104, 80}, 40, 17, 40));
    d.fill(leaf({30, 30}, 96, 36, 45), ink);
    d.outline(curve({40, 40}, {58, 58}, {70, 70}, {86, 86}), {QColor(0xE9C9B4), 2.4});
    d.paint(disc({20, 20}, 14), QColor(0xC98B3D), {ink, 3});
    return d;
}

Drawing vine() {
    Drawing d(QSizeF(400, 150));
    const QColor stem(0x386B3A);
    QPainterPath line(QPointF(8, 90));
    line.cubicTo(70, 10, 130, 150, 200, 76);
    line.cubicTo(260, 12, 330, 140, 392, 62);
    d.fill(strand(line, 5), stem);
    for (int i = 1; i < 16; ++i) {
        const double at = i / 16.0;
        const QPointF point = line.pointAtPercent(at);
        const double slope = -line.angleAtPercent(at);
        d.paint(leaf(point, 40, 18, slope + (i % 2 == 0 ? 58 : -58)),
                i % 2 == 0 ? QColor(0x6FB25A) : QColor(0x4F9646), {stem, 1.3});
    }
    for (const double at : {0.12, 0.38, 0.66, 0.9}) {
        const QPointF point = line.pointAtPercent(at) + QPointF(0, -3);
        for (int i = 0; i < 5; ++i)
            d.paint(leaf(point, 19, 15, i * 72 - 90), QColor(0xF4EFFF), {QColor(0x9277C9), 1.2});
        d.paint(disc(point, 5), QColor(0xF5C84B), {QColor(0xB98316), 1});
    }
    return d;
}

Drawing crest() {
    Drawing d(QSizeF(320, 280));
    const QColor ink(0x1F4E5F);
    const auto both = [&](const QPainterPath& path, QColor color) {
        d.fill(path, color);
        d.fill(mirrored(path, 160), color);
    };
    both(strand(curve({160, 262}, {60, 250}, {10, 170}, {46, 60}), 5), ink);
    for (int i = 0; i < 9; ++i) {
        const QPainterPath arm = curve({160, 262}, {60, 250}, {10, 170}, {46, 60});
        const double at = 0.14 + i * 0.1;
        const QPointF point = arm.pointAtPercent(at);
        const double slope = -arm.angleAtPercent(at);
        both(leaf(point, 44, 17, slope - 34), QColor(0x2F7C8A));
        both(leaf(point, 44, 17, slope + 34), QColor(0x55A7AE));
    }
    both(leaf({46, 62}, 46, 18, -78), QColor(0x55A7AE));
    d.paint(polygon({{160, 250}, {150, 268}, {160, 276}, {170, 268}}), QColor(0xD9A441), {ink, 2});
    d.paint(star({160, 66}, 40, 17, 5), QColor(0xE9B94E), {QColor(0x93691A), 2.4});
    return d;
}

Drawing swirls() {
    Drawing d(QSizeF(360, 240));
    scroll(d, curve({20, 220}, {90, 120}, {150, 90}, {236, 92}), {232, 62}, 31, 60, false, 6,
           QColor(0x8B3FA8));
    scroll(d, curve({20, 220}, {110, 200}, {210, 190}, {300, 150}), {288, 128}, 26, 30, false, 5,
           QColor(0x4C69C9));
    scroll(d, curve({20, 220}, {40, 140}, {60, 90}, {108, 52}), {96, 34}, 22, 30, false, 5,
           QColor(0xD04F86));
    for (const auto& [at, size] : {std::pair(QPointF(330, 60), 9.0),
                                   {QPointF(310, 90), 6.0},
                                   {QPointF(160, 30), 8.0},
                                   {QPointF(184, 46), 5.0},
                                   {QPointF(338, 190), 8.0},
                                   {QPointF(40, 60), 6.0}})
        d.fill(disc(at, size), QColor(0xF0B545));
    return d;
}

Drawing medallion() {
    Drawing d(QSizeF(300, 300));
    const QPointF centre(150, 150);
    const Line edge{QColor(0x5B2B13), 1.8};
    for (int i = 0; i < 16; ++i)
        d.paint(leaf(centre, 144, 34, i * 22.5), i % 2 == 0 ? QColor(0xD4552F) : QColor(0xF09A4B),
                edge);
    for (int i = 0; i < 16; ++i)
        d.paint(leaf(centre, 96, 26, i * 22.5 + 11.25), QColor(0xF8D27A), edge);
    d.paint(scallop(centre, 52, 44, 16), QColor(0x2C6E73), edge);
    for (int i = 0; i < 8; ++i)
        d.paint(leaf(centre, 38, 16, i * 45.0), QColor(0xBFE3D4), edge);
    d.paint(disc(centre, 11), QColor(0xF8D27A), edge);
    return d;
}

}  // namespace

Style flourishes() {
    return {QStringLiteral("Flourishes"),
            QStringLiteral("Flourishes"),
            {{QStringLiteral("Divider"), divider()},
             {QStringLiteral("Corner"), cornerScroll()},
             {QStringLiteral("Vine"), vine()},
             {QStringLiteral("Laurel"), crest()},
             {QStringLiteral("Swirls"), swirls()},
             {QStringLiteral("Medallion"), medallion()}}};
}

}  // namespace vellora::clipgen
