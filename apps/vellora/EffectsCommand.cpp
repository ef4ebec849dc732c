// vellora effects: the text styles.

#include <QFile>
#include <memory>

#include <CLI/CLI.hpp>

#include <vellora/text/EffectCatalogue.h>

#include "Commands.h"
#include "Console.h"
#include "OutputFolder.h"
#include "PictureFile.h"
#include "common/Assets.h"

namespace vellora::cli {
namespace {

constexpr QSize kPictureSize(360, 150);
const QColor kGround(96, 104, 116);

struct EffectsRequest {
    std::string folder;
    std::string sample = "Summer";
    bool json = false;
    bool overwrite = false;
};

QString brushOf(const TextBrushSettings& brush) {
    switch (brush.type) {
        case kGradientBrush:
            return QStringLiteral("gradient");
        case kTextureBrush:
            return brush.GetTextureName();
        default:
            return QStringLiteral("solid");
    }
}

QJsonObject toJson(const TextEffectEntry& entry, int number) {
    const TextEffectRecord& effect = entry.effect;
    QJsonObject layers{{QStringLiteral("face"), brushOf(effect.face)}};
    const auto add = [&layers](const QString& name, std::int32_t on,
                               const TextBrushSettings& brush) {
        if (on != 0) {
            layers.insert(name, brushOf(brush));
        }
    };
    add(QStringLiteral("shadow"), effect.shadow, effect.shadow_brush);
    add(QStringLiteral("border"), effect.border, effect.border_brush);
    add(QStringLiteral("halo"), effect.halo, effect.halo_brush);
    add(QStringLiteral("emboss"), effect.emboss, effect.emboss_brush);
    return {{QStringLiteral("number"), number},
            {QStringLiteral("name"), entry.name},
            {QStringLiteral("font"), effect.GetFontName()},
            {QStringLiteral("size"), effect.font_size},
            {QStringLiteral("layers"), layers}};
}

void print(const TextEffectEntry& entry, int number) {
    const QJsonObject layers = toJson(entry, number).value(QStringLiteral("layers")).toObject();
    QStringList parts;
    for (auto layer = layers.begin(); layer != layers.end(); ++layer) {
        parts << QStringLiteral("%1 %2").arg(layer.key(), layer.value().toString());
    }
    printLine(QStringLiteral("%1  %2  %3, %4 points; %5")
                  .arg(number, 3)
                  .arg(printable(entry.name), -9)
                  .arg(printable(entry.effect.GetFontName()))
                  .arg(entry.effect.font_size)
                  .arg(printable(parts.join(QStringLiteral(", ")))));
}

/// A picture of each style.
int drawAll(const EffectsRequest& request, const std::vector<TextEffectEntry>& entries) {
    OutputFolder folder(QFile::decodeName(request.folder.c_str()), request.overwrite);
    if (!folder.problem().isEmpty()) {
        printError(folder.problem());
        return kSomeFailed;
    }
    int number = 0;
    for (const TextEffectEntry& entry : entries) {
        const QImage picture =
            PreviewTextEffect(hostkit::assetsFolder(), entry.effect, kPictureSize,
                              QString::fromStdString(request.sample), kGround);
        const QString scratch = folder.scratchFile(QStringLiteral("png"));
        const QString name = QStringLiteral("style-%1.png").arg(++number, 2, 10, QLatin1Char('0'));
        if (!writePicture(picture, scratch) || folder.publish(scratch, name).isEmpty()) {
            printError(folder.writeProblem());
            return kSomeFailed;
        }
    }
    return kAllDone;
}

int runEffects(const EffectsRequest& request) {
    const std::vector<TextEffectEntry> entries = LoadEffectCatalogue(hostkit::assetsFolder());
    if (entries.empty()) {
        printError(QStringLiteral("there is no effect catalogue in '%1'")
                       .arg(printable(hostkit::assetsFolder())));
        return kSomeFailed;
    }
    int number = 0;
    QJsonArray array;
    for (const TextEffectEntry& entry : entries) {
        ++number;
        if (request.json) {
            array.append(toJson(entry, number));
        } else {
            print(entry, number);
        }
    }
    if (request.json) {
        printJson(array);
    }
    return request.folder.empty() ? static_cast<int>(kAllDone) : drawAll(request, entries);
}

}  // namespace

Command addEffectsCommand(CLI::App& program) {
    CLI::App* command =
        program.add_subcommand("effects", "The text styles that --effect knows, by number");
    auto request = std::make_shared<EffectsRequest>();
    command->add_option("-o,--out", request->folder, "Folder for a picture of each style")
        ->type_name("DIR");
    command->add_option("--sample", request->sample, "What the pictures say")
        ->type_name("TEXT")
        ->capture_default_str();
    command->add_flag("--overwrite", request->overwrite, "Replace pictures that are there");
    command->add_flag("--json", request->json, "The styles as one JSON array");
    return {command, [request] { return runEffects(*request); }};
}

}  // namespace vellora::cli
