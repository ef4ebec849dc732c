// Rendering finished pictures.

#include <QImage>
#include <QScopeGuard>
#include <algorithm>
#include <mutex>

#include <opencv2/core/core_c.h>

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/ImageObj.h>
#include <vellora/host/NodeHandle.h>
#include <vellora/model/DVDImage.h>

#include "base/ImageView.h"
#include "base/ModuleState.h"
#include "base/StageFit.h"
#include "host/EditPause.h"
#include "host/Guard.h"
#include "host/NodeList.h"

namespace vellora {
namespace {

constexpr int kExactFit = 100;

/// The finished picture at the size of the processed photo; null when there is none.
QImage composeOutput(CDVDImage& image, bool scaled) {
    CPhotoProcessor& processor = *image.GetProcessor();
    processor.Rebuild(scaled);
    const Size picture{processor.GetWidth(), processor.GetHeight()};
    if (picture.width == 0) {
        return {};
    }
    const Size canvas = outputCanvas(picture);
    image.SetCanvasSize(canvas.width, canvas.height);
    image.SetRegion((canvas.width - picture.width) / 2, (canvas.height - picture.height) / 2);
    const auto clearRegion = qScopeGuard([&image] { image.ClearRegion(); });
    return image.Compose(picture.width, picture.height, kFitInside);
}

/// Copies as many rows and columns as both images have.
void copyPixels(QImage& from, IplImage& to) {
    const cv::Mat source = matView(from);
    cv::Mat target = cv::cvarrToMat(&to);
    if (target.type() == CV_8UC3) {
        const cv::Rect common(0, 0, std::min(source.cols, target.cols),
                              std::min(source.rows, target.rows));
        source(common).copyTo(target(common));
    }
}

}  // namespace

IplImage* GetOutImg(_HNODE* node, int width, int height, const ImageCallback& callback) {
    IplImage* result = nullptr;
    guarded([&] {
        if (node == nullptr || node->data == nullptr || node->data->image == nullptr) {
            return E_FAIL;
        }
        QImage picture;
        {
            const std::lock_guard lock(imageBufferLock());
            const EditPause pause(*node->data->image);
            picture = composeOutput(*node->data->image, width != 0 && height != 0);
        }
        if (picture.isNull()) {
            return E_FAIL;
        }
        callback(&result, picture.width(), picture.height());
        if (result != nullptr) {
            copyPixels(picture, *result);
        }
        return S_OK;
    });
    return result;
}

STATUS CImageObj::SaveNodeToFile(const QString& path, int index, int width, int height, int quality,
                                 int /*reserved*/, int mode, DWORD colour) {
    return guarded([&] {
        const POSITION position = m_nodes->FindIndex(index);
        if (position == nullptr || position->data == nullptr || position->data->photo == nullptr ||
            position->data->image == nullptr) {
            return E_FAIL;
        }
        _PHOTO_LIST_NODE& photo = *position->data->photo;
        CDVDImage& image = *position->data->image;
        CPhotoProcessor& processor = *image.GetProcessor();
        const EditPause pause(image);
        const auto release = qScopeGuard([&processor] { processor.ReleaseImages(); });
        processor.Rebuild(false);
        const Size picture{processor.GetWidth(), processor.GetHeight()};
        Size canvas{width, height};
        if (width == 0 || height == 0) {
            canvas = picture;
        }
        image.SyncAngleFromNode();
        image.SetBackgroundColor(colour);
        int fitMode = mode;
        if (mode == kExactFit) {
            canvas = fittedSize(picture, canvas);
            photo.output_width = canvas.width;
            photo.output_height = canvas.height;
            fitMode = kFitInside;
        }
        image.SetCanvasSize(canvas.width, canvas.height);
        image.SaveAsJpeg(path, quality, fitMode);
        return S_OK;
    });
}

}  // namespace vellora
