#include "screenshots/Palette.h"

#include <QHash>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace vellora::screenshots {
namespace {

constexpr int kColours = 256;

/// A colour of the picture and how many pixels have it.
struct Shade {
    std::array<double, 3> channel{};
    double count = 0;
    QRgb colour = 0;
};

using Place = std::vector<Shade>::iterator;

/// Shades that will share a colour.
struct Box {
    Place first;
    Place last;
    std::array<double, 3> mean{};
    double error = 0;  ///< Squared distance to the mean along the widest channel, over all pixels.
    std::size_t widest = 0;
};

Box boxOf(Place first, Place last) {
    Box box{first, last};
    double pixels = 0;
    for (Place shade = first; shade != last; ++shade) {
        pixels += shade->count;
        for (std::size_t channel = 0; channel < 3; ++channel) {
            box.mean[channel] += shade->count * shade->channel[channel];
        }
    }
    for (std::size_t channel = 0; channel < 3; ++channel) {
        box.mean[channel] /= pixels;
        double error = 0;
        for (Place shade = first; shade != last; ++shade) {
            error += shade->count * std::pow(shade->channel[channel] - box.mean[channel], 2);
        }
        if (error > box.error) {
            box.error = error;
            box.widest = channel;
        }
    }
    return box;
}

std::vector<Shade> shadesOf(const QImage& picture) {
    QHash<QRgb, double> counts;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            counts[row[x]] += 1;
        }
    }
    std::vector<Shade> shades;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        const QRgb colour = entry.key();
        shades.push_back({{static_cast<double>(qRed(colour)), static_cast<double>(qGreen(colour)),
                           static_cast<double>(qBlue(colour))},
                          entry.value(),
                          colour});
    }
    // The hash has no order of its own; the same picture shall give the same file.
    std::ranges::sort(shades, {}, &Shade::colour);
    return shades;
}

/// Cuts the box with the largest error at its mean until there are enough.
std::vector<Box> cut(std::vector<Shade>& shades) {
    std::vector<Box> boxes{boxOf(shades.begin(), shades.end())};
    while (boxes.size() < kColours) {
        const auto worst = std::ranges::max_element(boxes, {}, &Box::error);
        if (worst->error == 0) {
            break;
        }
        const Box box = *worst;
        const Place middle = std::partition(box.first, box.last, [&box](const Shade& shade) {
            return shade.channel[box.widest] < box.mean[box.widest];
        });
        *worst = boxOf(box.first, middle);
        boxes.push_back(boxOf(middle, box.last));
    }
    return boxes;
}

}  // namespace

QImage withPalette(const QImage& picture) {
    const QImage source = picture.convertToFormat(QImage::Format_RGB32);
    std::vector<Shade> shades = shadesOf(source);
    QHash<QRgb, uchar> indices;
    QList<QRgb> colours;
    for (const Box& box : cut(shades)) {
        for (Place shade = box.first; shade != box.last; ++shade) {
            indices[shade->colour] = static_cast<uchar>(colours.size());
        }
        colours << qRgb(qRound(box.mean[0]), qRound(box.mean[1]), qRound(box.mean[2]));
    }
    QImage result(source.size(), QImage::Format_Indexed8);
    result.setColorTable(colours);
    for (int y = 0; y < source.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        std::transform(from, from + source.width(), result.scanLine(y),
                       [&indices](QRgb colour) { return indices.value(colour); });
    }
    return result;
}

}  // namespace vellora::screenshots
