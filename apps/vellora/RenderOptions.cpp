#include "RenderOptions.h"

#include <QFile>

#include <CLI/CLI.hpp>

#include "Command.h"
#include "Console.h"
#include "Numbers.h"

namespace vellora::cli {
namespace {

QString text(const std::string& argument) {
    return QString::fromStdString(argument);
}

std::int32_t toQuarterTurn(const QString& degrees) {
    const std::int32_t value = toInteger(degrees, QStringLiteral("--rotate"));
    if (value < 0 || value > 270 || value % 90 != 0) {
        throw UsageError(
            QStringLiteral("--rotate: '%1' is none of 0, 90, 180, 270").arg(printable(degrees)));
    }
    return value;
}

std::uint32_t toSeed(const QString& number) {
    bool good = false;
    const std::uint32_t value = number.toUInt(&good);
    if (!good) {
        throw UsageError(QStringLiteral("--seed: '%1' is not an integer from 0 to 4294967295")
                             .arg(printable(number)));
    }
    return value;
}

RenderOptions::Fit toFit(const std::string& name) {
    if (name == "inside") {
        return RenderOptions::kInside;
    }
    return name == "fill" ? RenderOptions::kFill : RenderOptions::kBox;
}

}  // namespace

void RenderOptions::placeUpright(_PHOTO_LIST_NODE& photo, const PhotoInfo& info) const {
    if (!asStored) {
        photo.rotation = info.rotation;
        photo.flip_x = info.flip_x;
        photo.flip_y = info.flip_y;
    }
}

void RenderOptions::overrule(_PHOTO_LIST_NODE& photo) const {
    photo.rotation = rotation.value_or(photo.rotation);
    photo.flip_x = flipX ? 1 : photo.flip_x;
    photo.flip_y = flipY ? 1 : photo.flip_y;
    photo.background = background.value_or(photo.background);
}

void RenderArguments::addTo(CLI::App& command) {
    addResult(command);
    addPlacement(command);
    addProject(command);
    addBehaviour(command);
}

void RenderArguments::addResult(CLI::App& command) {
    constexpr const char* kGroup = "Result";
    command.add_option("-o,--out", m_folder, "Folder for the results, made when missing")
        ->type_name("DIR")
        ->capture_default_str()
        ->group(kGroup);
    command.add_option("--size", m_size, "Size of a JPEG result; default: the finished photo's")
        ->type_name("WxH")
        ->group(kGroup);
    command
        .add_option("--fit", m_fit,
                    "box: exactly the photo fitted into WxH;\n"
                    "inside: WxH with the whole photo in it;\n"
                    "fill: WxH filled by the photo")
        ->type_name("box|inside|fill")
        ->check(CLI::IsMember({"box", "inside", "fill"}).description(""))
        ->capture_default_str()
        ->each([this](const std::string&) { m_fitGiven = true; })
        ->group(kGroup);
    command.add_option("--format", m_format, "png: the finished photo, lossless")
        ->type_name("jpg|png")
        ->check(CLI::IsMember({"jpg", "png"}).description(""))
        ->capture_default_str()
        ->group(kGroup);
    command.add_option("--quality", m_quality, "JPEG quality, 0 to 100")
        ->type_name("N")
        ->capture_default_str()
        ->group(kGroup);
    command.add_flag("--preview", m_flags.preview, "Render at preview size")->group(kGroup);
    command
        .add_flag("--numbered", m_flags.numbered,
                  "Start the names with the place in the list of photos")
        ->group(kGroup);
    command
        .add_flag("--overwrite", m_flags.overwrite,
                  "Replace results of earlier runs; default: take the\nnext free name")
        ->group(kGroup);
}

void RenderArguments::addPlacement(CLI::App& command) {
    constexpr const char* kGroup = "Placement (default: as the photo's orientation tag asks)";
    command.add_option("--rotate", m_rotation, "Turn clockwise by 0, 90, 180 or 270 degrees")
        ->type_name("DEG")
        ->group(kGroup);
    command.add_flag("--flip-x", m_flags.flipX, "Mirror left to right, before turning")
        ->group(kGroup);
    command.add_flag("--flip-y", m_flags.flipY, "Mirror upside down, before turning")
        ->group(kGroup);
    command.add_flag("--no-auto-orient", m_flags.asStored, "Do not look at the orientation tag")
        ->group(kGroup);
    command.add_option("--background", m_background, "Colour around the photo; default: black")
        ->type_name("RRGGBB")
        ->group(kGroup);
}

void RenderArguments::addProject(CLI::App& command) {
    constexpr const char* kGroup = "Project files";
    command
        .add_option("--project", m_project,
                    "Begin with the edits of a project file, matched to the\nphotos by position")
        ->type_name("FILE")
        ->group(kGroup);
    command
        .add_option("--save-project", m_saveProject,
                    "Also write the edits of all photos, those given here\namong them")
        ->type_name("FILE")
        ->group(kGroup);
}

void RenderArguments::addBehaviour(CLI::App& command) {
    command
        .add_option("--seed", m_seed,
                    "Fix the clock from which random filters seed\n"
                    "themselves, so that a render can be repeated")
        ->type_name("N");
    command
        .add_option("--shard", m_shard,
                    "Render the I-th of N equal parts of the photos; all parts\n"
                    "together give what one whole run gives")
        ->type_name("I/N");
    command.add_flag("--json", m_flags.json, "One JSON object a photo on standard output");
    command.add_flag("--quiet", m_flags.quiet, "No progress line");
}

RenderOptions RenderArguments::read() const {
    RenderOptions options = m_flags;
    options.folder = QFile::decodeName(m_folder.c_str());
    options.png = m_format == "png";
    options.fit = toFit(m_fit);
    options.quality = toIntegerWithin(text(m_quality), 0, 100, QStringLiteral("--quality"));
    options.project = QFile::decodeName(m_project.c_str());
    options.saveProject = QFile::decodeName(m_saveProject.c_str());
    if (!m_background.empty()) {
        options.background = toColour(text(m_background), QStringLiteral("--background"));
    }
    options.shard = toShard(text(m_shard));
    if (!m_size.empty()) {
        options.size = toPictureSize(text(m_size), QStringLiteral("--size"));
    }
    if (!m_rotation.empty()) {
        options.rotation = toQuarterTurn(text(m_rotation));
    }
    if (!m_seed.empty()) {
        options.seed = toSeed(text(m_seed));
    }
    if ((options.png || options.preview) && (!m_size.empty() || m_fitGiven)) {
        throw UsageError(
            QStringLiteral("--size and --fit do not go with --format png or "
                           "--preview: those have the size of the finished photo"));
    }
    return options;
}

}  // namespace vellora::cli
