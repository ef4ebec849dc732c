// vellora info: what a photo file says of itself.

#include <QFile>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include <vellora/host/PhotoFile.h>

#include "Commands.h"
#include "Console.h"

namespace vellora::cli {
namespace {

struct InfoRequest {
    std::vector<std::string> photos;
    bool json = false;
};

QString pixels(int width, int height) {
    return QStringLiteral("%1 x %2").arg(width).arg(height);
}

QString orientationText(const PhotoInfo& info) {
    QStringList parts;
    if (info.flip_x != 0) {
        parts << QStringLiteral("mirrored left to right");
    }
    if (info.flip_y != 0) {
        parts << QStringLiteral("mirrored upside down");
    }
    if (info.rotation != 0) {
        parts << QStringLiteral("turned by %1 degrees").arg(info.rotation);
    }
    return parts.isEmpty() ? QStringLiteral("as stored") : parts.join(QStringLiteral(", then "));
}

void print(const QString& photo, const PhotoInfo& info) {
    printLine(printable(photo));
    printLine(QStringLiteral("    size         %1").arg(pixels(info.width, info.height)));
    printLine(QStringLiteral("    orientation  %1 (upright: %2)")
                  .arg(info.orientation)
                  .arg(orientationText(info)));
    printLine(QStringLiteral("    preview      %1, shown on the stage at %2")
                  .arg(pixels(info.previewWidth, info.previewHeight),
                       pixels(info.stageWidth, info.stageHeight)));
    printLine(
        QStringLiteral("    canvas       %1").arg(pixels(info.canvasWidth, info.canvasHeight)));
}

QJsonObject sizeObject(int width, int height) {
    return {{QStringLiteral("width"), width}, {QStringLiteral("height"), height}};
}

QJsonObject toJson(const QString& photo, const PhotoInfo& info) {
    return {{QStringLiteral("photo"), photo},
            {QStringLiteral("width"), info.width},
            {QStringLiteral("height"), info.height},
            {QStringLiteral("orientation"), info.orientation},
            {QStringLiteral("rotation"), info.rotation},
            {QStringLiteral("flip_x"), info.flip_x != 0},
            {QStringLiteral("flip_y"), info.flip_y != 0},
            {QStringLiteral("preview"), sizeObject(info.previewWidth, info.previewHeight)},
            {QStringLiteral("stage"), sizeObject(info.stageWidth, info.stageHeight)},
            {QStringLiteral("canvas"), sizeObject(info.canvasWidth, info.canvasHeight)}};
}

int runInfo(const InfoRequest& request) {
    bool allDone = true;
    for (const std::string& name : request.photos) {
        const QString photo = QFile::decodeName(name.c_str());
        PhotoInfo info;
        QString reason;
        if (!ReadPhotoInfo(photo, &info, &reason)) {
            allDone = false;
            printError(QStringLiteral("%1: %2").arg(printable(photo), reason));
            if (request.json) {
                printJson(QJsonObject{{QStringLiteral("photo"), photo},
                                      {QStringLiteral("error"), reason}});
            }
        } else if (request.json) {
            printJson(toJson(photo, info));
        } else {
            print(photo, info);
        }
    }
    return allDone ? kAllDone : kSomeFailed;
}

}  // namespace

Command addInfoCommand(CLI::App& program) {
    CLI::App* command =
        program.add_subcommand("info", "Size, orientation, preview size and canvas of photos");
    auto request = std::make_shared<InfoRequest>();
    command->add_flag("--json", request->json, "One JSON object a photo");
    command->add_option("PHOTO", request->photos, "The photos")->type_name("")->required();
    return {command, [request] { return runInfo(*request); }};
}

}  // namespace vellora::cli
