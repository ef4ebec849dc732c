#include "filters/Geometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

#include <opencv2/core/core_c.h>
#include <opencv2/imgproc.hpp>
#include <opencv2/imgproc/imgproc_c.h>

#include "base/ImageView.h"

namespace vellora {
namespace {

struct Turn {
    float a;
    float b;
    bool swapsSides;
};

const Turn* turnFor(int degrees) {
    static constexpr Turn kQuarter{0.0F, 1.0F, true};
    static constexpr Turn kHalf{-1.0F, 0.0F, false};
    static constexpr Turn kThreeQuarters{0.0F, -1.0F, true};
    switch (degrees) {
        case 90:
            return &kQuarter;
        case 180:
            return &kHalf;
        case 270:
            return &kThreeQuarters;
        default:
            return nullptr;
    }
}

void mirror(IplImage& image, int code) {
    cv::Mat pixels = cv::cvarrToMat(&image);
    cv::flip(pixels, pixels, code);
}

/// What `cvGetQuadrangleSubPix` computes for a quarter turn, for pictures beyond its limit: every
/// sample lies in the middle between four pixels, those beyond the edge repeat it.
void turnBetweenPixels(const cv::Mat& from, cv::Mat& to, const Turn& turn) {
    // Everything counts in half pixels, so that it stays whole.
    const auto a = static_cast<int>(turn.a);
    const auto b = static_cast<int>(turn.b);
    for (int y = 0; y < to.rows; ++y) {
        auto* row = to.ptr<cv::Vec3b>(y);
        const int dy = 2 * y - (to.rows - 1);
        for (int x = 0; x < to.cols; ++x) {
            const int dx = 2 * x - (to.cols - 1);
            const int left = (a * dx + b * dy + from.cols - 1) / 2;
            const int top = (a * dy - b * dx + from.rows - 1) / 2;
            const int right = std::min(left + 1, from.cols - 1);
            const int bottom = std::min(top + 1, from.rows - 1);
            const auto* upper = from.ptr<cv::Vec3b>(top);
            const auto* lower = from.ptr<cv::Vec3b>(bottom);
            for (int channel = 0; channel < 3; ++channel) {
                const int sum = upper[left][channel] + upper[right][channel] +
                                lower[left][channel] + lower[right][channel];
                row[x][channel] = static_cast<uchar>((sum + 2) / 4);
            }
        }
    }
}

/// A run of source pixels and the run of the target that they fill.
struct Stretch {
    int from = 0;
    int to = 0;
    int targetFrom = 0;
    int targetTo = 0;
};

/// The pixels that show between two places of a target. When they are enlarged, interpolation
/// looks at one more on each side.
Stretch visibleStretch(int pixels, int target, int visibleFrom, int visibleTo) {
    const double scale = static_cast<double>(target) / pixels;
    const int margin = scale > 1.0 ? 1 : 0;
    const int from = std::max(static_cast<int>(std::floor(visibleFrom / scale)) - margin, 0);
    const int to = std::min(static_cast<int>(std::ceil(visibleTo / scale)) + margin, pixels);
    return {from, to, static_cast<int>(std::lround(from * scale)),
            static_cast<int>(std::lround(to * scale))};
}

std::int64_t areaOf(const Rect& rect) {
    return static_cast<std::int64_t>(rect.width()) * rect.height();
}

}  // namespace

ImagePtr rotatedQuarter(const IplImage& image, int degrees) {
    const Turn* turn = turnFor(degrees);
    if (turn == nullptr) {
        return nullptr;
    }
    ImagePtr rotated = turn->swapsSides ? makeImage(image.height, image.width)
                                        : makeImage(image.width, image.height);
    if (rotated == nullptr) {
        return nullptr;
    }
    if (std::max(image.width, image.height) >= std::numeric_limits<short>::max()) {
        cv::Mat target = cv::cvarrToMat(rotated.get());
        turnBetweenPixels(cv::cvarrToMat(&image), target, *turn);
        return rotated;
    }
    std::array<float, 6> matrix{turn->a,  turn->b, static_cast<float>(image.width) * 0.5F,
                                -turn->b, turn->a, static_cast<float>(image.height) * 0.5F};
    const CvMat map = cvMat(2, 3, CV_32F, matrix.data());
    cvGetQuadrangleSubPix(&image, rotated.get(), &map);
    return rotated;
}

void mirrorLeftRight(IplImage& image) {
    mirror(image, 1);
}

void mirrorUpsideDown(IplImage& image) {
    mirror(image, 0);
}

ImagePtr resizedByArea(const cv::Mat& image, Size size) {
    ImagePtr resized = makeImage(size.width, size.height);
    if (resized != nullptr) {
        cv::Mat target = cv::cvarrToMat(resized.get());
        cv::resize(image, target, target.size(), 0, 0, cv::INTER_AREA);
    }
    return resized;
}

PlacedImage resizedInto(const cv::Mat& image, const Rect& place, const Rect& visible) {
    const Rect shown{std::max(place.left, visible.left), std::max(place.top, visible.top),
                     std::min(place.right, visible.right), std::min(place.bottom, visible.bottom)};
    if (image.empty() || shown.isEmpty()) {
        return {};
    }
    if (areaOf(shown) >= areaOf(place) / 4) {
        return {resizedByArea(image, {place.width(), place.height()}), place.left, place.top};
    }
    const Stretch across = visibleStretch(image.cols, place.width(), shown.left - place.left,
                                          shown.right - place.left);
    const Stretch down =
        visibleStretch(image.rows, place.height(), shown.top - place.top, shown.bottom - place.top);
    const cv::Mat part = image(cv::Range(down.from, down.to), cv::Range(across.from, across.to));
    return {
        resizedByArea(part, {across.targetTo - across.targetFrom, down.targetTo - down.targetFrom}),
        place.left + across.targetFrom, place.top + down.targetFrom};
}

ImagePtr cutOut(const IplImage& image, const Rect& pixels) {
    const int left = std::max(pixels.left, 0);
    const int top = std::max(pixels.top, 0);
    const int right = std::min(pixels.right, image.width);
    const int bottom = std::min(pixels.bottom, image.height);
    if (left >= right || top >= bottom) {
        return nullptr;
    }
    return copyImage(cv::cvarrToMat(&image)(cv::Rect(left, top, right - left, bottom - top)));
}

Size boxFit(Size picture, Size box) {
    const std::int64_t width = picture.width;
    const std::int64_t height = picture.height;
    const std::int64_t fittedHeight = height * box.width / width;
    if (fittedHeight > box.height) {
        return {static_cast<int>(width * box.height / height), box.height};
    }
    return {box.width, static_cast<int>(fittedHeight)};
}

int scaledEdge(int edge, double factor) {
    // The sum of two such edges is still an int.
    constexpr double kLimit = (1 << 30) - 1;
    return static_cast<int>(std::clamp(edge * factor, -kLimit, kLimit));
}

}  // namespace vellora
