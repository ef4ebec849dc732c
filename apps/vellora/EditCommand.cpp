// vellora edit: the edit dialog without a host program.

#include <QFile>
#include <QFileInfo>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include <vellora/vellora.h>

#include "Commands.h"
#include "Console.h"
#include "Paths.h"
#include "UprightPhoto.h"
#include "common/Assets.h"
#include "common/Document.h"
#include "common/ShowFile.h"
#include "common/ShowStore.h"

namespace vellora::cli {
namespace {

struct EditRequest {
    std::vector<std::string> files;
    std::string language;
    std::string save;
    bool overwrite = false;
};

hostkit::Show openShow(const QString& file) {
    QStringList warnings;
    QString reason;
    auto show = hostkit::readShow(file, &warnings, &reason);
    for (const QString& warning : warnings) {
        printError(printable(warning));
    }
    if (!show) {
        throw UsageError(QStringLiteral("%1: %2").arg(printable(file), reason));
    }
    return *show;
}

hostkit::Show showOfPhotos(const std::vector<std::string>& files) {
    hostkit::Show show;
    for (const std::string& name : files) {
        if (const auto photo = uprightPhoto(QFile::decodeName(name.c_str()))) {
            show.photos.push_back(*photo);
        }
    }
    return show;
}

/// Where the show is saved: the show itself, or beside the first photo.
QString targetOf(const EditRequest& request, const QString& first) {
    const QString named = QFile::decodeName(request.save.c_str());
    const bool isSame =
        QFileInfo(named).canonicalFilePath() == QFileInfo(first).canonicalFilePath();
    if (!named.isEmpty() && !hostkit::isShowFile(named)) {
        throw UsageError(
            QStringLiteral("--save: '%1' does not end in .vshow").arg(printable(named)));
    }
    if (!isSame && !request.overwrite && QFileInfo::exists(named)) {
        throw UsageError(QStringLiteral("--save: '%1' exists already; --overwrite replaces it")
                             .arg(printable(named)));
    }
    if (!named.isEmpty() || hostkit::isShowFile(first)) {
        return named.isEmpty() ? first : named;
    }
    const QFileInfo photo(first);
    const QString beside =
        photo.path() + u'/' + photo.completeBaseName() + QStringLiteral(".vshow");
    if (QFileInfo::exists(beside)) {
        throw UsageError(QStringLiteral("'%1' exists already; name another with --save, or edit it")
                             .arg(printable(beside)));
    }
    return beside;
}

/// A show is edited by itself; among photos it would only be a target.
void checkFiles(const std::vector<std::string>& files) {
    for (const std::string& name : files) {
        const QString file = QFile::decodeName(name.c_str());
        if (files.size() > 1 && hostkit::isShowFile(file)) {
            throw UsageError(QStringLiteral("'%1' is a slideshow, which is edited by itself: give "
                                            "photos, or one slideshow")
                                 .arg(printable(file)));
        }
    }
}

QString languageFile(const std::string& given) {
    if (given.empty()) {
        return hostkit::languageFileFor(QStringLiteral("auto"));
    }
    const QString file = QFile::decodeName(given.c_str());
    const QFileInfo info(file);
    if (!info.isFile() || !info.isReadable()) {
        throw UsageError(QStringLiteral("--language: '%1' %2")
                             .arg(printable(file), info.exists()
                                                       ? QStringLiteral("cannot be read as a file")
                                                       : QStringLiteral("is missing")));
    }
    return info.absoluteFilePath();
}

bool fillDocument(hostkit::Document& document, const hostkit::Show& show) {
    document.show().SetTextEffectBaseFolder(hostkit::assetsFolder());
    for (const hostkit::ShowPhoto& photo : show.photos) {
        _PHOTO_LIST_NODE record{};
        if (!hostkit::toRecord(photo, record)) {
            printError(QStringLiteral("%1: the path is too long").arg(printable(photo.path)));
            return false;
        }
        document.addPhoto(record);
    }
    QString problem = irregularity(show.projectPath);
    if (problem.isEmpty()) {
        problem = hostkit::loadEdits(show, document.show());
    }
    if (!problem.isEmpty()) {
        printError(QStringLiteral("%1: %2").arg(printable(show.projectPath), problem));
    }
    return problem.isEmpty();
}

void takeBack(hostkit::Document& document, hostkit::Show& show) {
    const CPtrList& list = *document.show().GetProjectPtrList();
    POSITION position = list.GetHeadPosition();
    for (hostkit::ShowPhoto& photo : show.photos) {
        hostkit::fromRecord(*list.GetNext(position)->photo, photo);
    }
}

int runEdit(const EditRequest& request) {
    const QString first = QFile::decodeName(request.files.front().c_str());
    const bool isShow = hostkit::isShowFile(first);
    checkFiles(request.files);
    const QString target = targetOf(request, first);
    const QString language = languageFile(request.language);
    hostkit::Show show = isShow ? openShow(first) : showOfPhotos(request.files);
    CImageObj::SetLanguageString(language);
    hostkit::Document document;
    if (!fillDocument(document, show)) {
        return kSomeFailed;
    }
    if (document.show().ShowProcessDialog(0, nullptr, 0) != S_OK) {
        printError("there is no photo to edit");
        return kSomeFailed;
    }
    takeBack(document, show);
    QString reason;
    if (!hostkit::saveShow(target, show, document.show(), &reason)) {
        printError(QStringLiteral("%1: %2").arg(printable(target), reason));
        return kSomeFailed;
    }
    return isShow || show.photos.size() == request.files.size() ? kAllDone : kSomeFailed;
}

}  // namespace

Command addEditCommand(CLI::App& program) {
    CLI::App* command = program.add_subcommand(
        "edit", "Open the edit dialog on photos or on a slideshow, and save the slideshow");
    auto request = std::make_shared<EditRequest>();
    command->add_option("--language", request->language, "A language file; else the system's")
        ->type_name("FILE.ini");
    command
        ->add_option("--save", request->save,
                     "Where to save; else the slideshow itself, or beside the first photo")
        ->type_name("FILE.vshow");
    command->add_flag("--overwrite", request->overwrite,
                      "Replace another slideshow that has the name given with --save");
    command->add_option("FILE", request->files, "Photos, or one slideshow")
        ->type_name("")
        ->required();
    return {command, [request] { return runEdit(*request); }, true};
}

}  // namespace vellora::cli
