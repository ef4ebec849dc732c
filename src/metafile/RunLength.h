#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "metafile/RecordView.h"

namespace vellora::metafile {

/// The pixels that a run-length coded bitmap sets, as colour indices; the others stay open.
struct RunLengthPixels {
    struct Run {
        int row;
        int column;
        std::size_t first;
        std::size_t count;
    };
    std::vector<std::uint8_t> indices;
    /// Rows count from the bottom. Runs lie inside the picture.
    std::vector<Run> runs;
};

/// @param halfBytes  two pixels a byte (RLE4) instead of one
RunLengthPixels decodeRunLengthPixels(RecordView data, int width, int height, bool halfBytes);

}  // namespace vellora::metafile
