#include <QPainter>
#include <cstdlib>
#include <string_view>
#include <utility>

#include <opencv2/core/core_c.h>

#include <vellora/filters/PhotoProcessor.h>

#include "base/ImageView.h"
#include "filters/FilterRegion.h"
#include "filters/Geometry.h"

namespace vellora {
namespace {

// Written by the edit dialog's thread, read while it draws.
FilterRegion g_previewRegion;

bool isNone(const COpencvFilterInterface& filter) {
    return std::u16string_view(filter.GetName()) == u"None";
}

bool differByLessThanTwo(int a, int b) {
    return std::abs(a - b) < 2;
}

/// What the painter's surface shows of a rectangle in the painter's coordinates.
Rect visiblePart(const QPainter& painter, const Rect& rect) {
    const QPaintDevice& surface = *painter.device();
    const QRectF shown = painter.combinedTransform().inverted().mapRect(
        QRectF(0, 0, surface.width(), surface.height()));
    const QRect part =
        shown.intersected(QRectF(rect.left, rect.top, rect.width(), rect.height())).toAlignedRect();
    return {part.left(), part.top(), part.left() + part.width(), part.top() + part.height()};
}

/// Lends an image to a filter, which may exchange it, and takes back whatever is there then, also
/// when the filter throws.
class LentImage {
public:
    explicit LentImage(ImagePtr& owner) : m_owner(owner), m_image(owner.release()) {}
    ~LentImage() { m_owner.reset(m_image); }
    LentImage(const LentImage&) = delete;
    LentImage& operator=(const LentImage&) = delete;

