#pragma once

#include <QRect>
#include <QSize>

namespace vellora {

/// Width of the border around the canvas.
inline constexpr int kCanvasMat = 8;

/// Where the parts of the edit dialog stand.
///
/// With controls of ordinary height the places are fixed; larger fonts push what lies below the
/// tool panel down and widen the dialog. All rectangles are for a left-to-right dialog.
struct DialogLayout {
    int extraToolHeight = 0;  ///< What the tool panel needs beyond its 44 pixels.
    int extraTabHeight = 0;   ///< What the tab bar needs beyond its 32 pixels.

    /// The size of the dialog's template, grown for tall controls and wide pages.
    /// @param page  The smallest size of the largest page.
    [[nodiscard]] QSize dialogSize(QSize page) const;

    [[nodiscard]] QRect toolPanel(QSize client) const;
    [[nodiscard]] QRect tabBar(QSize client) const;
    [[nodiscard]] QRect page(QSize client) const;
    [[nodiscard]] QRect canvas() const;
    /// The line of text beneath the canvas.
    [[nodiscard]] QRect status(QSize client) const;
    /// Where the pictures of the header stand: behind the tool panel and behind the tabs.
    [[nodiscard]] QRect toolHeader(QSize client) const;
    [[nodiscard]] QRect tabHeader(QSize client) const;
};

/// Where a dialog of a size opens: around a point, as far as the screen allows, and no larger than
/// the screen unless its smallest size is.
QRect placedDialog(QSize wanted, QSize smallest, const QRect& screen, QPoint centre);

}  // namespace vellora
