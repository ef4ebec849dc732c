#include <cmath>

#include "ClipList.h"
#include "clips/Forms.h"

namespace vellora::clipgen {
namespace {

void partyBalloon(Drawing& d, QPointF centre, double size, QColor color, QPointF knot) {
    d.outline(curve(centre + QPointF(0, size * 1.2), centre + QPointF(16, size * 1.9),
                    knot + QPointF(-14, -60), knot),
              {QColor(0x77707F), 2.2});
    QPainterPath body(centre + QPointF(0, size * 1.16));
    body.cubicTo(centre + QPointF(-size * 0.7, size * 0.8), centre + QPointF(-size, size * 0.2),
                 centre + QPointF(-size, -size * 0.2));
    body.cubicTo(centre + QPointF(-size, -size * 1.3), centre + QPointF(size, -size * 1.3),
                 centre + QPointF(size, -size * 0.2));
    body.cubicTo(centre + QPointF(size, size * 0.2), centre + QPointF(size * 0.7, size * 0.8),
                 centre + QPointF(0, size * 1.16));
    d.rings(body, centre + QPointF(-size * 0.35, -size * 0.4), {color, color.lighter(135)}, 12);
    d.outline(body, {color.darker(165), 2.4});
    d.paint(polygon({centre + QPointF(0, size * 1.13), centre + QPointF(9, size * 1.13 + 13),
                     centre + QPointF(-9, size * 1.13 + 13)}),
            color, {color.darker(165), 2});
    d.fill(oval(centre + QPointF(-size * 0.45, -size * 0.5), size * 0.13, size * 0.27, 34),
           QColor(0xFFFFFF));
}

Drawing partyBalloons() {
    Drawing d(QSizeF(300, 360));
    partyBalloon(d, {84, 104}, 62, QColor(0xE0473F), {152, 350});
    partyBalloon(d, {216, 98}, 62, QColor(0x3C8BD9), {152, 350});
    partyBalloon(d, {150, 144}, 68, QColor(0xF2B632), {152, 350});
    d.paint(leaf({152, 350}, 34, 15, -160), QColor(0xC04C9A), {QColor(0x7B2A60), 1.6});
    d.paint(leaf({152, 350}, 34, 15, -20), QColor(0xC04C9A), {QColor(0x7B2A60), 1.6});
    return d;
}

Drawing cake() {
    Drawing d(QSizeF(320, 320));
    const Line edge{QColor(0x7A3B2E), 2.6};
    d.paint(oval({160, 292}, 152, 22), QColor(0xDDE6EF), {QColor(0x8796A8), 2.6});
    d.bands(box({34, 190, 252, 102}, 14), {34, 0}, {286, 0},
            {QColor(0xF7C7D4), QColor(0xFDE8EE), QColor(0xE8A3B8)}, 16);
    d.outline(box({34, 190, 252, 102}, 14), edge);
    d.bands(box({76, 108, 168, 86}, 12), {76, 0}, {244, 0},
            {QColor(0xFCE9C8), QColor(0xFFF8E8), QColor(0xEBC98F)}, 14);
    d.outline(box({76, 108, 168, 86}, 12), edge);
    const auto icing = [&d, &edge](double left, double right, double top, int drops) {
        QPainterPath path(QPointF(left, top));
        path.lineTo(right, top);
        const double step = (right - left) / drops;
        for (int i = drops; i > 0; --i) {
            const double x = left + i * step;
            const double low = top + (i % 2 == 0 ? 36 : 24);
            path.cubicTo(x, low + 10, x - step, low + 10, x - step, top + 14);
        }
        path.closeSubpath();
        d.paint(path, QColor(0xFFFFFF), edge);
    };
    icing(34, 286, 190, 9);
    icing(76, 244, 108, 6);
    for (int i = 0; i < 5; ++i) {
        const double x = 100 + i * 30;
        const QColor color = i % 2 == 0 ? QColor(0x5AA9E6) : QColor(0xE667A0);
        d.paint(box({x - 6, 58, 12, 52}, 3), color, {color.darker(160), 1.8});
        d.outline(polygon({{x - 5, 80}, {x + 5, 72}}), {Qt::white, 3});
        d.outline(polygon({{x - 5, 96}, {x + 5, 88}}), {Qt::white, 3});
        d.paint(turned(leaf({x, 58}, 36, 20, -90), {x, 58}, i % 2 == 0 ? 3 : -3), QColor(0xFFB52E),
                {QColor(0xD9691A), 1.8});
        d.fill(leaf({x, 56}, 20, 10, -90), QColor(0xFFF2A8));
    }
    for (int i = 0; i < 7; ++i)
        d.paint(disc({58.0 + i * 34, 268}, 9), QColor(0xD93A4C), {QColor(0x8A1726), 1.8});
    return d;
}

Drawing gift() {
    Drawing d(QSizeF(300, 300));
    const Line edge{QColor(0x1D5A4E), 2.8};
    d.bands(box({30, 128, 240, 162}, 6), {30, 0}, {270, 0},
            {QColor(0x43B59B), QColor(0x6FD3BB), QColor(0x2C8F79)}, 14);
    d.outline(box({30, 128, 240, 162}, 6), edge);
    d.bands(box({16, 90, 268, 46}, 6), {16, 0}, {284, 0},
            {QColor(0x55C5AB), QColor(0x8BE0CC), QColor(0x38A088)}, 14);
    d.outline(box({16, 90, 268, 46}, 6), edge);
    const Line ribbonEdge{QColor(0x9A2136), 2.4};
    d.paint(box({128, 90, 44, 200}), QColor(0xE9475F), ribbonEdge);
    for (const bool right : {false, true}) {
        const auto side = [right](const QPainterPath& path) {
            return right ? mirrored(path, 150) : path;
        };
        QPainterPath loop(QPointF(150, 90));
        loop.cubicTo(96, 92, 40, 72, 46, 36);
        loop.cubicTo(58, 0, 126, 30, 150, 90);
        loop.closeSubpath();
        d.paint(side(loop), QColor(0xF05E74), ribbonEdge);
        d.fill(side(leaf({140, 82}, 72, 30, 208)), QColor(0xB52B44));
    }
    d.paint(box({132, 66, 36, 34}, 12), QColor(0xF47A8D), ribbonEdge);
    for (const QPointF dot : {QPointF(66, 170), QPointF(98, 214), QPointF(62, 254),
                              QPointF(204, 170), QPointF(238, 212), QPointF(206, 256)})
        d.fill(star(dot, 13, 5.4, 5), QColor(0xE8FFF8));
    return d;
}

Drawing fireworks() {
    Drawing d(QSizeF(340, 300));
    const auto burst = [&d](QPointF at, double size, QColor inner, QColor outer, int rays) {
        for (int i = 0; i < rays; ++i) {
            const double angle = 360.0 * i / rays;
            const double reach = size * (i % 2 == 0 ? 1 : 0.78);
            QPainterPath ray =
                turned(leaf(at + QPointF(size * 0.2, 0), reach * 0.66, 5.5, 0), at, angle);
            d.fill(ray, i % 2 == 0 ? outer : inner);
            d.fill(turned(disc(at + QPointF(reach, 0), 4.6), at, angle), outer);
        }
        d.fill(star(at, size * 0.2, size * 0.09, 8), QColor(0xFFFBE0));
    };
    d.outline(curve({170, 296}, {168, 250}, {160, 210}, {120, 130}),
              {QColor(0xD8C27A), 2.4, Line::Dashes::Dash});
    d.outline(curve({176, 296}, {190, 260}, {220, 240}, {248, 212}),
              {QColor(0xD8C27A), 2.4, Line::Dashes::Dash});
    burst({116, 112}, 106, QColor(0xFFC94A), QColor(0xF2603E), 20);
    burst({254, 196}, 76, QColor(0x8FE0F5), QColor(0x3F86E0), 16);
    burst({268, 62}, 56, QColor(0xF9B0E0), QColor(0xC04FC4), 14);
    return d;
}

Drawing garland() {
    Drawing d(QSizeF(400, 130));
    QPainterPath line(QPointF(4, 14));
    line.cubicTo(120, 84, 280, 84, 396, 14);
    const std::vector<QColor> colors{QColor(0xE5504A), QColor(0xF5B83D), QColor(0x57B06A),
                                     QColor(0x3F8FD6), QColor(0xA562C4)};
    for (int i = 0; i < 9; ++i) {
        const QPointF left = line.pointAtPercent(0.05 + i * 0.1);
        const QPointF right = line.pointAtPercent(0.14 + i * 0.1);
        const QPointF middle = (left + right) / 2;
        const QPointF down(-(right - left).y() * 1.5, (right - left).x() * 1.5);
        const QColor color = colors[static_cast<std::size_t>(i) % colors.size()];
        d.paint(polygon({left, right, middle + down}), color, {color.darker(150), 2});
        d.fill(
            polygon({left + (middle + down - left) * 0.3, right + (middle + down - right) * 0.3,
                     right + (middle + down - right) * 0.48, left + (middle + down - left) * 0.48}),
            color.lighter(150));
    }
    d.outline(line, {QColor(0x6B4B2A), 4});
    d.paint(disc({6, 14}, 5), QColor(0xC99A5B), {QColor(0x6B4B2A), 1.6});
    d.paint(disc({394, 14}, 5), QColor(0xC99A5B), {QColor(0x6B4B2A), 1.6});
    return d;
}

Drawing wedding() {
    Drawing d(QSizeF(320, 280));
    for (const double x : {118.0, 202.0}) {
        QPainterPath ring = disc({x, 184}, 84);
        ring.addPath(disc({x, 184}, 66));
        d.bands(ring, {x - 84, 110}, {x + 84, 262},
                {QColor(0xFFF3B8), QColor(0xD9A52E), QColor(0xFBE596), QColor(0xA9761A)}, 22);
        d.outline(disc({x, 184}, 84), {QColor(0x7D5612), 2.2});
        d.outline(disc({x, 184}, 66), {QColor(0x7D5612), 2.2});
    }
    const Line facet{QColor(0x3E7EA6), 1.8};
    d.paint(polygon({{84, 64}, {152, 64}, {168, 82}, {118, 122}, {68, 82}}), QColor(0xBFE9FA),
            {QColor(0x3E7EA6), 2.6});
    d.fill(polygon({{98, 64}, {138, 64}, {146, 82}, {90, 82}}), QColor(0xF2FBFF));
    d.fill(polygon({{90, 82}, {146, 82}, {118, 122}}), QColor(0x8FD0EE));
    d.outline(polygon({{68, 82}, {168, 82}}), facet);
    d.outline(polygon({{90, 82}, {118, 122}, {146, 82}}), facet);
    d.paint(heart({228, 52}, 36, 10), QColor(0xEE5B7E), {QColor(0x9A2444), 2.6});
    d.paint(heart({282, 94}, 20, 18), QColor(0xF58BA5), {QColor(0x9A2444), 2});
    return d;
}

}  // namespace

Style celebrations() {
    return {QStringLiteral("Celebrations"),
            QStringLiteral("Celebrations"),
            {{QStringLiteral("Balloons"), partyBalloons()},
             {QStringLiteral("Cake"), cake()},
             {QStringLiteral("Gift"), gift()},
             {QStringLiteral("Fireworks"), fireworks()},
             {QStringLiteral("Garland"), garland()},
             {QStringLiteral("Wedding"), wedding()}}};
}

}  // namespace vellora::clipgen
