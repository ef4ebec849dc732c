#include "ClipList.h"
#include "clips/Forms.h"

namespace vellora::clipgen {
namespace {

Drawing flower() {
    Drawing d(QSizeF(260, 340));
    d.fill(strand(curve({130, 130}, {138, 200}, {122, 260}, {132, 334}), 9), QColor(0x4B8B3B));
    d.paint(leaf({130, 300}, 96, 40, -150), QColor(0x6DB14F), {QColor(0x2F6426), 2});
    d.paint(leaf({130, 270}, 96, 40, -34), QColor(0x5CA144), {QColor(0x2F6426), 2});
    for (int i = 0; i < 12; ++i)
        d.paint(leaf({130, 122}, 116, 42, i * 30 + 15), QColor(0xF7B7CF), {QColor(0xC9618D), 1.8});
    for (int i = 0; i < 12; ++i)
        d.paint(leaf({130, 122}, 84, 34, i * 30), QColor(0xFDE0EB), {QColor(0xC9618D), 1.6});
    d.rings(disc({130, 122}, 33), {124, 114}, {QColor(0xD48A1C), QColor(0xFFE07A)}, 9);
    d.outline(disc({130, 122}, 33), {QColor(0x96600F), 2});
    return d;
}

Drawing butterfly() {
    Drawing d(QSizeF(320, 250));
    const Line edge{QColor(0x3A2350), 3};
    QPainterPath upper(QPointF(158, 110));
    upper.cubicTo(120, 20, 40, -4, 18, 30);
    upper.cubicTo(4, 70, 50, 128, 158, 128);
    upper.closeSubpath();
    QPainterPath lower(QPointF(158, 122));
    lower.cubicTo(80, 116, 44, 150, 52, 196);
    lower.cubicTo(70, 252, 140, 220, 158, 140);
    lower.closeSubpath();
    for (const bool right : {false, true}) {
        const auto side = [right](const QPainterPath& path) {
            return right ? mirrored(path, 160) : path;
        };
        d.bands(side(lower), {0, 120}, {0, 230}, {QColor(0xF9B44C), QColor(0xE8593B)}, 10);
        d.outline(side(lower), edge);
        d.bands(side(upper), {0, 10}, {0, 130}, {QColor(0x7FC2F0), QColor(0x4169C4)}, 12);
        d.outline(side(upper), edge);
        d.paint(side(oval({62, 54}, 23, 16, 40)), QColor(0xEAF6FF), {QColor(0x3A2350), 1.5});
        d.fill(side(oval({104, 84}, 13, 9, 40)), QColor(0xEAF6FF));
        d.paint(side(disc({90, 184}, 15)), QColor(0xFFE9A8), {QColor(0x3A2350), 1.5});
        d.outline(side(curve({158, 78}, {146, 40}, {132, 26}, {112, 20})), {QColor(0x3A2350), 2.6});
        d.fill(side(disc({112, 20}, 4.5)), QColor(0x3A2350));
    }
    d.paint(oval({160, 140}, 10, 68), QColor(0x53357A), edge);
    return d;
}

Drawing sun() {
    Drawing d(QSizeF(300, 300));
    const QPointF centre(150, 150);
    for (int i = 0; i < 12; ++i) {
        QPainterPath ray(QPointF(150, 4));
        ray.cubicTo(170, 40, 172, 56, 178, 74);
        ray.lineTo(122, 74);
        ray.cubicTo(128, 56, 130, 40, 150, 4);
        d.paint(turned(ray, centre, i * 30), i % 2 == 0 ? QColor(0xFFB22E) : QColor(0xFFCF4B),
                {QColor(0xD9791A), 2});
    }
    d.rings(disc(centre, 88), {132, 126}, {QColor(0xFFB62F), QColor(0xFFF1A0)}, 14);
    d.outline(disc(centre, 88), {QColor(0xD9791A), 3.5});
    for (const double x : {120.0, 180.0}) {
        d.fill(oval({x, 138}, 8, 12), QColor(0x6B3A12));
        d.fill(disc({x - 2.5, 133}, 3.4), Qt::white);
        d.fill(oval({x < 150 ? 100.0 : 200.0, 166}, 15, 9), QColor(0xFF9B63));
    }
    d.outline(curve({116, 174}, {134, 200}, {166, 200}, {184, 174}), {QColor(0x6B3A12), 5});
    return d;
}

Drawing mapleLeaf() {
    Drawing d(QSizeF(290, 310));
    QPainterPath half(QPointF(145, 8));
    for (const QPointF point :
         {QPointF(168, 62), QPointF(196, 46), QPointF(190, 112), QPointF(226, 84),
          QPointF(236, 108), QPointF(280, 98), QPointF(262, 140), QPointF(282, 156),
          QPointF(222, 204), QPointF(230, 230), QPointF(150, 222)})
        half.lineTo(point);
    half.lineTo(145, 222);
    half.closeSubpath();
    QPainterPath whole = half.united(mirrored(half, 145));
    d.fill(strand(curve({145, 210}, {146, 250}, {150, 280}, {160, 300}), 8), QColor(0x8A3A12));
    d.bands(whole, {0, 10}, {0, 230}, {QColor(0xF7A528), QColor(0xDE4A1E), QColor(0xA9261B)}, 18);
    d.outline(whole, {QColor(0x7A1D10), 3});
    const QPointF root(145, 218);
    for (const QPointF tip :
         {QPointF(145, 36), QPointF(192, 66), QPointF(98, 66), QPointF(256, 116), QPointF(34, 116),
          QPointF(218, 196), QPointF(72, 196)})
        d.outline(curve(root, root + (tip - root) * 0.3, root + (tip - root) * 0.7, tip),
                  {QColor(0xFFD58A), 2.2});
    return d;
}

Drawing snowflake() {
    Drawing d(QSizeF(300, 300));
    const QPointF centre(150, 150);
    QPainterPath arm(centre);
    arm.lineTo(150, 14);
    for (const auto& [y, reach] : {std::pair(44.0, 24.0), {76.0, 34.0}, {108.0, 22.0}}) {
        arm.moveTo(150 - reach, y - reach * 0.62);
        arm.lineTo(150, y);
        arm.lineTo(150 + reach, y - reach * 0.62);
    }
    QPainterPath whole;
    for (int i = 0; i < 6; ++i)
        whole.addPath(turned(arm, centre, i * 60));
    d.fill(strand(whole, 15), QColor(0x3F79B5));
    d.fill(strand(whole, 9), QColor(0xE6F5FF));
    d.paint(star(centre, 34, 19, 6), QColor(0xBFE3FA), {QColor(0x3F79B5), 3});
    return d;
}

Drawing snowman() {
    Drawing d(QSizeF(280, 340));
    const Line edge{QColor(0x55708F), 2.6};
    const std::vector<QColor> snow{QColor(0xBFD3E6), QColor(0xFFFFFF)};
    for (const double side : {-1.0, 1.0}) {
        QPainterPath arm = curve({140 + side * 60, 182}, {140 + side * 90, 168},
                                 {140 + side * 108, 150}, {140 + side * 124, 126});
        arm.moveTo(140 + side * 108, 148);
        arm.lineTo(140 + side * 130, 150);
        d.fill(strand(arm, 6), QColor(0x6E4526));
    }
    for (const auto& [y, size] : {std::pair(254.0, 80.0), {166.0, 62.0}, {92.0, 47.0}}) {
        d.rings(disc({140, y}, size), {140 - size * 0.3, y - size * 0.3}, snow, 10);
        d.outline(disc({140, y}, size), edge);
    }
    d.paint(box({80, 42, 120, 14}, 6), QColor(0x2B2F3C), {QColor(0x14161D), 2});
    d.paint(box({100, 4, 80, 42}, 5), QColor(0x2B2F3C), {QColor(0x14161D), 2});
    d.fill(box({100, 30, 80, 11}), QColor(0xC23A3A));
    d.paint(polygon({{144, 90}, {196, 102}, {144, 106}}), QColor(0xF08A2C), {QColor(0xA6540F), 2});
    for (const QPointF point : {QPointF(122, 82), QPointF(156, 82), QPointF(140, 160),
                                QPointF(140, 186), QPointF(140, 234), QPointF(140, 264)})
        d.fill(disc(point, 6), QColor(0x23262F));
    d.outline(curve({118, 112}, {130, 124}, {148, 125}, {160, 116}), {QColor(0x23262F), 4});
    d.paint(box({92, 126, 96, 19}, 9), QColor(0xD9433F), {QColor(0x8A1F20), 2});
    d.paint(turned(box({162, 136, 21, 66}, 4), {172, 136}, -10), QColor(0xD9433F),
            {QColor(0x8A1F20), 2});
    return d;
}

}  // namespace

Style seasons() {
    return {QStringLiteral("Seasons"),
            QStringLiteral("Seasons"),
            {{QStringLiteral("Flower"), flower()},
             {QStringLiteral("Butterfly"), butterfly()},
             {QStringLiteral("Sun"), sun()},
             {QStringLiteral("Maple Leaf"), mapleLeaf()},
             {QStringLiteral("Snowflake"), snowflake()},
             {QStringLiteral("Snowman"), snowman()}}};
}

}  // namespace vellora::clipgen
