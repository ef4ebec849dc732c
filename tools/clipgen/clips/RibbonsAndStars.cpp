#include <cmath>

#include "ClipList.h"
#include "clips/Forms.h"

namespace vellora::clipgen {
namespace {

Drawing banner() {
    Drawing d(QSizeF(400, 140));
    const Line edge{QColor(0x6E0F1C), 2.2};
    const QPainterPath tail = polygon({{10, 62}, {96, 50}, {96, 112}, {10, 124}, {34, 92}});
    for (const QPainterPath& path : {tail, mirrored(tail, 200)})
        d.paint(path, QColor(0xB3203A), edge);
    const QPainterPath fold = polygon({{62, 100}, {96, 112}, {96, 88}});
    for (const QPainterPath& path : {fold, mirrored(fold, 200)})
        d.paint(path, QColor(0x7A1226), edge);
    QPainterPath body(QPointF(62, 40));
    body.cubicTo(150, 14, 250, 14, 338, 40);
    body.lineTo(338, 100);
    body.cubicTo(250, 74, 150, 74, 62, 100);
    body.closeSubpath();
    d.bands(body, {0, 20}, {0, 100}, {QColor(0xE8485F), QColor(0xC3243F)}, 14);
    d.outline(body, edge);
    d.outline(curve({70, 46}, {152, 23}, {248, 23}, {330, 46}), {QColor(0xFFC9C9), 1.8});
    d.outline(curve({70, 89}, {152, 66}, {248, 66}, {330, 89}), {QColor(0xFFC9C9), 1.8});
    return d;
}

Drawing rosette() {
    Drawing d(QSizeF(240, 320));
    const Line edge{QColor(0x123A6B), 2};
    const QPainterPath tail = polygon({{92, 150}, {132, 160}, {112, 306}, {86, 276}, {58, 296}});
    d.paint(tail, QColor(0x2C67AE), edge);
    d.paint(mirrored(tail, 120), QColor(0x2C67AE), edge);
    d.paint(scallop({120, 116}, 112, 94, 18), QColor(0x3F83D1), edge);
    for (int i = 0; i < 18; ++i)
        d.outline(turned(curve({120, 22}, {120, 30}, {120, 40}, {120, 60}), {120, 116}, i * 20),
                  {QColor(0x2C67AE), 2});
    d.rings(disc({120, 116}, 70), {110, 100}, {QColor(0xF7D774), QColor(0xFFF3C4)}, 10);
    d.outline(disc({120, 116}, 70), {QColor(0xB9882A), 2.4});
    d.paint(star({120, 118}, 46, 19, 5), QColor(0xE9A921), {QColor(0x96660E), 2});
    return d;
}

Drawing cornerRibbon() {
    Drawing d(QSizeF(300, 300));
    const QPainterPath under = polygon({{178, 4}, {204, 4}, {204, 40}, {178, 24}});
    d.fill(under, QColor(0x17603A));
    d.fill(polygon({{4, 178}, {4, 204}, {40, 204}, {24, 178}}), QColor(0x17603A));
    const QPainterPath band = polygon({{104, 4}, {204, 4}, {4, 204}, {4, 104}});
    d.bands(band, {54, 54}, {104, 104}, {QColor(0x5CC987), QColor(0x2A9A5B)}, 12);
    d.outline(band, {QColor(0x17603A), 2});
    d.outline(polygon({{116, 8}, {8, 116}}), {QColor(0xD8F5E3), 2, Line::Dashes::Dash});
    d.outline(polygon({{192, 10}, {10, 192}}), {QColor(0xD8F5E3), 2, Line::Dashes::Dash});
    d.paint(star({77, 77}, 26, 11, 5, -45), QColor(0xFFFFFF), {QColor(0x17603A), 1.4});
    return d;
}

Drawing goldStar() {
    Drawing d(QSizeF(300, 290));
    const QPointF centre(150, 158);
    const QPainterPath outline = star(centre, 146, 62, 5);
    d.fill(outline, QColor(0xE3A01C));
    const std::vector<QColor> lights{QColor(0xFFF0A8), QColor(0xFFD34D), QColor(0xE9A820),
                                     QColor(0xC7831A), QColor(0xF2BE3A)};
    for (int i = 0; i < 5; ++i) {
        const QPainterPath shape = star(centre, 146, 62, 5);
        const auto at = [&shape](int k) { return QPointF(shape.elementAt((k + 10) % 10)); };
        d.fill(polygon({centre, at(2 * i - 1), at(2 * i)}), lights[static_cast<std::size_t>(i)]);
        d.fill(polygon({centre, at(2 * i), at(2 * i + 1)}),
               lights[static_cast<std::size_t>((i + 2) % 5)].darker(108));
    }
    d.outline(outline, {QColor(0x8A5A0B), 5});
    return d;
}

Drawing starTrail() {
    Drawing d(QSizeF(400, 260));
    const std::vector<QColor> rainbow{QColor(0xF06A6A), QColor(0xF7A94B), QColor(0xF8DE5C),
                                      QColor(0x7CC76A), QColor(0x5AA9E6)};
    for (int i = 0; i < 5; ++i)
        d.outline(curve({18, 236.0 - i * 11}, {110, 120.0 - i * 12}, {200, 72.0 - i * 9},
                        {318, 84.0 - i * 6}),
                  {rainbow[static_cast<std::size_t>(i)], 10.5});
    d.paint(star({322, 78}, 74, 32, 5, 14), QColor(0xFFD94A), {QColor(0xB97F0E), 4});
    d.fill(star({316, 70}, 40, 18, 5, 14), QColor(0xFFEB95));
    for (const auto& [at, size] : {std::pair(QPointF(60, 60), 17.0),
                                   {QPointF(140, 30), 11.0},
                                   {QPointF(210, 200), 15.0},
                                   {QPointF(300, 220), 11.0}})
        d.paint(star(at, size, size * 0.36, 4), QColor(0xFFE88A), {QColor(0xC9971F), 1.5});
    return d;
}

Drawing bow() {
    Drawing d(QSizeF(320, 260));
    const Line edge{QColor(0x7B1B56), 2.4};
    QPainterPath tail(QPointF(150, 96));
    tail.cubicTo(130, 150, 100, 200, 66, 246);
    tail.lineTo(104, 236);
    tail.lineTo(126, 254);
    tail.cubicTo(146, 200, 166, 150, 172, 104);
    tail.closeSubpath();
    d.paint(tail, QColor(0xC9408F), edge);
    d.paint(mirrored(tail, 160), QColor(0xC9408F), edge);
    QPainterPath loop(QPointF(160, 92));
    loop.cubicTo(110, 20, 34, -6, 18, 34);
    loop.cubicTo(6, 70, 10, 120, 24, 146);
    loop.cubicTo(46, 166, 120, 136, 160, 100);
    loop.closeSubpath();
    for (const bool right : {false, true}) {
        const auto side = [right](const QPainterPath& path) {
            return right ? mirrored(path, 160) : path;
        };
        d.bands(side(loop), {0, 20}, {0, 150}, {QColor(0xF58CC4), QColor(0xD94F9F)}, 12);
        d.outline(side(loop), edge);
        d.fill(side(leaf({150, 94}, 96, 40, 184)), QColor(0xB53681));
        d.outline(side(curve({146, 80}, {110, 54}, {80, 40}, {50, 36})), {QColor(0xFFC4E2), 3});
    }
    d.paint(box({136, 70, 48, 54}, 17), QColor(0xE766B0), edge);
    d.outline(curve({150, 80}, {146, 92}, {146, 104}, {150, 114}), {QColor(0xFFC4E2), 3});
    return d;
}

}  // namespace

Style ribbonsAndStars() {
    return {QStringLiteral("Ribbons and Stars"),
            QStringLiteral("Ribbons"),
            {{QStringLiteral("Banner"), banner()},
             {QStringLiteral("Rosette"), rosette()},
             {QStringLiteral("Corner"), cornerRibbon()},
             {QStringLiteral("Gold Star"), goldStar()},
             {QStringLiteral("Rainbow Star"), starTrail()},
             {QStringLiteral("Bow"), bow()}}};
}

}  // namespace vellora::clipgen
