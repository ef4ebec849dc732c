#include "TextEdit.h"

#include <memory>

#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageText.h>
#include <vellora/text/EffectCatalogue.h>

#include "Command.h"
#include "Console.h"
#include "Numbers.h"
#include "common/Assets.h"

namespace vellora::cli {
namespace {

constexpr std::int32_t kFarthest = 100'000;
constexpr std::int32_t kLargestFont = 10'000;
/// Where a plain shadow falls, in units of a 120-point text.
constexpr std::int32_t kShadowOffset = 10;
constexpr std::int32_t kShadowAngle = 45;

}  // namespace

void addTextEdit(Edits& edits, const QString& argument) {
    const qsizetype at = argument.lastIndexOf(QLatin1Char('@'));
    if (at < 1) {
        throw UsageError(
            QStringLiteral("--text: '%1' is not of the form TEXT@X,Y").arg(printable(argument)));
    }
    const QString what = QStringLiteral("--text");
    const std::vector<std::int32_t> place = toIntegers(argument.mid(at + 1), 2, 2, what);
    for (const std::int32_t value : place) {
        toIntegerWithin(QString::number(value), -kFarthest, kFarthest, what);
    }
    edits.steps.emplace_back([typed = argument.left(at), style = edits.textStyle, x = place[0],
                              y = place[1]](CDVDImage& image) {
        auto text = std::make_unique<CDVDImageText>(&image, hostkit::assetsFolder());
        text->SetStyle(style);
        text->SetText(typed);
        text->SetPosition(x, y);
        if (image.AddSprite(text.get(), false) == 1) {
            text.release();
        }
    });
}

void setTextFont(Edits& edits, const QString& family) {
    edits.textStyle.SetFont(family);
}

void setTextFontSize(Edits& edits, const QString& points) {
    edits.textStyle.size = toIntegerWithin(points, 1, kLargestFont, QStringLiteral("--font-size"));
    edits.hasFontSize = true;
}

void setTextColour(Edits& edits, const QString& colour) {
    edits.textStyle.colour = toColour(colour, QStringLiteral("--color"));
    edits.textStyle.effect.face = TextBrushSettings::Solid(edits.textStyle.colour);
}

void setTextEffect(Edits& edits, const QString& number) {
    const auto entries = LoadEffectCatalogue(hostkit::assetsFolder());
    if (entries.empty()) {
        throw UsageError(QStringLiteral("--effect: there is no effect catalogue in '%1'")
                             .arg(printable(hostkit::assetsFolder())));
    }
    const std::int32_t chosen = toIntegerWithin(
        number, 1, static_cast<std::int32_t>(entries.size()), QStringLiteral("--effect"));
    const std::int32_t size = edits.textStyle.size;
    edits.textStyle.TakeEffect(entries[static_cast<std::size_t>(chosen) - 1].effect);
    if (edits.hasFontSize) {
        edits.textStyle.size = size;
    }
}

void setTextBold(Edits& edits, bool on) {
    edits.textStyle.bold = edits.textStyle.effect.bold = on ? 1 : 0;
}

void setTextItalic(Edits& edits, bool on) {
    edits.textStyle.italic = edits.textStyle.effect.italic = on ? 1 : 0;
}

void setTextUnderline(Edits& edits, bool on) {
    edits.textStyle.underline = edits.textStyle.effect.underline = on ? 1 : 0;
}

void setTextShadow(Edits& edits, bool on) {
    TextEffectRecord& effect = edits.textStyle.effect;
    edits.textStyle.shadow = effect.shadow = on ? 1 : 0;
    if (on && effect.shadow_offset == 0) {
        effect.shadow_offset = kShadowOffset;
        effect.shadow_angle = kShadowAngle;
    }
}

}  // namespace vellora::cli
