#include <QGuiApplication>
#include <QPainter>
#include <cmath>

#include <benchmark/benchmark.h>

#include "metafile/MetafilePicture.h"
#include "writer/Bytes.h"

namespace vellora {
namespace {

constexpr int kRecords = 5'000;

/// A clip of 5,000 records as drawing programs write them: a brush is made, selected, used for a
/// polygon and for a rounder shape, and deleted.
QByteArray manyRecords() {
    clipgen::Bytes records;
    std::uint32_t count = 0;
    const auto record = [&](std::uint32_t type, const clipgen::Bytes& parameters) {
        records.u32(type).u32(static_cast<std::uint32_t>(8 + parameters.size()));
        records.raw(parameters.bytes());
        ++count;
    };
    record(37, clipgen::Bytes().u32(0x80000008));
    for (int i = 0; count < kRecords; ++i) {
        const double x = 30 + (i * 37) % 540;
        const double y = 30 + (i * 91) % 390;
        record(39, clipgen::Bytes()
                       .u32(1)
                       .u32(0)
                       .u32(static_cast<std::uint32_t>(i) * 2'654'435U & 0x00FFFFFF)
                       .u32(0));
        record(37, clipgen::Bytes().u32(1));
        clipgen::Bytes polygon;
        polygon.zeros(16).u32(12);
        for (int k = 0; k < 12; ++k)
            polygon.i16(static_cast<int>(x + 14 * std::cos(k * 0.5236) * (1 + k % 2)))
                .i16(static_cast<int>(y + 14 * std::sin(k * 0.5236) * (1 + k % 2)));
        record(86, polygon);
        record(42, clipgen::Bytes()
                       .i32(static_cast<int>(x) - 8)
                       .i32(static_cast<int>(y) - 6)
                       .i32(static_cast<int>(x) + 8)
                       .i32(static_cast<int>(y) + 6));
        record(40, clipgen::Bytes().u32(1));
    }
    clipgen::Bytes file;
    file.u32(1).u32(88).i32(0).i32(0).i32(599).i32(449).i32(0).i32(0).i32(60'000).i32(45'000);
    file.u32(0x464D4520).u32(0x10000).u32(0).u32(count + 1).u16(4).u16(0).zeros(12);
    file.i32(1000).i32(1000).i32(1000).i32(1000).raw(records.bytes());
    return file.bytes();
}

void ensureApplication() {
    static int argc = 1;
    static char name[] = "bench";
    static char* argv[] = {name, nullptr};
    if (QCoreApplication::instance() == nullptr) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static const QGuiApplication application(argc, argv);
    }
}

void BM_DecodeMetafile(benchmark::State& state) {
    ensureApplication();
    const QByteArray file = manyRecords();
    for (auto _ : state)
        benchmark::DoNotOptimize(MetafilePicture::fromBytes(file));
}
BENCHMARK(BM_DecodeMetafile)->Unit(benchmark::kMillisecond);

/// The side is the target's width; 600 is the stage, where 15 ms is the limit.
void BM_DrawMetafile(benchmark::State& state) {
    ensureApplication();
    const auto picture = MetafilePicture::fromBytes(manyRecords());
    const int width = static_cast<int>(state.range(0));
    QImage image(width, width * 3 / 4, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    for (auto _ : state) {
        QPainter painter(&image);
        picture->draw(painter, QRectF(image.rect()));
    }
}
BENCHMARK(BM_DrawMetafile)->Arg(86)->Arg(600)->Arg(2400)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vellora
