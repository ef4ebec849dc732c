// vellora project: project files made, shown and checked.

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include <vellora/base/HostText.h>
#include <vellora/host/PhotoFile.h>
#include <vellora/project/ProjectCheck.h>
#include <vellora/project/ProjectContents.h>

#include "Commands.h"
#include "Console.h"
#include "Paths.h"
#include "ProjectText.h"
#include "common/Assets.h"
#include "common/Document.h"

namespace vellora::cli {
namespace {

/// The exit status for a file that cannot be read at all.
constexpr int kUnreadable = 2;

struct NewRequest {
    std::vector<std::string> photos;
    std::string file;
    bool overwrite = false;
};

struct FileRequest {
    std::string file;
    bool json = false;
};

/// The host record of a photo as it is added to a show. What is wrong with the photo is said.
bool fillRecord(const QString& name, _PHOTO_LIST_NODE& record) {
    PhotoInfo info;
    QString reason;
    const bool isPhoto = ReadPhotoInfo(name, &info, &reason);
    if (!isPhoto) {
        printError(QStringLiteral("%1: %2").arg(printable(name), reason));
    }
    setHostText(record.path, absolutePathOf(name));
    record.rotation = info.rotation;
    return isPhoto;
}

int runNew(const NewRequest& request) {
    const QString file = QFile::decodeName(request.file.c_str());
    if (!request.overwrite && QFileInfo::exists(file)) {
        throw UsageError(QStringLiteral("--out: '%1' exists already; --overwrite replaces it")
                             .arg(printable(file)));
    }
    QStringList photos;
    for (const std::string& name : request.photos) {
        photos << QFile::decodeName(name.c_str());
    }
    ProtectedFiles(photos).refuse(file, QStringLiteral("--out"));
    hostkit::Document document;
    bool allPhotos = true;
    for (const QString& name : photos) {
        // A photo that cannot be read keeps its place: edits are matched by position.
        _PHOTO_LIST_NODE record{};
        allPhotos = fillRecord(name, record) && allPhotos;
        document.addPhoto(record);
    }
    if (document.show().SaveToXMLFile(file) != S_OK) {
        printError(QStringLiteral("%1: cannot be written").arg(printable(file)));
        return kSomeFailed;
    }
    return allPhotos ? kAllDone : kSomeFailed;
}

QJsonObject toJson(const ProjectContents& contents) {
    QJsonArray photos;
    for (const ProjectPhoto& photo : contents.photos) {
        QJsonObject object = editsToJson(*photo.edits);
        object.insert(QStringLiteral("position"), photo.id);
        object.insert(QStringLiteral("photo"), photo.fileName);
        object.insert(QStringLiteral("rotation"), photo.angle);
        photos.append(object);
    }
    return {{QStringLiteral("album"), spritesToJson(*contents.album)},
            {QStringLiteral("photos"), photos}};
}

void printBlock(const QString& title, const QStringList& lines) {
    printLine(title);
    for (const QString& line : lines) {
        printLine(QStringLiteral("    ") + line);
    }
}

int runShow(const FileRequest& request) {
    const QString file = QFile::decodeName(request.file.c_str());
    ProjectContents contents;
    QString reason = irregularity(file);
    if (!reason.isEmpty() || !ReadProject(file, hostkit::assetsFolder(), &contents, &reason)) {
        printError(QStringLiteral("%1: %2").arg(printable(file), reason));
        return kUnreadable;
    }
    if (request.json) {
        printJson(toJson(contents));
        return kAllDone;
    }
    printBlock(QStringLiteral("album"), spriteLines(*contents.album));
    for (const ProjectPhoto& photo : contents.photos) {
        printBlock(QStringLiteral("photo %1: %2").arg(photo.id).arg(printable(photo.fileName)),
                   editLines(*photo.edits) + spriteLines(*photo.edits));
    }
    return kAllDone;
}

int runCheck(const FileRequest& request) {
    const QString file = QFile::decodeName(request.file.c_str());
    if (const QString reason = irregularity(file); !reason.isEmpty()) {
        printLine(QStringLiteral("%1: %2").arg(printable(file), reason));
        return kUnreadable;
    }
    const ProjectReport report = CheckProject(file, hostkit::assetsFolder());
    for (const ProjectFinding& finding : report.findings) {
        const QString place = finding.line > 0
                                  ? QStringLiteral(":%1:%2").arg(finding.line).arg(finding.column)
                                  : QString();
        printLine(printable(file) + place + QStringLiteral(": ") + printable(finding.message));
    }
    if (!report.readable) {
        return kUnreadable;
    }
    return report.findings.empty() ? kAllDone : kSomeFailed;
}

Command addNew(CLI::App& project) {
    CLI::App* command = project.add_subcommand("new", "An empty project file for photos");
    auto request = std::make_shared<NewRequest>();
    command->add_option("-o,--out", request->file, "The project file to make")
        ->type_name("FILE")
        ->required();
    command->add_flag("--overwrite", request->overwrite, "Replace the file when it exists");
    command->add_option("PHOTO", request->photos, "The photos")->type_name("")->required();
    return {command, [request] { return runNew(*request); }};
}

Command addShow(CLI::App& project) {
    CLI::App* command = project.add_subcommand(
        "show", "What a project holds for each photo: crops, filters with their factors, sprites");
    auto request = std::make_shared<FileRequest>();
    command->add_flag("--json", request->json, "The project as one JSON object");
    command->add_option("FILE", request->file, "The project file")->type_name("")->required();
    return {command, [request] { return runShow(*request); }};
}

Command addCheck(CLI::App& project) {
    CLI::App* command =
        project.add_subcommand("check",
                               "Name what is wrong in a project file, with line and column\n"
                               "(exit status 0: nothing, 1: something, 2: no project file)");
    auto request = std::make_shared<FileRequest>();
    command->add_option("FILE", request->file, "The project file")->type_name("")->required();
    return {command, [request] { return runCheck(*request); }};
}

}  // namespace

std::vector<Command> addProjectCommands(CLI::App& program) {
    CLI::App* project =
        program.add_subcommand("project", "Make, show and check project files, which keep edits");
    project->require_subcommand(1);
    return {addNew(*project), addShow(*project), addCheck(*project)};
}

}  // namespace vellora::cli
