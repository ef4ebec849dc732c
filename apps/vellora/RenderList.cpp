#include "RenderList.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include <vellora/model/DVDImageProps.h>

#include "Command.h"
#include "Console.h"
#include "Paths.h"
#include "common/Assets.h"
#include "common/CopyEdits.h"

namespace vellora::cli {

namespace {

QStringList clipsOf(const CSpriteHolder& holder) {
    QStringList files;
    for (const CDVDImageSprite* sprite : holder.GetSprites()) {
        if (const auto* clip = dynamic_cast<const CDVDImageProps*>(sprite)) {
            files << clip->GetFile();
        }
    }
    return files;
}

}  // namespace

std::shared_ptr<ProjectEdits> ProjectEdits::read(const QString& file, QString* reason) {
    if (*reason = irregularity(file); !reason->isEmpty()) {
        return nullptr;
    }
    auto edits = std::make_shared<ProjectEdits>();
    return ReadProject(file, hostkit::assetsFolder(), &edits->m_contents, reason) ? edits : nullptr;
}

void ProjectEdits::applyTo(CDVDImage& photo, CDVDAlbumImage& album, int position) const {
    hostkit::copyAlbum(*m_contents.album, album);
    const auto found = std::ranges::lower_bound(m_contents.photos, position, {}, &ProjectPhoto::id);
    if (found != m_contents.photos.end() && found->id == position) {
        hostkit::copyEdits(*found->edits, photo);
    }
}

QStringList ProjectEdits::pictures() const {
    QStringList files = clipsOf(*m_contents.album);
    for (const ProjectPhoto& photo : m_contents.photos) {
        files << photo.fileName << clipsOf(*photo.edits);
    }
    files.removeAll(QString());
    return files;
}

QStringList RenderList::photos() const {
    QStringList names;
    for (const RenderItem& item : items) {
        names << item.photo;
    }
    return names;
}

RenderList RenderList::read(const std::vector<std::string>& arguments, const QString& projectFile) {
    RenderList list;
    std::shared_ptr<const ProjectEdits> edits;
    if (!projectFile.isEmpty()) {
        QString reason;
        edits = ProjectEdits::read(projectFile, &reason);
        if (edits == nullptr) {
            throw UsageError(
                QStringLiteral("--project: %1: %2").arg(printable(projectFile), reason));
        }
        list.files << projectFile;
        list.sources << edits->pictures();
    }
    for (const std::string& argument : arguments) {
        const QString name = QFile::decodeName(argument.c_str());
        if (!hostkit::isShowFile(name)) {
            list.addPhoto(name, edits);
        } else if (projectFile.isEmpty()) {
            list.addShow(name);
        } else {
            throw UsageError(
                QStringLiteral("--project does not go with a slideshow file, which names its own"));
        }
    }
    return list;
}

void RenderList::addPhoto(const QString& photo, const std::shared_ptr<const ProjectEdits>& edits) {
    items.push_back({photo, std::nullopt, edits, static_cast<int>(items.size())});
}

void RenderList::addShow(const QString& file) {
    QStringList warnings;
    QString reason;
    const std::optional<hostkit::Show> show = hostkit::readShow(file, &warnings, &reason);
    const auto say = [](const QString& name, const QString& text) {
        printError(QStringLiteral("%1: %2").arg(printable(name), text));
    };
    for (const QString& warning : warnings) {
        say(file, printable(warning));
    }
    incomplete = incomplete || !show || !warnings.isEmpty();
    if (!show) {
        say(file, printable(reason));
        return;
    }
    std::shared_ptr<const ProjectEdits> edits;
    if (show->namesProject || QFileInfo::exists(show->projectPath)) {
        edits = ProjectEdits::read(show->projectPath, &reason);
        if (edits == nullptr) {
            say(show->projectPath, printable(reason) + QStringLiteral("; rendering without edits"));
            incomplete = true;
        } else {
            sources << edits->pictures();
        }
    }
    files << file << show->projectPath;
    sources << file;
    int position = 0;
    for (const hostkit::ShowPhoto& photo : show->photos) {
        items.push_back({photo.path, photo, edits, position++});
    }
}

}  // namespace vellora::cli
