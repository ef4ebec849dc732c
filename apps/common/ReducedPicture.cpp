#include "common/ReducedPicture.h"

#include <QImageReader>
#include <QTransform>

#include <vellora/base/HostText.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/PhotoFile.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>

namespace vellora::hostkit {
namespace {

bool isQuarterTurn(std::int32_t angle) {
    return angle == 0 || angle == 90 || angle == 180 || angle == 270;
}

bool showsSprites(const _PHOTO_LIST_NODE& photo, const CDVDImage& image) {
    const CDVDAlbumImage* album = image.GetAlbum();
    return photo.suppress_sprites == 0 &&
           !(image.GetSprites().IsEmpty() && (album == nullptr || album->GetSprites().IsEmpty()));
}

bool isPlain(const _PHOTO_LIST_NODE& photo, CDVDImage& image) {
    const CPhotoProcessor& processor = *image.GetProcessor();
    return processor.GetFilterCount() == 0 && processor.GetCropCount() == 0 &&
           isQuarterTurn(photo.rotation) && !showsSprites(photo, image);
}

}  // namespace

QImage reducedPicture(const _HNODE& node, QSize box) {
    const _PHOTO_LIST_NODE& photo = *node.data->photo;
    const QString path = hostText(photo.path);
    PhotoInfo info;
    if (!isPlain(photo, *node.data->image) || !ReadPhotoInfo(path, &info) ||
        HasExcessiveScans(path)) {
        return {};
    }
    QImageReader reader(path, "jpeg");
    const QSize size(info.width, info.height);
    const QSize target = photo.rotation % 180 == 0 ? box : box.transposed();
    if (size.width() > target.width() || size.height() > target.height()) {
        reader.setScaledSize(size.scaled(target, Qt::KeepAspectRatio).expandedTo({1, 1}));
    }
    const QImage picture = reader.read();
    return picture.mirrored(photo.flip_x == 1, photo.flip_y == 1)
        .transformed(QTransform().rotate(photo.rotation));
}

}  // namespace vellora::hostkit
