#include "common/CopyEdits.h"

#include <memory>

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>

namespace vellora::hostkit {
namespace {

std::unique_ptr<COpencvFilterInterface> copyOf(const COpencvFilterInterface& filter) {
    std::unique_ptr<COpencvFilterInterface> copy(filter.Clone());
    if (copy != nullptr) {
        copy->crop_step = filter.crop_step;
        copy->FlipX = filter.FlipX;
        copy->FlipY = filter.FlipY;
        copy->Angle = filter.Angle;
    }
    return copy;
}

void copySprites(const CSpriteHolder& from, CSpriteHolder& to) {
    for (CDVDImageSprite* sprite : from.GetSprites()) {
        to.AddSprite(sprite, true);
    }
}

}  // namespace

void copyEdits(const CDVDImage& from, CDVDImage& to) {
    const CPhotoProcessor& source = *from.GetProcessor();
    CPhotoProcessor& target = *to.GetProcessor();
    for (int i = 0; i < source.GetCropCount(); ++i) {
        target.AddCropRecord(*source.GetCrop(i));
    }
    for (int i = 0; i < source.GetFilterCount(); ++i) {
        target.AddFilterToChain(copyOf(*source.GetFilter(i)).release());
    }
    copySprites(from, to);
}

void copyAlbum(const CDVDAlbumImage& from, CDVDAlbumImage& to) {
    copySprites(from, to);
}

}  // namespace vellora::hostkit
