#include "base/StageFit.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vellora {
namespace {

bool isEmpty(Size size) {
    return size.width <= 0 || size.height <= 0;
}

bool liesInside(Size photo, Size canvas) {
    return photo.width < canvas.width && photo.height < canvas.height;
}

/// The factor is held in single precision; the quotients are not rounded again.
Size reduced(Size photo, float factor) {
    const double wide = factor;
    return {static_cast<int>(photo.width / wide), static_cast<int>(photo.height / wide)};
}

/// The size of a photo scaled onto the canvas.
Size scaledSize(Size photo, Size canvas, int fitMode) {
    const double photoAspect = static_cast<double>(photo.width) / photo.height;
    const double canvasAspect = static_cast<double>(canvas.width) / canvas.height;
    if (photoAspect == canvasAspect) {
        return canvas;
    }
    const bool fullHeight = (photoAspect < canvasAspect) == (fitMode == kFitInside);
    // A sliver of a photo may come out wider than any image can be: bounded before truncation.
    constexpr double kLargest = 1 << 24;
    const auto truncated = [](double length) {
        return static_cast<int>(length < kLargest ? length : kLargest);
    };
    return fullHeight ? Size{truncated(photoAspect * canvas.height), canvas.height}
                      : Size{canvas.width, truncated(canvas.width / photoAspect)};
}

}  // namespace

Rect placedRect(Size photo, Size canvas, int fitMode) {
    if (isEmpty(photo) || isEmpty(canvas)) {
        return {};
    }
    if (liesInside(photo, canvas)) {
        const int marginX = (canvas.width - photo.width) / 2;
        const int marginY = (canvas.height - photo.height) / 2;
        return {marginX, marginY, canvas.width - marginX, canvas.height - marginY};
    }
    const Size scaled = scaledSize(photo, canvas, fitMode);
    const int left = (canvas.width - scaled.width) / 2;
    const int top = (canvas.height - scaled.height) / 2;
    return {left, top, left + scaled.width, top + scaled.height};
}

Size fittedSize(Size photo, Size canvas) {
    if (isEmpty(photo) || isEmpty(canvas)) {
        return {};
    }
    return liesInside(photo, canvas) ? photo : scaledSize(photo, canvas, kFitInside);
}

float previewFactor(Size photo) {
    if (isEmpty(photo) || (photo.width < kStageWidth && photo.height < kStageHeight)) {
        return 1.0F;
    }
    const std::int64_t width = photo.width;
    const std::int64_t height = photo.height;
    std::int64_t reducedWidth = kStageWidth;
    if (height * kStageWidth / width > kStageHeight) {
        reducedWidth = width * kStageHeight / height;
    }
    const float factor = static_cast<float>(width) / static_cast<float>(reducedWidth);
    return isEmpty(reduced(photo, factor)) ? 1.0F : factor;
}

Size previewSize(Size photo) {
    return reduced(photo, previewFactor(photo));
}

Size outputCanvas(Size picture) {
    if (isEmpty(picture)) {
        return {};
    }
    const Size fitted = fittedSize(picture, {kStageWidth, kStageHeight});
    const auto quotient = [](int whole, int part) {
        return static_cast<float>(whole) / static_cast<float>(std::max(part, 1));
    };
    const double scale =
        std::max(quotient(picture.width, fitted.width), quotient(picture.height, fitted.height));
    // A sliver of a photo would ask for a canvas beyond any coordinate.
    const auto rounded = [](double length) {
        return static_cast<int>(std::lround(std::min(length, double{1 << 24})));
    };
    return {rounded(scale * kStageWidth), rounded(scale * kStageHeight)};
}

}  // namespace vellora
