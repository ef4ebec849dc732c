#include <chrono>
#include <cmath>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <opencv2/core/core_c.h>
#include <opencv2/imgproc.hpp>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/RandomSeed.h>

#include "base/ImageView.h"
#include "base/Random.h"

namespace vellora {
namespace {

// Names are "Filter/<name>/<megapixels>" and "Limit/<work>/<megapixels>", on one thread, and
// "Threads/<name>/<megapixels>/<threads>". The counter "s/MP" is the processor time per megapixel,
// "elapsed" the time that passed. scripts/filter-ratios.sh sets one against the other.

using Work = std::function<void(cv::Mat&)>;

/// A picture with soft colours, hard edges and some grain.
cv::Mat photo(int megapixels) {
    const int height = static_cast<int>(std::lround(std::sqrt(megapixels * 1e6 * 3 / 4)));
    const int width = static_cast<int>(std::lround(megapixels * 1e6 / height));
    cv::Mat small(36, 48, CV_8UC3);
    cv::RNG random(11);
    random.fill(small, cv::RNG::UNIFORM, 0, 256);
    cv::Mat picture;
    cv::resize(small, picture, {width, height}, 0, 0, cv::INTER_CUBIC);
    for (int i = 0; i < 60; ++i) {
        cv::circle(picture, {random.uniform(0, width), random.uniform(0, height)},
                   random.uniform(height / 60, height / 12),
                   cv::Scalar::all(random.uniform(0, 256)), cv::FILLED, cv::LINE_AA);
    }
    cv::Mat grain(picture.size(), picture.type());
    random.fill(grain, cv::RNG::UNIFORM, 0, 12);
    cv::add(picture, grain, picture);
    return picture;
}

/// Leaves nothing of a picture in the caches, which a small one would fit and a large one not.
void emptyCaches() {
    static std::vector<char> other(std::size_t{64} << 20U);
    for (std::size_t i = 0; i < other.size(); i += 64) {
        ++other[i];
    }
    benchmark::ClobberMemory();
}

double secondsNow() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

void measure(benchmark::State& state, const Work& work, int threads) {
    const auto megapixels = static_cast<int>(state.range(0));
    const cv::Mat original = photo(megapixels);
    const ImagePtr image = copyImage(original);  // in the memory that the module gives pictures
    cv::Mat picture = cv::cvarrToMat(image.get());
    const int threadsBefore = cv::getNumThreads();
    cv::setNumThreads(threads);
    FixRandomSeed(1);
    work(picture);  // images that a limit works into are there from now on
    double seconds = 0;
    double elapsed = 0;
    for (auto _ : state) {
        original.copyTo(picture);
        emptyCaches();
        const double begin = secondsNow();
        const std::clock_t start = std::clock();
        work(picture);
        const double passed = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        elapsed += secondsNow() - begin;
        state.SetIterationTime(passed);
        seconds += passed;
    }
    ReleaseRandomSeed();
    cv::setNumThreads(threadsBefore);
    const double pixels =
        static_cast<double>(picture.total()) / 1e6 * static_cast<double>(state.iterations());
    state.counters["elapsed"] = elapsed / pixels;
    state.counters["s/MP"] = seconds / pixels;
}

void add(const std::string& name, const Work& work) {
    benchmark::RegisterBenchmark(name.c_str(),
                                 [work](benchmark::State& state) { measure(state, work, 1); })
        ->Arg(2)
        ->Arg(4)
        ->Arg(12)
        ->Arg(24)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

void addThreads(const std::string& name, const Work& work) {
    const auto run = [work](benchmark::State& state) {
        measure(state, work, static_cast<int>(state.range(1)));
    };
    benchmark::RegisterBenchmark(name.c_str(), run)
        ->Args({12, 1})
        ->Args({12, 2})
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

void addFilter(const std::string& label, const std::u16string& name,
               const std::vector<std::int32_t>& factors) {
    const auto apply = [name, factors](cv::Mat& picture) {
        const std::unique_ptr<COpencvFilterInterface> filter(CreateFilterByName(name.c_str()));
        std::int32_t* const targets[] = {filter->GetFactorOne(), filter->GetFactorTwo(),
                                         filter->GetFactorThree()};
        for (std::size_t i = 0; i < factors.size(); ++i) {
            *targets[i] = factors[i];
        }
        IplImage header = cvIplImage(picture);
        IplImage* image = &header;
        filter->Apply(&image);
    };
    add("Filter/" + label, apply);
    addThreads("Threads/" + label, apply);
}

void addFilters() {
    addFilter("Color Matrix", u"Color Matrix", {64, 32, 0});
    addFilter("Grey", u"Grey", {});
    addFilter("Brightness Contrast", u"Brightness Contrast", {20, 30});
    addFilter("HSL", u"HSL", {20, 30, 10});
    addFilter("Inverse", u"Inverse", {});
    addFilter("Black&White", u"Black&White", {});
    addFilter("Rotate", u"Rotate", {547});
    addFilter("Carve", u"Carve", {64, 1});
    addFilter("Embossment", u"Embossment", {64, 1});
    addFilter("Sharpen", u"Sharpen", {50});
    addFilter("Wood", u"Wood", {});
    addFilter("Gauss Smooth", u"Gauss Smooth", {5});
    addFilter("Canvas", u"Canvas", {5});
    addFilter("Contour", u"Contour", {30, 10, 400});
    addFilter("Depth Dim", u"Depth Dim", {});
    addFilter("Snow", u"Snow", {300, 150, 600});
    addFilter("Rain", u"Rain", {15, 30, 5000});
    addFilter("Wax Paint", u"Wax Paint", {40, 50});
    addFilter("Oil Paint", u"Oil Paint", {30});
    addFilter("Oil Paint 100", u"Oil Paint", {100});
    addFilter("Oil Paint 1", u"Oil Paint", {1});
    addFilter("Wave", u"Wave", {730, 65, 70});
    addFilter("Mist", u"Mist", {70});
    addFilter("Water Paint", u"Water Paint", {65});
    addFilter("Hard Pastels", u"Hard Pastels", {25, 30, 15});
    addFilter("Hard Pastels 80", u"Hard Pastels", {80, 30, 15});
    addFilter("Hard Pastels 1", u"Hard Pastels", {1, 30, 15});
    addFilter("Dot Paint", u"Dot Paint", {});
}

/// Work into an image that is already there, as the filters find theirs.
void addLimit(const std::string& name, const std::function<void(cv::Mat&, cv::Mat&)>& work) {
    add("Limit/" + name,
        [work, target = std::make_shared<cv::Mat>()](cv::Mat& picture) { work(picture, *target); });
}

void contourCalls(cv::Mat& picture) {
    cv::Mat hsv;
    cv::cvtColor(picture, hsv, cv::COLOR_BGR2HSV);
    cv::LUT(hsv, cv::Mat(1, 256, CV_8U, cv::Scalar(1)), hsv);
    cv::cvtColor(hsv, hsv, cv::COLOR_HSV2BGR);
    cv::Mat sum;
    cv::cvtColor(picture, sum, cv::COLOR_BGR2GRAY);
    sum.convertTo(sum, CV_32F);
    const cv::Mat kernel = cv::getGaussianKernel(11, 2, CV_32F);
    cv::Mat gradient;
    cv::sepFilter2D(sum, gradient, CV_32F, kernel, kernel);
    cv::sepFilter2D(sum, gradient, CV_32F, kernel, kernel);
    cv::Mat map;
    gradient.convertTo(map, CV_8U);
    cv::bitwise_not(map, map);
    cv::filter2D(map, map, CV_8U, cv::Mat(3, 3, CV_32F, cv::Scalar(0.2)));
    cv::bitwise_not(map, map);
    cv::Mat share;
    cv::merge(std::vector<cv::Mat>(3, map), share);
    cv::multiply(picture, share, picture, 1.0 / 255);
    cv::bitwise_not(share, share);
    cv::multiply(hsv, share, hsv, 1.0 / 255);
    cv::add(hsv, picture, picture);
}

void addLimits() {
    addLimit("copy", [](cv::Mat& from, cv::Mat& to) { from.copyTo(to); });
    addLimit("copy and bitwise_not", [](cv::Mat& from, cv::Mat& to) {
        from.copyTo(to);
        cv::bitwise_not(to, from);
    });
    addLimit("grey and merge", [](cv::Mat& from, cv::Mat& to) {
        cv::cvtColor(from, to, cv::COLOR_RGB2GRAY);
        cv::merge(std::vector<cv::Mat>(3, to), from);
    });
    addLimit("LUT", [](cv::Mat& from, cv::Mat& to) {
        cv::LUT(from, cv::Mat(1, 256, CV_8U, cv::Scalar(1)), to);
    });
    addLimit("HLS and back; LUT", [](cv::Mat& from, cv::Mat& to) {
        cv::cvtColor(from, to, cv::COLOR_BGR2HLS);
        cv::LUT(to, cv::Mat(1, 256, CV_8UC3, cv::Scalar(1, 2, 3)), to);
        cv::cvtColor(to, from, cv::COLOR_HLS2BGR);
    });
    addLimit("GaussianBlur", [](cv::Mat& from, cv::Mat&) {
        cv::GaussianBlur(from, from, {11, 11}, 0, 0, cv::BORDER_REPLICATE);
    });
    addLimit("integral and copy", [](cv::Mat& from, cv::Mat& to) {
        static cv::Mat sums;
        cv::integral(from, sums, CV_32S);
        from.copyTo(to);
    });
    addLimit("two random numbers a pixel", [](cv::Mat& from, cv::Mat&) {
        int sum = 0;
        for (std::size_t i = 0; i < 2 * from.total(); ++i) {
            sum += Rand();
        }
        benchmark::DoNotOptimize(sum);
    });
    addLimit("warpAffine", [](cv::Mat& from, cv::Mat& to) {
        const cv::Point2f centre(static_cast<float>(from.cols) / 2,
                                 static_cast<float>(from.rows) / 2);
        cv::warpAffine(from, to, cv::getRotationMatrix2D(centre, 17, 1), from.size());
    });
    add("Limit/Contour calls", contourCalls);
}

const bool g_added = [] {
    addFilters();
    addLimits();
    return true;
}();

}  // namespace
}  // namespace vellora
