#include <QPainter>
#include <QSvgRenderer>
#include <mutex>

#include "model/ClipDecoders.h"
#include "model/ClipPicture.h"

namespace vellora {
namespace {

class SvgClip final : public ClipPicture {
public:
    explicit SvgClip(const QString& path) : m_renderer(path) {
        m_renderer.setAspectRatioMode(Qt::IgnoreAspectRatio);
    }

    [[nodiscard]] bool isValid() const { return m_renderer.isValid() && !naturalSize().isEmpty(); }

    [[nodiscard]] QSizeF naturalSize() const override {
        const QSize declared = m_renderer.defaultSize();
        return declared.isEmpty() ? m_renderer.viewBoxF().size() : QSizeF(declared);
    }

    void draw(QPainter& painter, const QRectF& target) const override {
        const std::lock_guard lock(m_mutex);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        m_renderer.render(&painter, target);
        painter.restore();
    }

    [[nodiscard]] qsizetype bytes() const override { return kEstimatedBytes; }

private:
    static constexpr qsizetype kEstimatedBytes = 1 << 20;

    mutable std::mutex m_mutex;  // rendering changes the renderer's state
    mutable QSvgRenderer m_renderer;
};

}  // namespace

std::shared_ptr<const ClipPicture> decodeSvgClip(const QString& path, QString& reason) {
    auto clip = std::make_shared<SvgClip>(path);
    if (!clip->isValid()) {
        reason = QStringLiteral("not a usable SVG picture");
        return nullptr;
    }
    return clip;
}

}  // namespace vellora
