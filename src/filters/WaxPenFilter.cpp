#include "filters/WaxPenFilter.h"

#include <cstdint>
#include <vector>

#include "base/AbortFlag.h"
#include "base/Random.h"
#include "filters/BarePixels.h"
#include "filters/ImagePreflight.h"
#include "filters/StrokePlan.h"
#include "filters/StrokeTiles.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {85, 1, 40, label::kStrokeSize},
    {100, 1, 50, label::kPenHardness},
    {},
}};

/// A band along the rising diagonal of a square, `halfLength` wide, from which a soft pen has lost
/// some pixels.
std::vector<BrushOffset> crayon(int halfLength, float hardness) {
    const int halfWidth = halfLength / 2;
    std::vector<BrushOffset> offsets;
    for (int dx = -halfLength; dx < halfLength; ++dx) {
        for (int dy = -halfLength; dy < halfLength; ++dy) {
            if (dx + dy >= -halfWidth && dx + dy < halfWidth) {
                offsets.push_back({dx, dy});
            }
        }
    }
    RandomRun random;
    const auto lost = static_cast<std::int64_t>(static_cast<float>(halfLength) * (1.0F - hardness));
    for (std::int64_t i = 0; i < lost && !offsets.empty(); ++i) {
        offsets.erase(offsets.begin() + random.below(static_cast<int>(offsets.size())));
    }
    return offsets;
}

/// Lays the strokes on the picture, which still shows the photo: a pixel that no stroke paints
/// needs no second look. If the painting was stopped, it is made white.
void paintTile(cv::Mat tile, cv::Point corner, const auto& strokes, const Brush& brush,
               bool stopped) {
    const cv::Vec3b white = cv::Vec3b::all(255);
    const cv::Rect area({}, tile.size());
    BarePixels bare(tile.size());
    for (const Stroke* stroke : strokes) {
        if (stroke->colour == white) {
            continue;
        }
        brush.forEachSpan(stroke->centre - corner, area, [&](int y, int begin, int end) {
            auto* row = tile.ptr<cv::Vec3b>(y);
            bare.takeSpan(y, begin, end, [&](int x) { row[x] = stroke->colour; });
        });
    }
    for (int y = 0; stopped && y < tile.rows; ++y) {
        auto* row = tile.ptr<cv::Vec3b>(y);
        bare.takeSpan(y, 0, tile.cols, [&](int x) { row[x] = white; });
    }
}

void paintWax(cv::Mat& picture, const Brush& brush) {
    StrokePlan plan(picture, brush, StrokePlan::Layers::One);
    const std::vector<Stroke> strokes = plan.next(picture.total());
    StrokeTiles(picture.size(), brush, strokes)
        .forEachTile([&](const StrokeTile& tile, const auto& touching) {
            paintTile(picture(tile.area), tile.area.tl(), touching, brush, plan.stopped());
        });
}

}  // namespace

CWaxPenFilter::CWaxPenFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {40, 20}) {}

bool CWaxPenFilter::Apply(IplImage** image) {
    cv::Mat picture = bgrView(image);
    if (picture.empty()) {
        return false;
    }
    clearAbort();
    seedFromClock();
    const int halfLength = strokeHalfLength(static_cast<std::int64_t>(factor(0)) / 4);
    const float hardness = static_cast<float>(factor(1)) / 100.0F;
    return runsInMemory([&] {
        const Brush brush(crayon(halfLength, hardness));
        if (brush.pixelCount() != 0) {
            paintWax(picture, brush);
        }
    });
}

const char16_t* CWaxPenFilter::GetName() const {
    return u"Wax Paint";
}

}  // namespace vellora
