// Decoding a photo and replaying its edits.

#include <QFileInfo>
#include <QScopeGuard>
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
    m_built.scaled = scaled;
    if (m_node == nullptr || m_node->path[0] == u'\0' || m_built.working != nullptr) {
        return;
    }
    try {
        if (DecodeSource()) {
            MakeWorkingFromSource();
            m_built.replayed = RecordedEdits();
            Replay(m_built.replayed);
            m_built.since.clear();
        }
    } catch (...) {
        // A picture of which only some edits are done would be taken for the finished one.
        m_built.working.reset();
        m_built.source.reset();
        throw;
    }
}

bool CPhotoProcessor::DecodeSource() {
    const QString path = hostText(m_node->path);
    if (!QFileInfo(path).isFile()) {
        return false;  // reading a pipe or a terminal would never end
    }
    DecodedPhoto photo = decodeJpeg(path);
    m_built.damaged = photo.damaged;
    m_built.source = std::move(photo.image);
    return m_built.source != nullptr || LoadWithGdiplus(path);
}

bool CPhotoProcessor::LoadWithGdiplus(const QString& path) {
    m_built.source = decodeWithQt(path).image;
    return m_built.source != nullptr;
}

void CPhotoProcessor::MakeWorkingFromSource() {
    const Size decoded{m_built.source->width, m_built.source->height};
    m_built.previewFactor = previewFactor(decoded);
    if (!m_built.scaled) {
        m_built.working = std::move(m_built.source);
        return;
    }
    const Size reduced = previewSize(decoded);
    const cv::Mat pixels = cv::cvarrToMat(m_built.source.get());
    m_built.working = reduced == decoded ? copyImage(pixels) : resizedByArea(pixels, reduced);
}

ImagePtr CPhotoProcessor::MakeDetailed(double detail) {
    if (m_built.working == nullptr || m_built.source == nullptr || !m_built.scaled ||
        m_node == nullptr) {
        return nullptr;
    }
    const Size decoded{m_built.source->width, m_built.source->height};
    const Size shownSize = previewSize(decoded);
    const double factor = std::min(detail, static_cast<double>(previewFactor(decoded)));
    const Size detailed{static_cast<int>(shownSize.width * factor),
                        static_cast<int>(shownSize.height * factor)};
    if (factor <= 1.0 || detailed == shownSize) {
        return nullptr;
    }
    ImagePtr picture = resizedByArea(cv::cvarrToMat(m_built.source.get()), detailed);
    if (picture == nullptr) {
        return nullptr;
    }
    // The edits are made anew as for a full-size picture, beside the preview that stays, and those
    // made since it was built in the order of their making: a replay may turn and mirror in
    // another one.
    const std::int32_t changedBefore = m_node->changed;
    BuiltPicture preview = std::exchange(m_built, {});
    const auto restore = qScopeGuard([&] {
        m_built = std::move(preview);
        m_node->changed = changedBefore;
    });
    m_built.working = std::move(picture);
    m_built.previewFactor =
        static_cast<float>(detailed.width) / static_cast<float>(shownSize.width);
    Replay(preview.replayed);
    for (const BuiltPicture::Step& step : preview.since) {
        RepeatStep(step);
    }
    return std::move(m_built.working);
}

BuiltPicture::Extent CPhotoProcessor::RecordedEdits() const {
    return {m_crops.size(), m_chain.size(), m_node->flip_x == 1, m_node->flip_y == 1,
            m_node->rotation};
}

void CPhotoProcessor::RepeatStep(const BuiltPicture::Step& step) {
    switch (step.kind) {
        case BuiltPicture::Step::Kind::FlipX:
            FlipWorkingX();
            break;
        case BuiltPicture::Step::Kind::FlipY:
            FlipWorkingY();
            break;
        case BuiltPicture::Step::Kind::Turn:
            RotateQuarter(step.value);
            break;
        case BuiltPicture::Step::Kind::Filter:
            ApplyToWorking(*m_chain[static_cast<std::size_t>(step.value)]);
            break;
        case BuiltPicture::Step::Kind::Crop:
            CutRecordedCrop(m_crops[static_cast<std::size_t>(step.value)]);
            break;
    }
}

void CPhotoProcessor::Replay(const BuiltPicture::Extent& extent) {
    State state;
    std::size_t next = 0;
    for (std::size_t step = 0; step < extent.crops; ++step) {
        const CropRecord& crop = m_crops[step];
        if (crop.width > 0 && crop.height > 0) {
            ApplyFiltersUpTo(state, next, extent.filters, static_cast<std::int32_t>(step));
            BringTo(state, crop.FlipX, crop.FlipY, crop.angle);
            CutRecordedCrop(crop);
        }
    }
    ApplyFiltersUpTo(state, next, extent.filters, std::numeric_limits<std::int32_t>::max());
    BringToEnd(state, extent);
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

void CPhotoProcessor::BringToEnd(State& state, const BuiltPicture::Extent& extent) {
    BringTo(state, extent.flipX, extent.flipY, state.angle);
    if (extent.angle != state.angle) {
        // By the photo's own angle, not by the difference: older shows rely on it.
        RotateQuarter(extent.angle);
    }
}

void CPhotoProcessor::ApplyFiltersUpTo(State& state, std::size_t& next, std::size_t end,
                                       std::int32_t cropStep) {
    for (; next < end && m_chain[next]->crop_step <= cropStep; ++next) {
        COpencvFilterInterface& filter = *m_chain[next];
        BringTo(state, filter.FlipX, filter.FlipY, filter.Angle);
        ApplyToWorking(filter);
    }
}

void CPhotoProcessor::CutRecordedCrop(const CropRecord& record) {
    if (m_built.working == nullptr) {
        return;
    }
    // The record is in pixels of the stage. The preview shows them one to one, except where a
    // turned picture had to be reduced once more to fit; a full-size picture has
    // `m_built.previewFactor` pixels for each of the preview's.
    const double pixelsPerPreview = m_built.scaled ? 1.0 : m_built.previewFactor;
    const Size preview{static_cast<int>(GetWidth() / pixelsPerPreview),
                       static_cast<int>(GetHeight() / pixelsPerPreview)};
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
    m_built.working.reset();
    if (m_node == nullptr) {
        return;
    }
    if (m_built.source == nullptr) {
        Rebuild(m_built.scaled);
        return;
    }
    MakeWorkingFromSource();
    m_built.replayed = RecordedEdits();
    Replay(m_built.replayed);
    m_built.since.clear();
}

}  // namespace vellora
