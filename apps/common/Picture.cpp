#include "common/Picture.h"

#include <memory>

#include <opencv2/core/core_c.h>

namespace vellora::hostkit {
namespace {

struct HeaderDeleter {
    void operator()(IplImage* header) const { cvReleaseImageHeader(&header); }
};

}  // namespace

QImage finishedPicture(_HNODE* node, Detail detail) {
    const int reduce = detail == Detail::Preview ? 1 : 0;
    QImage picture;
    std::unique_ptr<IplImage, HeaderDeleter> header;
    GetOutImg(node, reduce, reduce, [&](IplImage** out, int width, int height) {
        picture = QImage(width, height, QImage::Format_BGR888);
        if (!picture.isNull()) {
            // The rows of both are padded to four bytes.
            header.reset(cvCreateImageHeader({width, height}, IPL_DEPTH_8U, 3));
            cvSetData(header.get(), picture.bits(), static_cast<int>(picture.bytesPerLine()));
            *out = header.get();
        }
    });
    return picture;
}

}  // namespace vellora::hostkit
