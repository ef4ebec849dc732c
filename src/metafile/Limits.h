#pragma once

#include <cstddef>
#include <cstdint>

namespace vellora::metafile {

/// What a file from a stranger may ask for. Real clips stay far below every figure.
inline constexpr std::int64_t kMaxFileBytes = 128LL << 20;
inline constexpr std::int64_t kMaxRecords = 4'000'000;
inline constexpr std::size_t kMaxSaves = 64;
/// Pixels of one bitmap, and of all bitmaps of one file together.
inline constexpr std::int64_t kMaxBitmapPixels = 64LL << 20;
/// Mapped coordinates are held inside this many device units.
inline constexpr double kMaxCoordinate = 1.0e8;
/// Dashes of one stroke, and lines of one hatched area; above, both are drawn solid.
inline constexpr double kMaxDashes = 4'000;
inline constexpr double kMaxHatchLines = 4'000;
/// Clip shapes that are intersected exactly; of further ones the boxes are taken.
inline constexpr std::size_t kMaxClipDepth = 16;
inline constexpr double kMaxMiter = 20;
inline constexpr std::size_t kMaxTextLength = 4'096;

/// Work that one picture may cost: about one unit per path point, and what its lines and areas
/// cost beside that. A fill of the whole frame costs `kFrameFillWork`.
inline constexpr double kMaxWork = 6.0e6;
inline constexpr double kFrameFillWork = 2'048;
inline constexpr double kItemWork = 12;
/// For each point of a line, beside those of its outline.
inline constexpr double kStrokeWork = 4;
/// Crossings of edges that cost as much as one unit, on a picture of `kWorkSide` pixels.
inline constexpr double kEdgeSteps = 128;
inline constexpr double kWorkSide = 1'000;
inline constexpr double kGlyphWork = 40;
inline constexpr double kFontWork = 4'096;

/// Counts work down to nothing; what is left never comes back.
class WorkBudget {
public:
    /// False once the budget is used up.
    bool spend(double work) {
        m_left -= work;
        return !isExhausted();
    }
    bool isExhausted() const { return !(m_left >= 0); }
    double spent() const { return kMaxWork - m_left; }

private:
    double m_left = kMaxWork;
};

/// Counts the pixels of all bitmaps of a file.
class BitmapBudget {
public:
    bool spend(std::int64_t pixels) {
        if (pixels > m_left)
            return false;
        m_left -= pixels;
        return true;
    }

private:
    std::int64_t m_left = kMaxBitmapPixels;
};

}  // namespace vellora::metafile
