#include "screenshots/Palette.h"

#include <algorithm>
#include <array>
#include <vector>

namespace vellora::screenshots {
namespace {

constexpr int kColours = 256;
constexpr unsigned kBits = 6;  ///< Of each channel that tell colours apart.
constexpr unsigned kShift = 8 - kBits;

/// Pixels of nearly the same colour.
struct Cell {
    std::array<std::uint64_t, 3> sum{};
    std::uint64_t count = 0;
    unsigned key = 0;

    [[nodiscard]] double mean(std::size_t channel) const {
        return static_cast<double>(sum[channel]) / static_cast<double>(count);
    }
};

using Range = std::pair<std::vector<Cell>::iterator, std::vector<Cell>::iterator>;

unsigned keyOf(QRgb colour) {
    const auto part = [](int value) { return static_cast<unsigned>(value) >> kShift; };
    return (part(qRed(colour)) << (2 * kBits)) | (part(qGreen(colour)) << kBits) |
           part(qBlue(colour));
}

std::vector<Cell> cellsOf(const QImage& picture) {
    std::vector<Cell> all(std::size_t{1} << (3 * kBits));
    for (int y = 0; y < picture.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            Cell& cell = all[keyOf(row[x])];
            cell.key = keyOf(row[x]);
            cell.sum[0] += static_cast<unsigned>(qRed(row[x]));
            cell.sum[1] += static_cast<unsigned>(qGreen(row[x]));
            cell.sum[2] += static_cast<unsigned>(qBlue(row[x]));
            ++cell.count;
        }
    }
    std::erase_if(all, [](const Cell& cell) { return cell.count == 0; });
    return all;
}

/// How far the colours of a range spread, and along which channel.
std::pair<double, std::size_t> spreadOf(const Range& range) {
    std::pair<double, std::size_t> widest{0.0, 0};
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const auto [low, high] = std::minmax_element(
            range.first, range.second,
            [channel](const Cell& a, const Cell& b) { return a.mean(channel) < b.mean(channel); });
        widest = std::max(widest, {high->mean(channel) - low->mean(channel), channel});
    }
    return widest;
}

/// Cuts the range with the widest spread in two until there are enough.
std::vector<Range> cut(std::vector<Cell>& cells) {
    std::vector<Range> ranges{{cells.begin(), cells.end()}};
    while (ranges.size() < kColours) {
        const auto widest = std::ranges::max_element(
            ranges, {}, [](const Range& range) { return spreadOf(range).first; });
        const auto [spread, channel] = spreadOf(*widest);
        if (spread == 0.0) {
            break;
        }
        const auto& [first, last] = *widest;
        const auto middle = first + (last - first) / 2;
        std::nth_element(first, middle, last, [channel = channel](const Cell& a, const Cell& b) {
            return a.mean(channel) < b.mean(channel);
        });
        const Range upper{middle, last};
        widest->second = middle;
        ranges.push_back(upper);
    }
    return ranges;
}

QRgb meanOf(const Range& range) {
    Cell whole;
    for (auto cell = range.first; cell != range.second; ++cell) {
        for (std::size_t channel = 0; channel < 3; ++channel) {
            whole.sum[channel] += cell->sum[channel];
        }
        whole.count += cell->count;
    }
    return qRgb(qRound(whole.mean(0)), qRound(whole.mean(1)), qRound(whole.mean(2)));
}

}  // namespace

QImage withPalette(const QImage& picture) {
    const QImage source = picture.convertToFormat(QImage::Format_RGB32);
    std::vector<Cell> cells = cellsOf(source);
    std::vector<uchar> indices(std::size_t{1} << (3 * kBits));
    QList<QRgb> colours;
    for (const Range& range : cut(cells)) {
        for (auto cell = range.first; cell != range.second; ++cell) {
            indices[cell->key] = static_cast<uchar>(colours.size());
        }
        colours << meanOf(range);
    }
    QImage result(source.size(), QImage::Format_Indexed8);
    result.setColorTable(colours);
    for (int y = 0; y < source.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        std::transform(from, from + source.width(), result.scanLine(y),
                       [&indices](QRgb colour) { return indices[keyOf(colour)]; });
    }
    return result;
}

}  // namespace vellora::screenshots
