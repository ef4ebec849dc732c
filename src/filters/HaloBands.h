#pragma once

#include <vector>

#include <opencv2/core.hpp>

namespace vellora {

/// A picture that is overwritten in place, in bands of rows and in any order, while every band
/// still needs the old rows above and below it: those are kept aside beforehand.
class HaloBands {
public:
    /// Rows `first` up to but not including `last`, and the old rows next to them.
    struct Band {
        int first;
        int last;
        cv::Mat above;
        cv::Mat below;
    };

    /// @param above,below  How many rows a band needs around it, where the picture has them.
    /// @param count        Number of bands, limited to the number of rows.
    HaloBands(cv::Mat& picture, int above, int below, int count);

    /// Calls `work(bands)` on OpenCV's thread pool, each time with some bands in a row, of type
    /// `const std::vector<const Band*>&`: what it allocates can serve all of them.
    template <class Work>
    void forEachGroup(Work work) const {
        const int count = static_cast<int>(m_bands.size());
        cv::parallel_for_(
            cv::Range(0, count),
            [&](const cv::Range& range) {
                std::vector<const Band*> group;
                for (int i = range.start; i < range.end; ++i) {
                    group.push_back(&m_bands[static_cast<std::size_t>(i)]);
                }
                work(group);
            },
            cv::getNumThreads());
    }

    /// Old row y of the picture, as long as the band that asks has not overwritten it itself.
    [[nodiscard]] const uchar* row(const Band& band, int y) const {
        if (y < band.first) {
            return band.above.ptr(y - band.first + band.above.rows);
        }
        return y < band.last ? m_picture.ptr(y) : band.below.ptr(y - band.last);
    }

    /// Copies a band and the rows around it.
    void copyOut(const Band& band, cv::Mat& rows) const;

private:
    cv::Mat m_picture;
    std::vector<Band> m_bands;
};

}  // namespace vellora
