#pragma once

#include <QPoint>

#include <vellora/base/Types.h>

namespace vellora {

/// Places that step down and right across the stage, so that things added one after the other do
/// not hide each other.
class Cascade {
public:
    static constexpr int kStart = 50;

    Cascade() = default;
    /// @param first  The first place.
    /// @param start  Where each coordinate starts again when it nears the stage's far edge.
    explicit Cascade(QPoint first, QPoint start = {kStart, kStart})
        : m_point(first), m_start(start) {}

    /// The present place; the next call gives the following one.
    QPoint next() {
        const QPoint place = m_point;
        m_point = {stepped(place.x(), kStageWidth, m_start.x()),
                   stepped(place.y(), kStageHeight, m_start.y())};
        return place;
    }

private:
    static constexpr int kStep = 20;
    static constexpr int kMargin = 50;

    static int stepped(int at, int length, int start) {
        return at < length - kMargin - kStep ? at + kStep : start;
    }

    QPoint m_point{kStart, kStart};
    QPoint m_start{kStart, kStart};
};

}  // namespace vellora
