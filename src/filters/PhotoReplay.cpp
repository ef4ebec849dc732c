// Decoding a photo and replaying its edits.

#include <QFileInfo>
#include <QString>
#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include <opencv2/core/core_c.h>

#include <vellora/base/HostText.h>
#include <vellora/filters/PhotoProcessor.h>

#include "base/ImageView.h"
#include "base/PhotoDecoder.h"
#include "filters/Geometry.h"

namespace vellora {
namespace {

/// The turn that leads from one quarter-turn angle to another, 0 to 359 for angles of a sound
/// record.
int turnBetween(std::int32_t from, std::int32_t to) {
    const std::int64_t difference = static_cast<std::int64_t>(to) - from;
    const std::int64_t turn = difference < 0 ? difference + 360 : difference;
    return turn >= 0 && turn < 360 ? static_cast<int>(turn) : 0;
}

}  // namespace

void CPhotoProcessor::Rebuild(bool scaled) {
    m_scaled = scaled;
    if (m_node == nullptr || m_node->path[0] == u'\0' || m_working != nullptr) {
        return;
    }
    try {
        if (DecodeSource()) {
            MakeWorkingFromSource();
            Replay();
        }
    } catch (...) {
        // A picture of which only some edits are done would be taken for the finished one.
        m_working.reset();
        m_source.reset();
        throw;
    }
}

bool CPhotoProcessor::DecodeSource() {
    const QString path = hostText(m_node->path);
    if (!QFileInfo(path).isFile()) {
        return false;  // reading a pipe or a terminal would never end
    }
    DecodedPhoto photo = decodeJpeg(path);
    m_damaged = photo.damaged;
    m_source = std::move(photo.image);
    return m_source != nullptr || LoadWithGdiplus(path);
}

bool CPhotoProcessor::LoadWithGdiplus(const QString& path) {
    m_source = decodeWithQt(path).image;
    return m_source != nullptr;
}

void CPhotoProcessor::MakeWorkingFromSource() {
    const Size decoded{m_source->width, m_source->height};
    m_previewFactor = previewFactor(decoded);
    if (!m_scaled) {
        m_working = std::move(m_source);
        return;
    }
    const Size reduced = previewSize(decoded);
    const cv::Mat pixels = cv::cvarrToMat(m_source.get());
    m_working = reduced == decoded ? copyImage(pixels) : resizedByArea(pixels, reduced);
}

ImagePtr CPhotoProcessor::MakeDetailed(double detail) {
    if (m_working == nullptr || m_source == nullptr || !m_scaled || m_node == nullptr) {
        return nullptr;
    }
    const Size decoded{m_source->width, m_source->height};
    const Size preview = previewSize(decoded);
    const double factor = std::min(detail, static_cast<double>(previewFactor(decoded)));
    const Size detailed{static_cast<int>(preview.width * factor),
                        static_cast<int>(preview.height * factor)};
    if (factor <= 1.0 || detailed == preview) {
        return nullptr;
    }
    ImagePtr picture = resizedByArea(cv::cvarrToMat(m_source.get()), detailed);
    if (picture == nullptr) {
        return nullptr;
    }
    // The edits are replayed as for a full-size picture, beside the preview that stays.
    const float previewFactorBefore = m_previewFactor;
    const std::int32_t changedBefore = m_node->changed;
    const auto restore = [&] {
        std::swap(m_working, picture);
        m_scaled = true;
        m_previewFactor = previewFactorBefore;
        m_node->changed = changedBefore;
    };
    std::swap(m_working, picture);
    m_scaled = false;
    m_previewFactor = static_cast<float>(detailed.width) / static_cast<float>(preview.width);
    try {
        Replay();
    } catch (...) {
        restore();
        throw;
    }
    restore();
    return picture;
}

void CPhotoProcessor::Replay() {
    State state;
    std::size_t next = 0;
    for (std::size_t step = 0; step < m_crops.size(); ++step) {
        const CropRecord& crop = m_crops[step];
        if (crop.width > 0 && crop.height > 0) {
            ApplyFiltersUpTo(state, next, static_cast<std::int32_t>(step));
            BringTo(state, crop.FlipX, crop.FlipY, crop.angle);
            CutRecordedCrop(crop);
        }
    }
    ApplyFiltersUpTo(state, next, std::numeric_limits<std::int32_t>::max());
    BringToRecord(state);
}

void CPhotoProcessor::BringTo(State& state, bool flipX, bool flipY, std::int32_t angle) {
    if (flipX != state.flipX) {
        FlipWorkingX();
        state.flipX = flipX;
    }
    if (flipY != state.flipY) {
        FlipWorkingY();
        state.flipY = flipY;
    }
    if (angle != state.angle) {
        RotateQuarter(turnBetween(state.angle, angle));
        state.angle = angle;
    }
}

void CPhotoProcessor::BringToRecord(State& state) {
    BringTo(state, m_node->flip_x == 1, m_node->flip_y == 1, state.angle);
    if (m_node->rotation != state.angle) {
        // By the photo's own angle, not by the difference: older shows rely on it.
        RotateQuarter(m_node->rotation);
    }
}

void CPhotoProcessor::ApplyFiltersUpTo(State& state, std::size_t& next, std::int32_t cropStep) {
    for (; next < m_chain.size() && m_chain[next]->crop_step <= cropStep; ++next) {
        COpencvFilterInterface& filter = *m_chain[next];
        BringTo(state, filter.FlipX, filter.FlipY, filter.Angle);
        ApplyToWorking(filter);
    }
}

void CPhotoProcessor::CutRecordedCrop(const CropRecord& record) {
    if (m_working == nullptr) {
        return;
    }
    // The record is in pixels of the stage. The preview shows them one to one, except where a
    // turned picture had to be reduced once more to fit; a full-size picture has
    // `m_previewFactor` pixels for each of the preview's.
    const double pixelsPerPreview = m_scaled ? 1.0 : m_previewFactor;
    const Size preview{scaledEdge(GetWidth(), 1.0 / pixelsPerPreview),
                       scaledEdge(GetHeight(), 1.0 / pixelsPerPreview)};
    const Size shown = fittedSize(preview, {kStageWidth, kStageHeight});
    double factor = pixelsPerPreview;
    if (shown.width > 0 && shown.width != preview.width) {
        factor *= static_cast<float>(preview.width) / static_cast<float>(shown.width);
    }
    const int left = scaledEdge(record.x, factor);
    const int top = scaledEdge(record.y, factor);
    CutWorking({left, top, left + scaledEdge(record.width, factor),
                top + scaledEdge(record.height, factor)});
}

void CPhotoProcessor::RestoreOriginal() {
    m_chain.clear();
    m_crops.clear();
    m_working.reset();
    if (m_node == nullptr) {
        return;
    }
    if (m_source == nullptr) {
        Rebuild(m_scaled);
        return;
    }
    MakeWorkingFromSource();
    State state;
    BringToRecord(state);
}

}  // namespace vellora
