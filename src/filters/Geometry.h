#pragma once

#include <opencv2/core.hpp>

#include <vellora/base/ImagePtr.h>
#include <vellora/base/Rect.h>

#include "base/StageFit.h"

namespace vellora {

/// The picture turned clockwise by 90, 180 or 270 degrees, resampled about the point
/// (width / 2, height / 2) as `cvGetQuadrangleSubPix` does; null for any other angle or when the
/// new image cannot be made.
ImagePtr rotatedQuarter(const IplImage& image, int degrees);

/// Mirrors in place: left to right, or upside down.
void mirrorLeftRight(IplImage& image);
void mirrorUpsideDown(IplImage& image);

/// The picture resized with area interpolation; null when the new image cannot be made.
ImagePtr resizedByArea(const cv::Mat& image, Size size);

/// A picture and the place of its top-left corner.
struct PlacedImage {
    ImagePtr image;  ///< Null when there is nothing to show, or it cannot be made.
    int left = 0;
    int top = 0;
};

/// The picture resized with area interpolation to fill `place`. When less than a quarter of that is
/// visible, as of a panorama that fills a canvas, only what shows is made; its edges may then lie
/// up to half a pixel beside those of the whole.
PlacedImage resizedInto(const cv::Mat& image, const Rect& place, const Rect& visible);

/// The part of the picture inside a rectangle, which is cut at the picture's edges first; null
/// when nothing is left.
ImagePtr cutOut(const IplImage& image, const Rect& pixels);

/// The size that fits a picture into a box, keeping its aspect ratio, in integer arithmetic.
Size boxFit(Size picture, Size box);

/// An edge scaled by a factor and truncated, bounded to what an image coordinate can be.
int scaledEdge(int edge, double factor);

}  // namespace vellora
