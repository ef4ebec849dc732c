#include <vellora/model/DVDAlbumImage.h>

namespace vellora {

CDVDAlbumImage::CDVDAlbumImage() = default;
CDVDAlbumImage::~CDVDAlbumImage() = default;

const CRuntimeClass* CDVDAlbumImage::GetRuntimeClass() const {
    static constexpr CRuntimeClass kClass{"CDVDAlbumImage"};
    return &kClass;
}

void CDVDAlbumImage::OnSpriteListChanged() {
    MarkChanged();
}

}  // namespace vellora
