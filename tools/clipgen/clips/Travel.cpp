#include <cmath>

#include "ClipList.h"
#include "clips/Forms.h"

namespace vellora::clipgen {
namespace {

Drawing suitcase() {
    Drawing d(QSizeF(320, 280));
    const Line edge{QColor(0x4A2A14), 3};
    QPainterPath handle = box({116, 12, 88, 60}, 16);
    d.outline(handle, {QColor(0x4A2A14), 15});
    d.outline(handle, {QColor(0x8A5A34), 9});
    d.bands(box({14, 52, 292, 210}, 22), {0, 50}, {0, 262}, {QColor(0xC98A52), QColor(0x9A5F31)},
            16);
    d.outline(box({14, 52, 292, 210}, 22), edge);
    for (const double x : {62.0, 224.0}) {
        d.paint(box({x, 52, 34, 210}), QColor(0x6E4023), edge);
        d.paint(box({x + 4, 120, 26, 32}, 5), QColor(0xE9C977), {QColor(0x7D5A17), 2});
    }
    d.paint(turned(box({112, 90, 82, 54}, 4), {153, 117}, -9), QColor(0x3E8FC4), {Qt::white, 3});
    d.text({.text = QStringLiteral("ROMA"),
            .at = {156, 124},
            .centred = true,
            .size = 21,
            .bold = true,
            .angle = 9,
            .color = Qt::white});
    d.paint(disc({170, 204}, 31), QColor(0xE7533F), {Qt::white, 3});
    d.paint(star({170, 204}, 22, 9, 5), QColor(0xFFE08A), {QColor(0xA52E1E), 1});
    d.paint(turned(polygon({{118, 176}, {138, 222}, {98, 222}}), {118, 200}, 8), QColor(0xF7C948),
            {Qt::white, 2.4});
    return d;
}

Drawing plane() {
    Drawing d(QSizeF(360, 250));
    const Line edge{QColor(0x2A4A72), 2.6};
    d.outline(curve({8, 232}, {70, 232}, {110, 212}, {150, 170}),
              {QColor(0x8FA9C4), 3.4, Line::Dashes::Dash});
    const auto tilt = [](const QPainterPath& path) { return turned(path, {210, 120}, -24); };
    d.paint(tilt(polygon({{196, 104}, {160, 34}, {184, 34}, {256, 104}})), QColor(0xA9C4E0), edge);
    QPainterPath body(QPointF(80, 116));
    body.cubicTo(120, 92, 250, 86, 316, 98);
    body.cubicTo(352, 106, 352, 126, 316, 132);
    body.cubicTo(250, 142, 130, 142, 80, 116);
    body.closeSubpath();
    d.bands(tilt(body), {200, 80}, {214, 146}, {QColor(0xFFFFFF), QColor(0xC9DAEC)}, 10);
    d.outline(tilt(body), edge);
    d.paint(tilt(polygon({{84, 116}, {64, 62}, {92, 62}, {130, 104}})), QColor(0xE2574C), edge);
    d.paint(tilt(polygon({{186, 124}, {120, 206}, {150, 206}, {256, 124}})), QColor(0x7FA6D1),
            edge);
    for (int i = 0; i < 7; ++i)
        d.fill(tilt(box({150.0 + i * 20, 102, 11, 9}, 3)), QColor(0x3E6EA3));
    d.fill(tilt(polygon({{306, 100}, {328, 106}, {326, 112}, {304, 110}})), QColor(0x3E6EA3));
    return d;
}

Drawing palmIsland() {
    Drawing d(QSizeF(320, 300));
    d.rings(disc({236, 74}, 58), {236, 74}, {QColor(0xFFC24A), QColor(0xFFF0B0)}, 9);
    QPainterPath sea(QPointF(4, 250));
    for (int i = 0; i < 6; ++i)
        sea.cubicTo(16 + i * 52, 236, 40 + i * 52, 236, 56 + i * 52, 250);
    sea.cubicTo(300, 296, 20, 296, 4, 250);
    sea.closeSubpath();
    QPainterPath sand(QPointF(48, 252));
    sand.cubicTo(96, 206, 220, 206, 274, 252);
    sand.closeSubpath();
    d.bands(sand, {0, 214}, {0, 254}, {QColor(0xFBE6AE), QColor(0xE3BC72)}, 8);
    QPainterPath trunk(QPointF(138, 228));
    trunk.cubicTo(150, 180, 150, 120, 118, 78);
    trunk.lineTo(130, 74);
    trunk.cubicTo(166, 120, 172, 180, 162, 228);
    trunk.closeSubpath();
    d.paint(trunk, QColor(0xA5713C), {QColor(0x5F3C19), 2.2});
    for (int i = 0; i < 6; ++i)
        d.outline(curve({134.0 + i * 4.2, 100.0 + i * 22}, {144.0 + i * 4, 104.0 + i * 22},
                        {150.0 + i * 4, 102.0 + i * 22}, {154.0 + i * 2.4, 98.0 + i * 22}),
                  {QColor(0x5F3C19), 1.8});
    for (const auto& [angle, length] : {std::pair(196.0, 108.0),
                                        {-22.0, 112.0},
                                        {158.0, 96.0},
                                        {22.0, 98.0},
                                        {232.0, 92.0},
                                        {-60.0, 92.0},
                                        {128.0, 70.0},
                                        {56.0, 70.0}}) {
        d.paint(leaf({122, 76}, length, 30, angle), QColor(0x3FA35A), {QColor(0x1C5F33), 2});
        d.outline(
            turned(curve({122, 76}, {142, 76}, {162, 76}, {112 + length, 76}), {122, 76}, angle),
            {QColor(0x9FDBA2), 1.6});
    }
    for (const QPointF nut : {QPointF(114, 86), QPointF(130, 88), QPointF(122, 94)})
        d.paint(disc(nut, 8), QColor(0x7A4A22), {QColor(0x3F240D), 1.6});
    d.bands(sea, {0, 238}, {0, 284}, {QColor(0x54B7E0), QColor(0x2173AE)}, 8);
    d.outline(curve({60, 262}, {90, 256}, {110, 268}, {140, 262}), {QColor(0xD6F1FB), 3});
    d.outline(curve({180, 268}, {206, 262}, {226, 274}, {252, 266}), {QColor(0xD6F1FB), 3});
    return d;
}

Drawing compass() {
    Drawing d(QSizeF(300, 300));
    const QPointF centre(150, 150);
    d.rings(disc(centre, 144), {110, 100}, {QColor(0x8F6420), QColor(0xF3D78C)}, 14);
    d.outline(disc(centre, 144), {QColor(0x553A0F), 3});
    d.paint(disc(centre, 118), QColor(0xFBF5E2), {QColor(0x553A0F), 3});
    for (int i = 0; i < 72; ++i) {
        const double start = i % 18 == 0 ? 52 : i % 2 == 0 ? 46 : 40;
        QPainterPath tick(QPointF(150, 36));
        tick.lineTo(150, start);
        d.outline(turned(tick, centre, i * 5), {QColor(0x6B5530), i % 18 == 0 ? 3.0 : 1.2});
    }
    d.paint(star(centre, 80, 24, 4, 45), QColor(0xD9C79A), {QColor(0x6B5530), 1.4});
    for (int i = 0; i < 4; ++i) {
        const auto turn = [&](const QPainterPath& path) { return turned(path, centre, i * 90); };
        d.paint(turn(polygon({centre, {150, 48}, {169, 131}})),
                i == 0 ? QColor(0xD6423A) : QColor(0x3A5B86), {QColor(0x26374F), 1.4});
        d.paint(turn(polygon({centre, {150, 48}, {131, 131}})),
                i == 0 ? QColor(0xF08A7E) : QColor(0x8FB0D6), {QColor(0x26374F), 1.4});
    }
    d.paint(disc(centre, 12), QColor(0xE3B95A), {QColor(0x553A0F), 2});
    return d;
}

/// Colours of a sunset over the sea, small enough for a stamp.
QImage sunset() {
    QImage image(90, 60, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const double sky = y / 38.0;
            QColor color = y < 38
                               ? mixed({QColor(0x3B4C94), QColor(0xE8718D), QColor(0xFBC469)}, sky)
                               : mixed({QColor(0xE99A63), QColor(0x274B78)}, (y - 38) / 22.0);
            const double away = std::hypot(x - 58.0, y - 30.0);
            if (y < 38 && away < 9)
                color = QColor(0xFFF3C2);
            if (y >= 38 && std::abs(x - 58) < 9 - (y - 38) * 0.25 && (y + x / 9) % 3 != 0)
                color = QColor(0xFFE0A0);
            image.setPixelColor(x, y, color);
        }
    }
    return image;
}

Drawing postcard() {
    Drawing d(QSizeF(360, 250));
    const auto tilt = [](const QPainterPath& path) { return path; };
    d.fill(tilt(box({14, 16, 340, 228}, 4)), QColor(0x8D877A));
    d.paint(tilt(box({6, 8, 340, 228}, 4)), QColor(0xFFFDF6), {QColor(0xCFC6B2), 1.6});
    d.picture(sunset(), QRectF(20, 22, 180, 120));
    d.outline(box({20, 22, 180, 120}), {QColor(0xB6AC96), 1.2});
    d.text({.text = QStringLiteral("Greetings"),
            .at = {24, 190},
            .face = QStringLiteral("Times New Roman"),
            .size = 34,
            .italic = true,
            .color = QColor(0x2D4F86)});
    for (int i = 0; i < 3; ++i)
        d.outline(polygon({{222, 150.0 + i * 26}, {328, 150.0 + i * 26}}), {QColor(0xB6AC96), 1.8});
    QPainterPath stamp = box({268, 24, 60, 72});
    d.paint(stamp, QColor(0xF7EBD0), {QColor(0xB23A48), 2.4, Line::Dashes::Dot});
    d.fill(box({275, 31, 46, 58}), QColor(0x79B7D9));
    d.fill(polygon({{275, 89}, {298, 46}, {321, 89}}), QColor(0x4E7D5B));
    d.fill(polygon({{290, 61}, {298, 46}, {306, 61}, {298, 66}}), Qt::white);
    for (const double radius : {22.0, 27.0})
        d.outline(disc({254, 70}, radius), {QColor(0x55607A), 1.8});
    for (int i = 0; i < 3; ++i)
        d.outline(curve({276, 56.0 + i * 13}, {292, 50.0 + i * 13}, {308, 64.0 + i * 13},
                        {334, 56.0 + i * 13}),
                  {QColor(0x55607A), 1.8});
    return d;
}

Drawing camera() {
    Drawing d(QSizeF(340, 260));
    const Line edge{QColor(0x1C2027), 3};
    d.paint(polygon({{112, 58}, {130, 18}, {212, 18}, {230, 58}}), QColor(0x4A5160), edge);
    d.paint(box({36, 34, 52, 30}, 6), QColor(0x6C7484), edge);
    d.bands(box({10, 52, 320, 190}, 22), {0, 52}, {0, 242}, {QColor(0x5C6474), QColor(0x363C48)},
            12);
    d.outline(box({10, 52, 320, 190}, 22), edge);
    d.fill(box({12, 96, 316, 62}), QColor(0xB5523B));
    d.outline(polygon({{12, 96}, {328, 96}}), edge);
    d.outline(polygon({{12, 158}, {328, 158}}), edge);
    d.paint(disc({170, 146}, 82), QColor(0xD5DAE2), edge);
    d.paint(disc({170, 146}, 66), QColor(0x23272F), edge);
    d.rings(disc({170, 146}, 50), {154, 128},
            {QColor(0x1B2C5A), QColor(0x3F7FC9), QColor(0xA9D8F5)}, 12);
    d.fill(oval({150, 124}, 15, 9, -38), QColor(0xEFF9FF));
    d.fill(disc({190, 168}, 6), QColor(0xCDEBFB));
    d.paint(box({262, 66, 44, 22}, 5), QColor(0xFFF1C4), edge);
    return d;
}

}  // namespace

Style travel() {
    return {QStringLiteral("Travel"),
            QStringLiteral("Travel"),
            {{QStringLiteral("Suitcase"), suitcase()},
             {QStringLiteral("Plane"), plane()},
             {QStringLiteral("Island"), palmIsland()},
             {QStringLiteral("Compass"), compass()},
             {QStringLiteral("Postcard"), postcard()},
             {QStringLiteral("Camera"), camera()}}};
}

}  // namespace vellora::clipgen
