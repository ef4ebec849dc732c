#pragma once

/// @file
/// What the filters that paint with many small dabs share: where the dabs lie, in which order they
/// are laid on, and the tiles that are painted independently of each other.

#include <algorithm>
#include <cmath>
#include <cstdint>

#include <opencv2/core.hpp>

#include "filters/Noise.h"

namespace vellora {

/// A layer of dabs, one for each cell of a grid over the picture. The number of cells depends on
/// the shape of the picture alone, so that a picture and its reduction get the same dabs.
struct DabGrid {
    int columns;
    int rows;
    double cellWidth;   ///< In pixels.
    double cellHeight;  ///< In pixels.
    std::uint32_t seed;
};

/// @param pitch  Desired edge of a cell in pixels; raised to a pixel or two in tiny pictures.
DabGrid makeDabGrid(cv::Size picture, double pitch, std::uint32_t seed);

/// The mean colour of each cell.
cv::Mat cellColours(const cv::Mat& picture, const DabGrid& grid);

/// The value of the cell, or of the nearest one for a cell beyond the border.
template <class Value>
const Value& cellValue(const cv::Mat& cells, int column, int row) {
    return cells.at<Value>(std::clamp(row, 0, cells.rows - 1),
                           std::clamp(column, 0, cells.cols - 1));
}

/// Calls `paint` once for each tile, on OpenCV's thread pool; together the tiles cover the picture.
/// Painting that depends on the tile alone gives the same bytes at any thread count.
template <class Paint>
void forEachTile(cv::Size picture, int edge, Paint paint) {
    const int across = (picture.width + edge - 1) / edge;
    const int down = (picture.height + edge - 1) / edge;
    cv::parallel_for_(cv::Range(0, across * down), [&](const cv::Range& range) {
        for (int k = range.start; k < range.end; ++k) {
            const cv::Rect tile((k % across) * edge, (k / across) * edge, edge, edge);
            paint(tile & cv::Rect({0, 0}, picture));
        }
    });
}

/// Calls `visit(column, row)` for each cell whose dab may touch the tile, in an order that looks
/// shuffled and is the same for every tile. Cells one beyond the border are visited too.
///
/// @param reach  How far a dab may stretch from the middle of its cell, in pixels.
template <class Visit>
void forEachDab(const DabGrid& grid, const cv::Rect& tile, double reach, Visit visit) {
    const auto cell = [](double at, double size, int last) {
        return static_cast<int>(std::clamp(std::floor(at / size), -1.0, last + 0.0));
    };
    const double slack = reach + 0.5 * std::max(grid.cellWidth, grid.cellHeight);
    const int left = cell(tile.x - slack, grid.cellWidth, grid.columns);
    const int right = cell(tile.br().x + slack, grid.cellWidth, grid.columns);
    const int top = cell(tile.y - slack, grid.cellHeight, grid.rows);
    const int bottom = cell(tile.br().y + slack, grid.cellHeight, grid.rows);
    constexpr std::uint32_t kPasses = 8;
    for (std::uint32_t pass = 0; pass < kPasses; ++pass) {
        for (int row = top; row <= bottom; ++row) {
            for (int column = left; column <= right; ++column) {
                if (cellHash(column, row, grid.seed) % kPasses == pass) {
                    visit(column, row);
                }
            }
        }
    }
}

}  // namespace vellora
