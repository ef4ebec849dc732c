#include "metafile/MetafilePicture.h"
#include "model/ClipDecoders.h"
#include "model/ClipPicture.h"

namespace vellora {
namespace {

class MetafileClip final : public ClipPicture {
public:
    explicit MetafileClip(std::shared_ptr<const MetafilePicture> picture)
        : m_picture(std::move(picture)) {}

    [[nodiscard]] QSizeF naturalSize() const override { return m_picture->naturalSize(); }

    void draw(QPainter& painter, const QRectF& target) const override {
        m_picture->draw(painter, target);
    }

    [[nodiscard]] qsizetype bytes() const override { return m_picture->bytes(); }

private:
    std::shared_ptr<const MetafilePicture> m_picture;
};

}  // namespace

std::shared_ptr<const ClipPicture> decodeMetafileClip(const QString& path, QString& reason) {
    std::shared_ptr<const MetafilePicture> picture = MetafilePicture::fromFile(path, &reason);
    return picture == nullptr ? nullptr : std::make_shared<MetafileClip>(std::move(picture));
}

}  // namespace vellora
