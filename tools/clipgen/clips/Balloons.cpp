#include <cmath>

#include "ClipList.h"
#include "clips/Forms.h"

namespace vellora::clipgen {
namespace {

constexpr QSizeF kSize(320, 250);
const QColor kInk(0x24242C);

/// A curved wedge from one foot to its tip and back to the other foot.
QPainterPath tail(QPointF foot, QPointF bend, QPointF tip, QPointF otherBend, QPointF otherFoot) {
    QPainterPath path(foot);
    path.quadTo(bend, tip);
    path.quadTo(otherBend, otherFoot);
    path.closeSubpath();
    return path;
}

Drawing speech() {
    Drawing d(kSize);
    QPainterPath path = oval({160, 100}, 150, 92);
    path = path.united(tail({90, 150}, {96, 200}, {46, 240}, {120, 230}, {160, 170}));
    d.fill(moved(path, 5, 6), QColor(0x8F8F9C));
    d.paint(path, Qt::white, {kInk, 4});
    return d;
}

Drawing thought() {
    Drawing d(kSize);
    QPainterPath cloud;
    cloud.setFillRule(Qt::WindingFill);
    for (const auto& [at, size] : {std::pair(QPointF(90, 100), 62.0),
                                   {QPointF(150, 70), 62.0},
                                   {QPointF(220, 80), 60.0},
                                   {QPointF(258, 118), 50.0},
                                   {QPointF(190, 130), 58.0},
                                   {QPointF(110, 136), 50.0}})
        cloud = cloud.united(disc(at, size));
    d.paint(cloud, Qt::white, {kInk, 4});
    d.paint(oval({86, 206}, 22, 16), Qt::white, {kInk, 4});
    d.paint(oval({44, 232}, 13, 10), Qt::white, {kInk, 4});
    return d;
}

Drawing shout() {
    Drawing d(kSize);
    QPainterPath path;
    for (int i = 0; i < 32; ++i) {
        const double angle = i * 3.14159265 / 16;
        const double reach = i % 2 == 0 ? 1.0 + 0.12 * std::sin(i * 2.3) : 0.72;
        QPointF point(160 + std::cos(angle) * 136 * reach, 112 + std::sin(angle) * 94 * reach);
        if (i == 12)
            point = {44, 240};
        if (i == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    path.closeSubpath();
    d.fill(moved(path, 5, 6), QColor(0x9A2A1F));
    d.bands(path, {0, 10}, {0, 240}, {QColor(0xFFF38A), QColor(0xFFC53A)}, 14);
    d.outline(path, {QColor(0x9A2A1F), 4.5});
    return d;
}

Drawing chat() {
    Drawing d(kSize);
    QPainterPath back = box({96, 70, 214, 120}, 26);
    back = back.united(polygon({{240, 180}, {296, 236}, {282, 172}}));
    d.paint(back, QColor(0x56B58A), {QColor(0x1F5C41), 3.5});
    QPainterPath front = box({10, 12, 222, 124}, 26);
    front = front.united(polygon({{44, 126}, {28, 186}, {98, 130}}));
    d.paint(front, QColor(0x5B9BE8), {QColor(0x1E4E8C), 3.5});
    for (int i = 0; i < 3; ++i)
        d.fill(disc({76.0 + i * 45, 74}, 12), Qt::white);
    return d;
}

Drawing caption() {
    Drawing d(QSizeF(340, 170));
    QPainterPath path = box({8, 8, 318, 120}, 8);
    path = path.united(polygon({{220, 120}, {286, 162}, {262, 120}}));
    d.fill(moved(path, 6, 6), QColor(0x6F6A58));
    d.paint(path, QColor(0xFFF6D6), {QColor(0x4A4230), 3.5});
    d.outline(box({18, 18, 298, 100}, 4), {QColor(0xC8B47A), 1.8});
    return d;
}

Drawing heartTalk() {
    Drawing d(QSizeF(300, 280));
    QPainterPath path = heart({150, 128}, 122);
    path = path.united(tail({190, 180}, {210, 240}, {262, 268}, {190, 262}, {140, 200}));
    d.fill(moved(path, 5, 6), QColor(0x8B2440));
    d.bands(path, {0, 10}, {0, 270}, {QColor(0xFFA9BE), QColor(0xF0557F)}, 16);
    d.outline(path, {QColor(0x8B2440), 4});
    d.outline(curve({54, 76}, {56, 50}, {74, 36}, {98, 34}), {QColor(0xFFE4EB), 8});
    return d;
}

}  // namespace

Style balloons() {
    return {QStringLiteral("Speech Balloons"),
            QStringLiteral("Balloons"),
            {{QStringLiteral("Speech"), speech()},
             {QStringLiteral("Thought"), thought()},
             {QStringLiteral("Shout"), shout()},
             {QStringLiteral("Chat"), chat()},
             {QStringLiteral("Caption"), caption()},
             {QStringLiteral("Heart"), heartTalk()}}};
}

}  // namespace vellora::clipgen
