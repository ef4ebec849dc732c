// vellora clip: art clips as pictures with alpha, and what they hold.

#include <QFile>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include <vellora/model/ClipInfo.h>

#include "Commands.h"
#include "Console.h"
#include "OutputFolder.h"
#include "OutputNames.h"
#include "Paths.h"
#include "PictureFile.h"

namespace vellora::cli {
namespace {

struct ClipRequest {
    std::vector<std::string> clips;
    std::string folder;
    int size = 600;
    bool json = false;
    bool overwrite = false;
};

QJsonObject toJson(const QString& clip, const ClipInfo& info, const QString& picture) {
    QJsonObject records;
    for (const ClipRecordCount& record : info.records) {
        records.insert(record.name, static_cast<qint64>(record.count));
    }
    return {{QStringLiteral("clip"), clip},
            {QStringLiteral("format"), info.format},
            {QStringLiteral("frame"),
             QJsonObject{{QStringLiteral("width"), info.naturalSize.width()},
                         {QStringLiteral("height"), info.naturalSize.height()}}},
            {QStringLiteral("record_count"), static_cast<qint64>(info.recordTotal)},
            {QStringLiteral("records"), records},
            {QStringLiteral("picture"), picture}};
}

/// The picture's path; empty when something failed, `reason` then says what.
QString renderInto(OutputFolder& folder, const QString& clip, const QString& name, int size,
                   QString& reason) {
    const QImage picture = RenderClip(clip, size, &reason);
    if (picture.isNull()) {
        return {};
    }
    const QString scratch = folder.scratchFile(QStringLiteral("png"));
    const QString path = writePicture(picture, scratch) ? folder.publish(scratch, name) : QString();
    if (path.isEmpty()) {
        reason = folder.writeProblem();
    }
    return path;
}

bool runOne(const ClipRequest& request, OutputFolder& folder, const QString& clip,
            const QString& name) {
    ClipInfo info;
    QString reason = irregularity(clip);
    QString picture;
    if (reason.isEmpty() && ReadClipInfo(clip, &info, &reason)) {
        picture = renderInto(folder, clip, name, request.size, reason);
    }
    if (picture.isEmpty()) {
        printError(QStringLiteral("%1: %2").arg(printable(clip), reason));
        if (request.json) {
            printJson(
                QJsonObject{{QStringLiteral("clip"), clip}, {QStringLiteral("error"), reason}});
        }
        return false;
    }
    if (request.json) {
        printJson(toJson(clip, info, picture));
    } else {
        printLine(QStringLiteral("%1  %2, %3 records")
                      .arg(printable(picture), info.format, QString::number(info.recordTotal)));
    }
    return true;
}

int runClip(const ClipRequest& request) {
    OutputFolder folder(QFile::decodeName(request.folder.c_str()), request.overwrite);
    if (!folder.problem().isEmpty()) {
        printError(folder.problem());
        return kSomeFailed;
    }
    QStringList clips;
    for (const std::string& name : request.clips) {
        clips << QFile::decodeName(name.c_str());
    }
    const QStringList names = planResultNames(clips, {}, folder.dir(), QStringLiteral("png"));
    bool allDone = true;
    for (qsizetype i = 0; i < clips.size(); ++i) {
        allDone = runOne(request, folder, clips[i], names[i]) && allDone;
    }
    return allDone ? kAllDone : kSomeFailed;
}

}  // namespace

Command addClipCommand(CLI::App& program) {
    CLI::App* command =
        program.add_subcommand("clip", "Art clips as PNG pictures with alpha, and what they hold");
    auto request = std::make_shared<ClipRequest>();
    command->add_option("-o,--out", request->folder, "The folder of the pictures")
        ->type_name("DIR")
        ->required();
    command->add_option("--size", request->size, "The longer side in pixels")
        ->type_name("N")
        ->check(CLI::Range(1, 16384))
        ->capture_default_str();
    command->add_flag("--overwrite", request->overwrite, "Replace pictures of the same name");
    command->add_flag("--json", request->json, "Format, frame and record counts, an object a clip");
    command->add_option("FILE", request->clips, "The clips")->type_name("")->required();
    return {command, [request] { return runClip(*request); }};
}

}  // namespace vellora::cli
