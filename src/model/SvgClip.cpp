#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>
#include <mutex>

#include "metafile/Limits.h"
#include "model/ClipDecoders.h"
#include "model/ClipPicture.h"
#include "model/SvgSource.h"
#include "model/SvgWork.h"

namespace vellora {
namespace {

/// Work of drawing at large sizes: ten times what the costliest clip takes at a side of
/// `metafile::kWorkSide`. Ordinary ones stay below it at any size that is seen.
constexpr double kMaxLargeWork = 10 * metafile::kMaxWork;
/// The longest side of a picture in place of a drawing beyond that, or of paths far outside.
constexpr int kReducedSide = 1'024;

class SvgClip final : public ClipPicture {
public:
    explicit SvgClip(const SvgSource& source)
        : m_renderer(source.text),
          m_bytes(kTextCopies * source.text.size() +
                  kElementBytes * static_cast<qsizetype>(source.elements) +
                  kPixelBytes * static_cast<qsizetype>(source.imagePixels)) {
        m_renderer.setAspectRatioMode(Qt::IgnoreAspectRatio);
    }

    [[nodiscard]] bool isValid() const {
        const QSizeF size = naturalSize();
        return m_renderer.isValid() && !size.isEmpty() &&
               std::isfinite(size.width() + size.height());
    }

    /// False where drawing takes too much work.
    [[nodiscard]] bool measure() {
        const std::optional<SvgCost> cost = costOfDrawing(m_renderer, naturalSize());
        m_cost = cost.value_or(SvgCost());
        return cost.has_value();
    }

    [[nodiscard]] QSizeF naturalSize() const override {
        const QSize declared = m_renderer.defaultSize();
        return declared.isEmpty() ? m_renderer.viewBoxF().size() : QSizeF(declared);
    }

    void draw(QPainter& painter, const QRectF& target) const override {
        const std::lock_guard lock(m_mutex);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        if (isTooLarge(painter, target)) {
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawImage(target, reduced(target.size()));
        } else {
            m_renderer.render(&painter, target);
        }
        painter.restore();
    }

    [[nodiscard]] qsizetype bytes() const override { return m_bytes; }

private:
    // The numbers of a path take thrice their text, an element what it takes when it is empty.
    static constexpr qsizetype kTextCopies = 3;
    static constexpr qsizetype kElementBytes = 1'024;
    static constexpr qsizetype kPixelBytes = 4;

    /// Whether drawing would take time without bounds.
    [[nodiscard]] bool isTooLarge(const QPainter& painter, const QRectF& target) const {
        const QTransform onDevice = painter.deviceTransform();
        const QRectF pixels = onDevice.mapRect(target);
        const double enlargement = std::max(pixels.width(), pixels.height()) / metafile::kWorkSide;
        if (m_cost.work * enlargement * enlargement > kMaxLargeWork) {
            return true;
        }
        const QRectF& paths = m_cost.reach;
        const QRectF reach(target.x() + paths.x() * target.width(),
                           target.y() + paths.y() * target.height(), paths.width() * target.width(),
                           paths.height() * target.height());
        return isFar(onDevice.mapRect(reach));
    }

    [[nodiscard]] QImage reduced(const QSizeF& size) const {
        const QSize pixels = size.scaled(kReducedSide, kReducedSide, Qt::KeepAspectRatio).toSize();
        QImage image(pixels.expandedTo({1, 1}), QImage::Format_ARGB32_Premultiplied);
        if (!image.isNull()) {
            image.fill(Qt::transparent);
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            m_renderer.render(&painter, QRectF(image.rect()));
        }
        return image;
    }

    mutable std::mutex m_mutex;  // rendering changes the renderer's state
    mutable QSvgRenderer m_renderer;
    SvgCost m_cost;
    qsizetype m_bytes;
};

}  // namespace

std::shared_ptr<const ClipPicture> decodeSvgClip(const QString& path, QString& reason) {
    const std::optional<SvgSource> source = readSvg(path, reason);
    if (!source) {
        return nullptr;
    }
    auto clip = std::make_shared<SvgClip>(*source);
    if (!clip->isValid()) {
        reason = QStringLiteral("not a usable SVG picture");
        return nullptr;
    }
    if (!clip->measure()) {
        reason = QStringLiteral("the picture takes too much work to draw");
        return nullptr;
    }
    return clip;
}

}  // namespace vellora
