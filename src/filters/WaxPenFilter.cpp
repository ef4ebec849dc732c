#include "filters/WaxPenFilter.h"

#include <bit>
#include <cstdint>
#include <vector>

#include "base/AbortFlag.h"
#include "base/Random.h"
#include "filters/ImagePreflight.h"
#include "filters/Strokes.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {85, 1, 40, label::kStrokeSize},
    {100, 1, 50, label::kPenHardness},
    {},
}};

const cv::Vec3b kWhite = cv::Vec3b::all(255);

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

/// One bit per pixel that no stroke has coloured yet.
class BarePixels {
public:
    explicit BarePixels(cv::Size size)
        : m_size(size),
          m_rowWords((static_cast<std::size_t>(size.width) + kBits - 1) / kBits),
          m_words(m_rowWords * static_cast<std::size_t>(size.height), ~std::uint64_t{0}) {}

    /// Calls `take(y, x)` for the bare pixels of a span, which thereby are bare no longer.
    template <class Take>
    void takeSpan(int y, int begin, int end, Take take) {
        forEachWord(y, begin, end, [&](std::uint64_t& word, std::uint64_t mask, int x) {
            std::uint64_t bare = word & mask;
            word &= ~mask;
            for (; bare != 0; bare &= bare - 1) {
                take(y, x + std::countr_zero(bare));
            }
        });
    }

    /// The number of bare pixels in a span.
    [[nodiscard]] int countSpan(int y, int begin, int end) {
        int count = 0;
        forEachWord(y, begin, end, [&count](std::uint64_t word, std::uint64_t mask, int /*x*/) {
            count += std::popcount(word & mask);
        });
        return count;
    }

    /// Calls `take(y, x)` for all bare pixels.
    template <class Take>
    void takeAll(Take take) {
        for (int y = 0; y < m_size.height; ++y) {
            takeSpan(y, 0, m_size.width, take);
        }
    }

private:
    static constexpr std::size_t kBits = 64;

    /// Calls `use(word, mask, x)` for the words that hold a span; bit 0 of the word is column x.
    template <class Use>
    void forEachWord(int y, int begin, int end, Use use) {
        std::uint64_t* row = m_words.data() + m_rowWords * static_cast<std::size_t>(y);
        const auto first = static_cast<unsigned>(begin) / kBits;
        const auto last = (static_cast<unsigned>(end) - 1) / kBits;
        std::uint64_t mask = ~std::uint64_t{0} << (static_cast<unsigned>(begin) % kBits);
        const std::uint64_t lastMask =
            ~std::uint64_t{0} >> (kBits - 1 - (static_cast<unsigned>(end) - 1) % kBits);
        for (std::size_t i = first; i <= last; ++i, mask = ~std::uint64_t{0}) {
            use(row[i], i == last ? mask & lastMask : mask, static_cast<int>(i * kBits));
        }
    }

    cv::Size m_size;
    std::size_t m_rowWords;
    std::vector<std::uint64_t> m_words;
};

/// Paints strokes over a picture that still shows the photo: what they leave needs no second look.
class WaxPainter {
public:
    WaxPainter(cv::Mat& picture, const Brush& brush)
        : m_picture(picture), m_photo(picture.clone()), m_brush(brush), m_bare(picture.size()) {}

    void paint() {
        RandomRun random;
        auto remaining = static_cast<std::int64_t>(m_picture.total());
        while (remaining > kUnpaintedLeft) {
            const int x = random.below(m_picture.cols);
            const int y = random.below(m_picture.rows);
            const std::int64_t fresh = paintStroke({x, y});
            if (abortRequested()) {
                m_bare.takeAll([this](int row, int column) { setPixel(row, column, kWhite); });
                return;
            }
            remaining -= std::max<std::int64_t>(fresh, 1);
        }
    }

private:
    /// Returns the number of pixels that had no colour before. White marks a bare pixel, so a white
    /// stroke meets bare pixels and leaves them bare.
    std::int64_t paintStroke(cv::Point centre) {
        const cv::Vec3b colour = m_photo.at<cv::Vec3b>(centre);
        std::int64_t fresh = 0;
        if (colour == kWhite) {
            m_brush.forEachSpan(centre, m_picture.size(), [&](int y, int begin, int end) {
                fresh += m_bare.countSpan(y, begin, end);
            });
            return fresh;
        }
        m_brush.forEachSpan(centre, m_picture.size(), [&](int y, int begin, int end) {
            m_bare.takeSpan(y, begin, end, [&](int row, int column) {
                setPixel(row, column, colour);
                ++fresh;
            });
        });
        return fresh;
    }

    void setPixel(int y, int x, const cv::Vec3b& colour) {
        m_picture.ptr<cv::Vec3b>(y)[x] = colour;
    }

    cv::Mat& m_picture;
    cv::Mat m_photo;
    const Brush& m_brush;
    BarePixels m_bare;
};

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
    const Brush brush(crayon(halfLength, hardness));
    return brush.pixelCount() == 0 || runsInMemory([&] { WaxPainter(picture, brush).paint(); });
}

const char16_t* CWaxPenFilter::GetName() const {
    return u"Wax Paint";
}

}  // namespace vellora
