#pragma once

#include <QRectF>
#include <QSizeF>
#include <algorithm>
#include <cstdint>
#include <map>

#include "metafile/Dib.h"
#include "metafile/DisplayList.h"
#include "metafile/Limits.h"

namespace vellora::metafile {

/// How often a file holds which record.
struct RecordTally {
    std::map<std::uint32_t, std::int64_t> byType;
    std::int64_t total = 0;
    /// Records that are shorter than their kind needs.
    std::int64_t tooShort = 0;
    std::int64_t gdiPlus = 0;
};

/// What reading a file makes.
struct PictureData {
    WorkBudget work;
    BitmapBudget bitmaps;
    DisplayList list{work};
    RecordTally tally;
    /// The part of the device that the picture takes; empty when the file does not say.
    QRectF frame;
    /// At 96 dots an inch.
    QSizeF naturalSize;
    /// False for a file with more records than any may have.
    bool complete = true;
};

/// Counts the record; false when there are too many, or the work is used up.
inline bool countRecord(PictureData& data, std::uint32_t type) {
    ++data.tally.byType[type];
    data.complete = ++data.tally.total <= kMaxRecords;
    return data.complete && !data.work.isExhausted();
}

/// Outlines that stay within a quarter of a pixel of their curves in the largest pictures.
inline void setTolerance(PictureData& data) {
    constexpr double largestPicture = 6'000;
    const double longest = std::max(data.frame.width(), data.frame.height());
    if (longest > 0)
        data.list.setTolerance(0.25 * longest / largestPicture);
}

}  // namespace vellora::metafile
