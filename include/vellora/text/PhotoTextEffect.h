#pragma once

/// @file
/// Measuring and drawing of styled texts.

#include <QFont>
#include <QPointF>
#include <QSizeF>
#include <QString>

#include <vellora/base/Export.h>
#include <vellora/text/TextStyle.h>

class QPainter;

namespace vellora {

/// Draws texts with all layers of an effect.
///
/// A text is laid out once, at 120 points and 96 dots per inch, and drawn through the outlines of
/// its glyphs, so that it has the same shape at every scale of the painter. Characters that the
/// font lacks come from the system's other fonts. Lines start with a sixth of the em and end with
/// one. Of a very long text the first 8192 UTF-16 units are measured and drawn.
class VELLORA_EXPORT CPhotoTextEffect {
public:
    /// The font in which texts of this effect are laid out.
    static QFont LayoutFont(const QString& family, bool bold, bool italic, bool underline);

    /// The size of the laid out text, blanks at its ends included; empty for an empty text.
    static QSizeF Measure(const QFont& font, const QString& text);

    /// Draws the text with its top-left corner at `origin`, in the painter's coordinates.
    ///
    /// From bottom to top: soft shadow, extrusion, border, halo, border, sharp shadow, face. What
    /// the painter cannot show is not made, so time and memory are bounded whatever sizes the
    /// effect asks for.
    ///
    /// @param painter        Left as it was but for its render hints.
    /// @param textureFolder  The folder with the textures.
    /// @param font           From `LayoutFont`.
    static void Draw(QPainter& painter, const QString& textureFolder, const QFont& font,
                     QPointF origin, const QString& text, const TextEffectRecord& effect,
                     std::int32_t align = kAlignLeading);
};

}  // namespace vellora
