#include "ui/dialog/DialogLayout.h"

#include <algorithm>

#include <vellora/base/Types.h>

namespace vellora {
namespace {

constexpr QSize kTemplate{959, 564};
constexpr int kPageLeft = 632;
constexpr int kPageTop = 104;
constexpr int kRightMargin = 6;
constexpr int kBottomMargin = 6;

/// A rectangle given by its edges, the right and bottom ones exclusive.
QRect edges(int left, int top, int right, int bottom) {
    return {left, top, right - left, bottom - top};
}

}  // namespace

QSize DialogLayout::dialogSize(QSize page) const {
    const int extra = extraToolHeight + extraTabHeight;
    return {std::max(kTemplate.width(), kPageLeft + page.width() + kRightMargin),
            std::max(kTemplate.height() + extra, kPageTop + extra + page.height() + kBottomMargin)};
}

QRect DialogLayout::toolPanel(QSize client) const {
    return edges(8, 25, client.width() - 4, 69 + extraToolHeight);
}

QRect DialogLayout::tabBar(QSize client) const {
    return edges(636, 72 + extraToolHeight, client.width() - 6,
                 104 + extraToolHeight + extraTabHeight);
}

QRect DialogLayout::page(QSize client) const {
    const int extra = extraToolHeight + extraTabHeight;
    return {kPageLeft, kPageTop + extra, client.width() - kPageLeft - kRightMargin,
            client.height() - kPageTop - kBottomMargin - extra};
}

QRect DialogLayout::canvas() const {
    return {16, 88 + extraToolHeight, kStageWidth, kStageHeight};
}

QRect DialogLayout::status(QSize client) const {
    const QRect stage = canvas();
    return edges(stage.left(), stage.bottom() + 1 + kCanvasMat, stage.right() + 1,
                 client.height() - 1);
}

QRect DialogLayout::toolHeader(QSize client) const {
    return edges(5, 23, client.width() - 5, 72 + extraToolHeight);
}

QRect DialogLayout::tabHeader(QSize client) const {
    return edges(kPageLeft, 72 + extraToolHeight, client.width(),
                 104 + extraToolHeight + extraTabHeight);
}

QRect placedDialog(QSize wanted, QSize smallest, const QRect& screen, QPoint centre) {
    QRect frame({}, wanted.boundedTo(screen.size()).expandedTo(smallest));
    frame.moveCenter(centre);
    frame.moveRight(std::min(frame.right(), screen.right()));
    frame.moveBottom(std::min(frame.bottom(), screen.bottom()));
    frame.moveLeft(std::max(frame.left(), screen.left()));
    frame.moveTop(std::max(frame.top(), screen.top()));
    return frame;
}

}  // namespace vellora
