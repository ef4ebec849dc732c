#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QRect>

class QPainter;
class QWidget;

namespace vellora::skin {

/// The colours of the module's dialogs.
inline constexpr QColor kWindowTop{0xF4, 0xF6, 0xF9};
inline constexpr QColor kWindowBottom{0xE4, 0xE8, 0xEE};
inline constexpr QColor kPage{0xFF, 0xFF, 0xFF};
inline constexpr QColor kLine{0xCC, 0xCC, 0xCC};
inline constexpr QColor kText{0x24, 0x2A, 0x33};
inline constexpr QColor kMutedText{0x5B, 0x65, 0x73};
inline constexpr QColor kDisabledText{0x9A, 0xA3, 0xAF};
inline constexpr QColor kBorder{0xAE, 0xB7, 0xC3};
inline constexpr QColor kFaintBorder{0xD3, 0xD9, 0xE1};
inline constexpr QColor kHover{0xEC, 0xF3, 0xFD};
inline constexpr QColor kPressed{0xD5, 0xE4, 0xFA};
inline constexpr QColor kAccent{0x2B, 0x68, 0xCC};
inline constexpr QColor kAccentDark{0x1E, 0x4F, 0xA3};
inline constexpr QColor kAccentText{0xFF, 0xFF, 0xFF};

/// Corner radius of buttons and fields, in logical pixels.
inline constexpr double kRadius = 4.0;

/// The palette of the dialogs, whatever the host's own looks like.
QPalette palette();

/// The font of a widget, smaller or larger by a factor.
QFont scaledFont(const QWidget& widget, double factor, QFont::Weight weight = QFont::Normal);

/// A one-pixel-wide rounded outline on a filled face; crisp at every device pixel ratio.
void drawFace(QPainter& painter, const QRect& rect, const QBrush& fill, const QColor& border,
              double radius = kRadius);

/// The ring around what has the keyboard focus.
void drawFocusRing(QPainter& painter, const QRect& rect, double radius = kRadius);

/// Fills the window behind everything.
void drawWindow(QPainter& painter, const QRect& rect);

/// Lays a text out on one line, cut with dots at its end where it does not fit.
void drawElided(QPainter& painter, const QRect& rect, int flags, const QString& text);

}  // namespace vellora::skin
