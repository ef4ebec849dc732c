// A whole render of a 12-megapixel JPEG beside the sum of the parts that cannot be avoided: decode,
// the OpenCV calls that the two filters come down to, encode. One thread.

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <opencv2/core/core_c.h>
#include <opencv2/imgproc.hpp>

#include <vellora/base/HostText.h>
#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/ImageObj.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>

#include "base/JpegEncoder.h"
#include "base/PhotoDecoder.h"

namespace vellora {
namespace {

constexpr int kQuality = 90;
constexpr char kClip[] =
    "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 100 100'>"
    "<circle cx='50' cy='50' r='45' fill='#f2b632' fill-opacity='0.8'/></svg>";

/// Soft shapes with a little grain: like a photo for the codec.
cv::Mat paintedPhoto(cv::Size size) {
    cv::Mat grain(size, CV_8UC3);
    cv::RNG(1).fill(grain, cv::RNG::UNIFORM, 0, 256);
    cv::Mat coarse;
    cv::resize(grain(cv::Rect(0, 0, 48, 36)), coarse, size, 0, 0, cv::INTER_CUBIC);
    cv::addWeighted(coarse, 0.95, grain, 0.05, 0, coarse);
    return coarse;
}

/// The files that a render reads.
class Material {
public:
    Material() {
        writeJpeg(photo(), paintedPhoto({4000, 3000}), 95);
        QFile file(clip());
        file.open(QIODevice::WriteOnly);
        file.write(kClip);
    }

    [[nodiscard]] QString photo() const { return m_folder.filePath("photo.jpg"); }
    [[nodiscard]] QString clip() const { return m_folder.filePath("clip.svg"); }
    [[nodiscard]] QString result() const { return m_folder.filePath("result.jpg"); }

private:
    QTemporaryDir m_folder;
};

const Material& material() {
    static const Material files;
    return files;
}

void countPixels(benchmark::State& state) {
    state.counters["s/MP"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * 12.0,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void addEdits(CDVDImage& image) {
    auto* contrast = CreateFilterByName(u"Brightness Contrast");
    *contrast->GetFactorOne() = 20;
    auto* colour = CreateFilterByName(u"HSL");
    *colour->GetFactorTwo() = 30;
    image.GetProcessor()->AddFilterToChain(contrast);
    image.GetProcessor()->AddFilterToChain(colour);
    auto* clip = new CDVDImageProps(&image, material().clip());
    clip->SetPosition(450, 50);
    clip->SetSize(100, 100);
    image.AddSprite(clip, false);
}

void renderPhoto(bool edited) {
    _PHOTO_LIST_NODE photo{};
    setHostText(photo.path, material().photo());
    CImageObj show;
    _HNODE* node = nullptr;
    show.AddPhotoListNode(&photo, &node);
    if (edited) {
        addEdits(*node->data->image);
    }
    show.SaveNodeToFile(material().result(), 0, 0, 0, kQuality, 0, 100, 0);
    ReleaseNode(node);
}

void wholeRender(benchmark::State& state) {
    cv::setNumThreads(1);
    material();
    for ([[maybe_unused]] auto step : state) {
        renderPhoto(state.range(0) != 0);
    }
    countPixels(state);
}
BENCHMARK(wholeRender)->ArgName("edited")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// What the two filters come down to.
void callOpenCv(cv::Mat& pixels) {
    cv::Mat table(1, 256, CV_8U);
    for (int value = 0; value < 256; ++value) {
        table.at<uchar>(value) = cv::saturate_cast<uchar>(value + 20);
    }
    cv::LUT(pixels, table, pixels);
    cv::Mat hls;
    cv::cvtColor(pixels, hls, cv::COLOR_BGR2HLS);
    cv::LUT(hls, table, hls);
    cv::cvtColor(hls, pixels, cv::COLOR_HLS2BGR);
}

void unavoidableParts(benchmark::State& state) {
    cv::setNumThreads(1);
    material();
    for ([[maybe_unused]] auto step : state) {
        const DecodedPhoto decoded = decodeJpeg(material().photo());
        cv::Mat pixels = cv::cvarrToMat(decoded.image.get());
        if (state.range(0) != 0) {
            callOpenCv(pixels);
        }
        writeJpeg(material().result(), pixels, kQuality);
    }
    countPixels(state);
}
BENCHMARK(unavoidableParts)->ArgName("edited")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vellora
