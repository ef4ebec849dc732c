// A text with every layer, at the size of the preview and at a hundred times its pixels, beside the
// cost of filling the outlines of the same text once.

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <vellora/model/DVDImageText.h>
#include <vellora/text/PhotoTextEffect.h>

#include "text/TextLayout.h"

namespace vellora {
namespace {

const QString kText = QStringLiteral("Summer holidays");
constexpr std::int32_t kPoints = 48;

/// Fonts need an application; the benchmarks' main knows nothing of it.
void needFonts() {
    static int argc = 1;
    static char name[] = "vellora_bench";
    static char* argv[] = {name, nullptr};
    static const bool offscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(argc, argv);
    static_cast<void>(offscreen);
}

QImage canvasOf(const benchmark::State& state) {
    const int width = static_cast<int>(state.range(0));
    QImage canvas(width, width * 3 / 4, QImage::Format_BGR888);
    canvas.fill(QColor(90, 120, 160));
    return canvas;
}

TextEffectRecord layeredEffect(std::int32_t haloBlur) {
    TextEffectRecord effect;
    effect.face = TextBrushSettings::Solid(0xFFFFFF);
    effect.shadow = 1;
    effect.shadow_offset = 12;
    effect.shadow_angle = 45;
    effect.border = 1;
    effect.border_size = 6;
    effect.border_brush = TextBrushSettings::Solid(0x800000);
    effect.halo = 1;
    effect.halo_size = 8;
    effect.halo_blur = haloBlur;
    effect.halo_brush = TextBrushSettings::Solid(0x00FFFF);
    effect.emboss = 1;
    effect.emboss_size = 10;
    effect.emboss_angle = 45;
    effect.emboss_brush = TextBrushSettings::Solid(0x404040);
    return effect;
}

void draw(benchmark::State& state, const TextEffectRecord& effect) {
    needFonts();
    QImage canvas = canvasOf(state);
    CDVDImageText text(nullptr);
    TextStyle style;
    style.size = kPoints;
    style.effect = effect;
    text.SetStyle(style);
    text.SetText(kText);
    text.SetPosition(20, 60);
    text.SetCanvasSize(canvas.width(), canvas.height());
    for (auto _ : state) {
        QPainter painter(&canvas);
        text.Draw(painter, {}, kDrawPlain);
    }
}

/// Goal: 4 ms at 600 x 450, 150 ms at 6000 x 4500.
void styledText(benchmark::State& state) {
    draw(state, layeredEffect(6));
}
BENCHMARK(styledText)->Arg(600)->Arg(6000)->Unit(benchmark::kMillisecond);

void plainText(benchmark::State& state) {
    TextEffectRecord effect;
    effect.face = TextBrushSettings::Solid(0xFFFFFF);
    draw(state, effect);
}
BENCHMARK(plainText)->Arg(600)->Arg(6000)->Unit(benchmark::kMillisecond);

/// The blur is the second number: the cost must not grow with it.
void blurredHalo(benchmark::State& state) {
    TextEffectRecord effect;
    effect.face = TextBrushSettings::Solid(0xFFFFFF);
    effect.halo = 1;
    effect.halo_size = 12;
    effect.halo_blur = static_cast<std::int32_t>(state.range(1));
    draw(state, effect);
}
BENCHMARK(blurredHalo)->ArgsProduct({{600, 6000}, {2, 8, 32}})->Unit(benchmark::kMillisecond);

/// The limit: the same outlines, filled once.
void limitPainterFill(benchmark::State& state) {
    needFonts();
    QImage canvas = canvasOf(state);
    const TextLayout layout(CPhotoTextEffect::LayoutFont("Arial", false, false, false), kText);
    const QPainterPath outline = layout.outline(QRectF(-1e6, -1e6, 2e6, 2e6));
    const double scale = kPoints / 120.0 * canvas.width() / 600.0;
    for (auto _ : state) {
        QPainter painter(&canvas);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        painter.fillPath(outline, Qt::white);
    }
}
BENCHMARK(limitPainterFill)->Arg(600)->Arg(6000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vellora