    IplImage** image() { return &m_image; }

private:
    ImagePtr& m_owner;
    IplImage* m_image;
};

template <class Items>
bool hasIndex(const Items& items, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < items.size();
}

}  // namespace

void BuiltPicture::add(Step::Kind kind, int value) {
    const bool repeats = !since.empty() && since.back().kind == kind;
    if (repeats && kind == Step::Kind::Turn) {
        value = (since.back().value + value) % 360;
        since.pop_back();
        if (value == 0) {
            return;
        }
    } else if (repeats && (kind == Step::Kind::FlipX || kind == Step::Kind::FlipY)) {
        since.pop_back();
        return;
    }
    since.push_back({kind, value});
}

CPhotoProcessor::CPhotoProcessor() = default;
CPhotoProcessor::~CPhotoProcessor() = default;

void CPhotoProcessor::SetNode(_PHOTO_LIST_NODE* node) {
    m_node = node;
}

void CPhotoProcessor::ReleaseImages() {
    m_built.working.reset();
    m_built.source.reset();
    m_currentFilter = nullptr;
}

BuiltPicture CPhotoProcessor::TakePicture() {
    return std::exchange(m_built, {});
}

void CPhotoProcessor::PutPicture(BuiltPicture picture) {
    m_built = std::move(picture);
}

int CPhotoProcessor::GetWidth() const {
    return m_built.working != nullptr ? m_built.working->width : 0;
}

int CPhotoProcessor::GetHeight() const {
    return m_built.working != nullptr ? m_built.working->height : 0;
}

void CPhotoProcessor::FlipWorkingX() {
    if (m_built.working != nullptr) {
        if (m_node != nullptr) {
            m_node->changed = 1;
        }
        mirrorLeftRight(*m_built.working);
        m_built.add(BuiltPicture::Step::Kind::FlipX);
    }
}

void CPhotoProcessor::FlipWorkingY() {
    if (m_built.working != nullptr) {
        if (m_node != nullptr) {
            m_node->changed = 1;
        }
        mirrorUpsideDown(*m_built.working);
        m_built.add(BuiltPicture::Step::Kind::FlipY);
    }
}

void CPhotoProcessor::ToggleFlipX() {
    if (m_node != nullptr) {
        m_node->flip_x = m_node->flip_x == 0 ? 1 : 0;
        FlipWorkingX();
    }
}

void CPhotoProcessor::ToggleFlipY() {
    if (m_node != nullptr) {
        m_node->flip_y = m_node->flip_y == 0 ? 1 : 0;
        FlipWorkingY();
    }
}

void CPhotoProcessor::RotateLeft() {
    if (m_node != nullptr) {
        if (m_node->rotation < 1) {
            m_node->rotation = 360;
        }
        m_node->rotation -= 90;
        m_node->changed = 1;
        RotateQuarter(270);
    }
}

void CPhotoProcessor::RotateRight() {
    if (m_node != nullptr) {
        // Compared before adding: a stranger's record may hold any number.
        m_node->rotation = m_node->rotation >= 270 ? 0 : m_node->rotation + 90;
        m_node->changed = 1;
        RotateQuarter(90);
    }
}

void CPhotoProcessor::RotateQuarter(int degrees) {
    if (m_built.working != nullptr) {
        if (ImagePtr rotated = rotatedQuarter(*m_built.working, degrees)) {
            m_built.working = std::move(rotated);
            m_built.add(BuiltPicture::Step::Kind::Turn, degrees);
        }
    }
}

ImagePtr CPhotoProcessor::FitCopy(int maxWidth, int maxHeight) const {
    if (m_built.working == nullptr) {
        return nullptr;
    }
    const Size size =
        boxFit({m_built.working->width, m_built.working->height}, {maxWidth, maxHeight});
    return resizedByArea(cv::cvarrToMat(m_built.working.get()), size);
}

void CPhotoProcessor::DrawTo(QPainter& painter, const Rect& rect) {
    if (m_built.working == nullptr || rect.isEmpty()) {
        return;
    }
    ImagePtr filtered;
    if (m_built.scaled && m_currentFilter != nullptr && !isNone(*m_currentFilter)) {
        filtered = copyImage(cv::cvarrToMat(m_built.working.get()));
        ApplyPreview(filtered);
    }
    const cv::Mat pixels =
        cv::cvarrToMat(filtered != nullptr ? filtered.get() : m_built.working.get());
    if (differByLessThanTwo(rect.width(), pixels.cols) &&
        differByLessThanTwo(rect.height(), pixels.rows)) {
        drawPicture(painter, rect.left, rect.top, pixels);
        return;
    }
    const PlacedImage resized = resizedInto(pixels, rect, visiblePart(painter, rect));
    if (resized.image != nullptr) {
        drawPicture(painter, resized.left, resized.top, cv::cvarrToMat(resized.image.get()));
    }
}

void CPhotoProcessor::ApplyPreview(ImagePtr& picture) const {
    if (picture == nullptr || m_currentFilter == nullptr || isNone(*m_currentFilter)) {
        return;
    }
    if (m_currentFilter->HasROI()) {
        const FilterRegion& region = g_previewRegion;
        m_currentFilter->SetROI(region.roi_x, region.roi_y, region.roi_cx, region.roi_cy);
    }
    LentImage lent(picture);
    m_currentFilter->Apply(lent.image());
}

void CPhotoProcessor::SetPreviewROI(float x, float y, float cx, float cy) {
    g_previewRegion = {x, y, cx, cy};
}

void CPhotoProcessor::ApplyToWorking(COpencvFilterInterface& filter) {
    if (m_built.working != nullptr) {
        LentImage lent(m_built.working);
        filter.Apply(lent.image());  // the result is no reason to skip anything
    }
}

bool CPhotoProcessor::ApplyCurrentFilter() {
    if (m_currentFilter == nullptr || isNone(*m_currentFilter)) {
        return true;
    }
    ApplyToWorking(*m_currentFilter);
    std::unique_ptr<COpencvFilterInterface> recorded(m_currentFilter->Clone());
    if (recorded == nullptr) {
        return false;
    }
    recorded->crop_step = GetCropCount();
    if (m_node != nullptr) {
        recorded->Angle = m_node->rotation;
        recorded->FlipX = m_node->flip_x == 1;
        recorded->FlipY = m_node->flip_y == 1;
    }
    m_chain.push_back(std::move(recorded));
    m_built.add(BuiltPicture::Step::Kind::Filter, GetFilterCount() - 1);
    return true;
}

void CPhotoProcessor::AddFilterToChain(COpencvFilterInterface* filter) {
    if (filter != nullptr) {
        m_chain.emplace_back(filter);
    }
}

void CPhotoProcessor::AddCropRecord(const CropRecord& record) {
    m_crops.push_back(record);
}

bool CPhotoProcessor::Crop(int x, int y, int width, int height) {
    if (!ApplyCurrentFilter()) {
        return false;
    }
    if (m_node == nullptr || x < 0 || y < 0 || width <= 0 || height <= 0) {
        return true;
    }
    const Size shown = fittedSize({GetWidth(), GetHeight()}, {kStageWidth, kStageHeight});
    if (shown.width <= 0) {
        return false;
    }
    const float ratio = static_cast<float>(GetWidth()) / static_cast<float>(shown.width);
    const Rect pixels{scaledEdge(x, ratio), scaledEdge(y, ratio),
                      scaledEdge(x, ratio) + scaledEdge(width, ratio),
                      scaledEdge(y, ratio) + scaledEdge(height, ratio)};
    if (!CutWorking(pixels)) {
        return false;
    }
    m_crops.push_back(
        {x, y, width, height, m_node->flip_x == 1, m_node->flip_y == 1, m_node->rotation});
    m_built.add(BuiltPicture::Step::Kind::Crop, GetCropCount() - 1);
    return true;
}

bool CPhotoProcessor::CutWorking(const Rect& pixels) {
    if (m_built.working == nullptr) {
        return false;
    }
    ImagePtr cut = cutOut(*m_built.working, pixels);
    if (cut == nullptr) {
        return false;
    }
    m_built.working = std::move(cut);
    return true;
}

const CropRecord* CPhotoProcessor::GetCrop(int index) const {
    return hasIndex(m_crops, index) ? &m_crops[static_cast<std::size_t>(index)] : nullptr;
}

COpencvFilterInterface* CPhotoProcessor::GetFilter(int index) const {
    return hasIndex(m_chain, index) ? m_chain[static_cast<std::size_t>(index)].get() : nullptr;
}

}  // namespace vellora
