#include <algorithm>
#include <set>
#include <thread>

#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>

#include <vellora/filters/FilterAbort.h>
#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/RandomSeed.h>

#include "base/Random.h"
#include "support/TestPhotos.h"

namespace vellora {
namespace {

using test::filtered;
using test::gradient;
using test::identical;
using test::noise;

const cv::Vec3b kWhite = cv::Vec3b::all(255);

class PaintFiltersTest : public testing::Test {
protected:
    ~PaintFiltersTest() override { ReleaseRandomSeed(); }
};

/// Noise with areas of pure white, which a bare canvas looks like.
cv::Mat partlyWhite(int width, int height) {
    cv::Mat picture = noise(width, height, 12);
    picture(cv::Rect(0, 0, width / 2, height / 3)).setTo(cv::Scalar::all(255));
    return picture;
}

/// Gives the pixels that are still white the colours of the photo.
void fillBare(cv::Mat& canvas, const cv::Mat& photo) {
    cv::Mat bare;
    cv::inRange(canvas, cv::Scalar::all(255), cv::Scalar::all(255), bare);
    photo.copyTo(canvas, bare);
}

using Offsets = std::vector<std::pair<int, int>>;

Offsets oilBrush(int s) {
    const auto steps = static_cast<std::size_t>(2 * s + 1);
    std::vector<int> hi(steps);
    std::vector<int> lo(steps);
    hi[0] = Rand() * 5 / 32767 + 5;
    lo[0] = Rand() * 5 / 32767 - 10;
    for (std::size_t k = 1; k < steps; ++k) {
        hi[k] = hi[k - 1] + (Rand() * 3 >> 15) - 1;
        lo[k] = lo[k - 1] + (Rand() * 3 >> 15) - 1;
    }
    Offsets brush;
    for (int dx = -s; dx <= s; ++dx) {
        for (int dy = -s; dy <= s; ++dy) {
            if (std::abs(dx + dy) <= s && lo[static_cast<std::size_t>(dx + dy + s)] < dx - dy &&
                dx - dy < hi[static_cast<std::size_t>(dx + dy + s)]) {
                brush.emplace_back(dx, dy);
            }
        }
    }
    return brush;
}

cv::Mat oilPainted(const cv::Mat& photo, int s) {
    cv::Mat canvas(photo.size(), CV_8UC3, cv::Scalar::all(255));
    const Offsets brush = oilBrush(s);
    cv::Mat1i counter(photo.size(), 0);
    int remaining = photo.rows * photo.cols;
    while (!brush.empty() && remaining > 500) {
        const int x = Rand() * photo.cols >> 15;
        const int y = Rand() * photo.rows >> 15;
        const cv::Vec3b colour = photo.at<cv::Vec3b>(y, x);
        int fresh = 0;
        for (const auto& [dx, dy] : brush) {
            const int px = x + dx;
            const int py = y + dy;
            if (px < 0 || px >= photo.cols || py < 0 || py >= photo.rows) {
                continue;
            }
            auto& pixel = canvas.at<cv::Vec3b>(py, px);
            const int n = counter(py, px)++;
            if (pixel == kWhite) {
                pixel = colour;
                ++fresh;
            } else {
                for (int c = 0; c < 3; ++c) {
                    pixel[c] = static_cast<uchar>((pixel[c] * n + colour[c]) / (n + 1));
                }
            }
        }
        remaining -= std::max(fresh, 1);
    }
    fillBare(canvas, photo);
    return canvas;
}

cv::Mat waxPainted(const cv::Mat& photo, int s, float hardness) {
    cv::Mat canvas(photo.size(), CV_8UC3, cv::Scalar::all(255));
    Offsets brush;
    for (int a = -s; a < s; ++a) {
        for (int b = -s; b < s; ++b) {
            if (-(s / 2) <= a + b && a + b < s / 2) {
                brush.emplace_back(a, b);
            }
        }
    }
    const auto removed = static_cast<int>(static_cast<float>(s) * (1 - hardness));
    for (int i = 0; i < removed; ++i) {
        brush.erase(brush.begin() + (Rand() * static_cast<int>(brush.size()) >> 15));
    }
    int remaining = brush.empty() ? 0 : photo.rows * photo.cols;
    while (remaining > 500) {
        const int x = Rand() * photo.cols >> 15;
        const int y = Rand() * photo.rows >> 15;
        int fresh = 0;
        for (const auto& [dx, dy] : brush) {
            const int px = x + dx;
            const int py = y + dy;
            if (px >= 0 && px < photo.cols && py >= 0 && py < photo.rows &&
                canvas.at<cv::Vec3b>(py, px) == kWhite) {
                canvas.at<cv::Vec3b>(py, px) = photo.at<cv::Vec3b>(y, x);
                ++fresh;
            }
        }
        remaining -= std::max(fresh, 1);
    }
    fillBare(canvas, photo);
    return canvas;
}

const cv::Size kSizes[] = {{1, 1}, {20, 20}, {1, 900}, {900, 1}, {61, 47}, {300, 211}, {530, 270}};

TEST_F(PaintFiltersTest, OilPaintFollowsItsFormulas) {
    for (const cv::Size size : kSizes) {
        const cv::Mat photo = partlyWhite(size.width, size.height);
        for (const int strokeSize : {1, 5, 11, 30, 100, 300}) {
            SCOPED_TRACE(testing::Message() << size << ' ' << strokeSize);
            Srand(55);
            const cv::Mat expected = oilPainted(photo, strokeSize / 6);
            const int next = Rand();
            Srand(55);
            EXPECT_TRUE(identical(filtered(u"Oil Paint", photo, {strokeSize}), expected));
            EXPECT_EQ(Rand(), next);
        }
    }
}

// Long strokes, many on a pixel. In one colour every sum is a whole multiple of their number.
TEST_F(PaintFiltersTest, OilPaintCountsManyStrokes) {
    cv::Mat flat(30, 340, CV_8UC3, cv::Scalar(251, 7, 91));
    cv::Mat split = flat.clone();
    split.colRange(0, 90).setTo(cv::Scalar(3, 200, 90));
    for (const unsigned seed : {1U, 2U, 3U, 4U}) {
        Srand(seed);
        const cv::Mat expected = oilPainted(split, 128);
        Srand(seed);
        EXPECT_TRUE(identical(filtered(u"Oil Paint", split, {128 * 6}), expected));
        EXPECT_TRUE(identical(filtered(u"Oil Paint", flat, {128 * 6}), flat));
        EXPECT_TRUE(identical(filtered(u"Oil Paint", flat, {30}), flat));
    }
}

TEST_F(PaintFiltersTest, WaxPaintFollowsItsFormulas) {
    for (const cv::Size size : kSizes) {
        const cv::Mat photo = partlyWhite(size.width, size.height);
        for (const auto& [strokeSize, hardness] :
             {std::array{7, 50}, std::array{8, 100}, std::array{15, 1}, std::array{40, 20},
              std::array{85, 60}, std::array{40, 130}}) {
            SCOPED_TRACE(testing::Message() << size << ' ' << strokeSize << ' ' << hardness);
            Srand(56);
            const cv::Mat expected =
                waxPainted(photo, strokeSize / 4, static_cast<float>(hardness) / 100);
            const int next = Rand();
            FixRandomSeed(56);
            Rand();  // the filter starts the sequence anew
            EXPECT_TRUE(identical(filtered(u"Wax Paint", photo, {strokeSize, hardness}), expected));
            EXPECT_EQ(Rand(), next);
        }
    }
}

TEST_F(PaintFiltersTest, WaxPaintTakesItsColoursFromThePhoto) {
    const cv::Mat photo = gradient(200, 150);
    const auto colours = [](const cv::Mat& picture) {
        std::set<std::array<uchar, 3>> found;
        for (auto it = picture.begin<cv::Vec3b>(); it != picture.end<cv::Vec3b>(); ++it) {
            found.insert({(*it)[0], (*it)[1], (*it)[2]});
        }
        return found;
    };
    const auto before = colours(photo);
    const auto after = colours(filtered(u"Wax Paint", photo, {40, 50}));
    EXPECT_LT(after.size(), before.size() / 3);
    EXPECT_TRUE(std::includes(before.begin(), before.end(), after.begin(), after.end()));
}

TEST_F(PaintFiltersTest, HostileFactorsEnd) {
    constexpr int kMost = 2'147'483'647;
    for (const cv::Size size : {cv::Size(1, 1), cv::Size(300, 200), cv::Size(1, 5000)}) {
        const cv::Mat photo = gradient(size.width, size.height);
        for (const int factor : {kMost, 2'000'000'000, -kMost - 1}) {
            EXPECT_EQ(filtered(u"Oil Paint", photo, {factor}).size(), size);
            EXPECT_EQ(filtered(u"Wax Paint", photo, {factor, 100}).size(), size);
            EXPECT_EQ(filtered(u"Wax Paint", photo, {40, factor}).size(), size);
            EXPECT_EQ(filtered(u"Wax Paint", photo, {factor, -(factor + 1)}).size(), size);
        }
    }
}

// More columns than the generator has steps: every one can be the centre of a flake or a stroke.
TEST_F(PaintFiltersTest, ReachesEveryColumnOfAWidePicture) {
    FixRandomSeed(6);
    const cv::Mat snowed =
        filtered(u"Snow", cv::Mat(2, 70'000, CV_8UC3, cv::Scalar::all(0)), {1000, 0, 0});
    std::set<int> residues;
    for (int x = 0; x < snowed.cols; ++x) {
        if (snowed.at<cv::Vec3b>(0, x) == kWhite || snowed.at<cv::Vec3b>(1, x) == kWhite) {
            residues.insert(x % 7);
        }
    }
    EXPECT_EQ(residues.size(), 7U);
}

/// Applies a filter while another thread asks it to stop, until it was stopped on its way.
/// Returns the unfinished picture.
cv::Mat stopped(const char16_t* name, const cv::Mat& photo) {
    const cv::Mat complete = filtered(name, photo);
    for (int attempt = 0; attempt < 200; ++attempt) {
        std::jthread canceller([](const std::stop_token& done) {
            while (!done.stop_requested()) {
                CancelFilter();
            }
        });
        cv::Mat result = filtered(name, photo);
        if (!identical(result, complete)) {
            return result;
        }
    }
    return {};
}

TEST_F(PaintFiltersTest, StopsWhenAskedTo) {
    FixRandomSeed(7);
    const cv::Mat photo = gradient(1500, 1000) * 0.8 + cv::Scalar::all(20);
    const cv::Mat wax = stopped(u"Wax Paint", photo);
    ASSERT_EQ(wax.size(), photo.size());
    cv::Mat mask;
    cv::inRange(wax, cv::Scalar::all(255), cv::Scalar::all(255), mask);
    EXPECT_GT(cv::countNonZero(mask), 500);
    const cv::Mat dimmed = stopped(u"Depth Dim", photo);
    ASSERT_EQ(dimmed.size(), photo.size());
    cv::inRange(dimmed, cv::Scalar::all(0), cv::Scalar::all(0), mask);
    EXPECT_GT(cv::countNonZero(mask), 1000);
    // A request from before a filter starts does not concern it.
    const cv::Mat small = gradient(40, 30);
    const cv::Mat complete = filtered(u"Depth Dim", small);
    CancelFilter();
    EXPECT_TRUE(identical(filtered(u"Depth Dim", small), complete));
}

}  // namespace
}  // namespace vellora
