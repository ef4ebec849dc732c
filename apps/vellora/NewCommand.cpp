// vellora new: a slideshow file for photos.

#include <QFile>
#include <QFileInfo>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "Commands.h"
#include "Console.h"
#include "Paths.h"
#include "UprightPhoto.h"
#include "common/Document.h"
#include "common/ShowFile.h"
#include "common/ShowStore.h"

namespace vellora::cli {
namespace {

struct NewRequest {
    std::vector<std::string> photos;
    std::string file;
    bool overwrite = false;
};

int runNew(const NewRequest& request) {
    const QString file = QFile::decodeName(request.file.c_str());
    if (!hostkit::isShowFile(file)) {
        throw UsageError(QStringLiteral("--out: '%1' does not end in .vshow").arg(printable(file)));
    }
    if (!request.overwrite && QFileInfo::exists(file)) {
        throw UsageError(QStringLiteral("--out: '%1' exists already; --overwrite replaces it")
                             .arg(printable(file)));
    }
    QStringList names;
    for (const std::string& name : request.photos) {
        names << QFile::decodeName(name.c_str());
    }
    ProtectedFiles(names).refuse(file, QStringLiteral("--out"));
    hostkit::Show show;
    hostkit::Document document;
    for (const QString& name : names) {
        _PHOTO_LIST_NODE record{};
        const auto photo = uprightPhoto(name);
        if (photo && !hostkit::toRecord(*photo, record)) {
            printError(QStringLiteral("%1: the path is too long").arg(printable(photo->path)));
        } else if (photo) {
            show.photos.push_back(*photo);
            document.addPhoto(record);
        }
    }
    QString reason;
    if (!hostkit::saveShow(file, show, document.show(), &reason)) {
        printError(QStringLiteral("%1: %2").arg(printable(file), reason));
        return kSomeFailed;
    }
    return show.photos.size() == request.photos.size() ? kAllDone : kSomeFailed;
}

}  // namespace

Command addNewCommand(CLI::App& program) {
    CLI::App* command =
        program.add_subcommand("new", "Make a slideshow file of photos, each turned upright");
    auto request = std::make_shared<NewRequest>();
    command->add_option("-o,--out", request->file, "The slideshow file to make")
        ->type_name("FILE.vshow")
        ->required();
    command->add_flag("--overwrite", request->overwrite, "Replace the file when it exists");
    command->add_option("PHOTO", request->photos, "The photos")->type_name("")->required();
    return {command, [request] { return runNew(*request); }};
}

}  // namespace vellora::cli
