#pragma once

#include <QSizeF>
#include <memory>

class QPainter;
class QRectF;
class QString;

namespace vellora {

/// A decoded art clip that can be drawn at any size.
class ClipPicture {
public:
    virtual ~ClipPicture() = default;
    ClipPicture(const ClipPicture&) = delete;
    ClipPicture& operator=(const ClipPicture&) = delete;

    /// The size that the file gives itself; only its proportions mean anything for vectors.
    [[nodiscard]] virtual QSizeF naturalSize() const = 0;

    /// Draws the clip stretched into a rectangle of the painter's coordinates, as sharp as the
    /// surface allows. Places that the clip does not paint stay as they are.
    virtual void draw(QPainter& painter, const QRectF& target) const = 0;

    /// Rough cost of keeping the clip, in bytes.
    [[nodiscard]] virtual qsizetype bytes() const = 0;

protected:
    ClipPicture() = default;
};

/// Loads a clip; null for a file that cannot be loaded, `reason` then says why.
///
/// Clips are kept and shared for as long as the file's size and time of change stay the same,
/// the least recently used being dropped past a fixed amount of memory. Safe to call from several
/// threads, as is drawing the result.
std::shared_ptr<const ClipPicture> loadClip(const QString& path, QString* reason = nullptr);

}  // namespace vellora
