#include "common/ShowFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>
#include <cmath>

#include <vellora/base/HostText.h>

#include "common/ShowFields.h"

namespace vellora::hostkit {
namespace {

constexpr qint64 kLargestFile = 64 << 20;
constexpr qsizetype kMostPhotos = 100'000;
constexpr int kVersion = 1;

QString placeInText(const QByteArray& text, qsizetype offset) {
    const QByteArray before = text.left(std::clamp<qsizetype>(offset, 0, text.size()));
    const auto line = before.count('\n') + 1;
    const auto column = before.size() - before.lastIndexOf('\n');
    return QCoreApplication::translate("hostkit", "line %1, column %2").arg(line).arg(column);
}

/// Paths in a show are relative to the file itself, wherever a link to it lies.
QFileInfo realFile(const QString& show) {
    return QFileInfo(realPath(show));
}

std::optional<QByteArray> readAll(const QString& path, QString* error) {
    QFile file(path);
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile()) {
        *error = QCoreApplication::translate("hostkit", "not a regular file");
        return {};
    }
    if (!file.open(QIODevice::ReadOnly)) {
        *error = file.errorString();
        return {};
    }
    QByteArray text = file.read(kLargestFile + 1);
    if (text.size() > kLargestFile) {
        *error = QCoreApplication::translate("hostkit", "larger than 64 MB");
        return {};
    }
    return text;
}

/// A path of a show from the root on. A colon in front has no meaning of its own.
QString resolved(const QString& path, const QDir& folder) {
    return QDir::cleanPath(path.startsWith(u':') ? folder.path() + u'/' + path
                                                 : folder.absoluteFilePath(path));
}

/// A path as the show keeps it.
QString relativeTo(const QDir& folder, const QString& path) {
    const QString relative = folder.relativeFilePath(path);
    return relative.startsWith(u':') ? QStringLiteral("./") + relative : relative;
}

/// A text that has to fit into a field of the host record.
template <std::size_t N>
QString boundedText(FieldReader& reader, const QString& key, const char16_t (&/*field*/)[N]) {
    return reader.text(key, static_cast<int>(N) - 1);
}

ShowPhoto readPhoto(FieldReader reader, const QDir& folder) {
    static constexpr _PHOTO_LIST_NODE kRecord{};
    ShowPhoto photo;
    photo.path = reader.text(QStringLiteral("path"));
    if (!photo.path.isEmpty()) {
        photo.path = resolved(photo.path, folder);
    }
    photo.rotation = reader.rotation(QStringLiteral("rotation"));
    photo.flipX = reader.boolean(QStringLiteral("flipX"));
    photo.flipY = reader.boolean(QStringLiteral("flipY"));
    photo.title = boundedText(reader, QStringLiteral("title"), kRecord.title);
    photo.description = boundedText(reader, QStringLiteral("description"), kRecord.description);
    photo.link = boundedText(reader, QStringLiteral("link"), kRecord.link);
    photo.background = reader.colour(QStringLiteral("background"));
    photo.suppressSprites = reader.boolean(QStringLiteral("suppressSprites"));
    photo.firstDuration = reader.seconds(QStringLiteral("duration"));
    photo.secondDuration = reader.seconds(QStringLiteral("transition"));
    photo.unknown = reader.unread();
    return photo;
}

QJsonObject photoObject(const ShowPhoto& photo, const QDir& folder) {
    QJsonObject object = photo.unknown;
    const auto put = [&object](const char* key, const QJsonValue& value, bool wanted) {
        if (wanted) {
            object.insert(QLatin1String(key), value);
        }
    };
    put("path", relativeTo(folder, photo.path), true);
    put("rotation", photo.rotation, photo.rotation != 0);
    put("flipX", true, photo.flipX);
    put("flipY", true, photo.flipY);
    put("title", photo.title, !photo.title.isEmpty());
    put("description", photo.description, !photo.description.isEmpty());
    put("link", photo.link, !photo.link.isEmpty());
    put("background", colourName(photo.background), photo.background != 0);
    put("suppressSprites", true, photo.suppressSprites);
    put("duration", photo.firstDuration, true);
    put("transition", photo.secondDuration, true);
    return object;
}

}  // namespace

std::optional<Show> readShow(const QString& file, QStringList* warnings, QString* error) {
    const std::optional<QByteArray> text = readAll(file, error);
    if (!text) {
        return {};
    }
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(*text, &problem);
    if (problem.error != QJsonParseError::NoError) {
        *error =
            QStringLiteral("%1: %2").arg(placeInText(*text, problem.offset), problem.errorString());
        return {};
    }
    FieldReader reader(document.object(), {}, warnings);
    if (reader.text(QStringLiteral("format")) != QLatin1String("vellora-show")) {
        *error = QCoreApplication::translate(
            "hostkit", "not a slideshow file: no \"format\": \"vellora-show\"");
        return {};
    }
    if (reader.number(QStringLiteral("version"), kVersion) > kVersion) {
        *error = QCoreApplication::translate("hostkit", "made by a newer version of this program");
        return {};
    }
    const QDir folder = realFile(file).absoluteDir();
    Show show;
    const QString project = reader.text(QStringLiteral("project"));
    show.namesProject = !project.isEmpty();
    show.projectPath = project.isEmpty() ? defaultProjectPath(file) : resolved(project, folder);
    const QJsonArray photos = reader.array(QStringLiteral("photos"));
    if (photos.size() > kMostPhotos) {
        *error = QCoreApplication::translate("hostkit", "has more than %1 photos").arg(kMostPhotos);
        return {};
    }
    show.unknown = reader.unread();
    show.photos.reserve(static_cast<std::size_t>(photos.size()));
    for (qsizetype k = 0; k < photos.size(); ++k) {
        // An entry that cannot be used keeps its place: the edits are matched by position.
        const QString place = QStringLiteral("photos[%1]").arg(k);
        show.photos.push_back(readPhoto({photos[k].toObject(), place, warnings}, folder));
        const QString& path = show.photos.back().path;
        if (path.isEmpty()) {
            warnings->append(
                QCoreApplication::translate("hostkit", "%1: names no photo").arg(place));
        } else if (!fitsRecord(path)) {
            warnings->append(
                QCoreApplication::translate("hostkit", "%1: the path is too long").arg(place));
        }
    }
    return show;
}

bool writeShow(const QString& file, const Show& show, QString* error) {
    const QDir folder = realFile(file).absoluteDir();
    QJsonArray photos;
    for (const ShowPhoto& photo : show.photos) {
        photos.append(photoObject(photo, folder));
    }
    QJsonObject object = show.unknown;
    object.insert(QStringLiteral("format"), QStringLiteral("vellora-show"));
    object.insert(QStringLiteral("version"), kVersion);
    object.insert(QStringLiteral("project"), relativeTo(folder, show.projectPath));
    object.insert(QStringLiteral("photos"), photos);

    QSaveFile target(file);
    const QByteArray text = QJsonDocument(object).toJson();
    // `commit` does not tell that the last part of the text could not be written.
    if (!target.open(QIODevice::WriteOnly) || target.write(text) != text.size() ||
        !target.flush() || !target.commit()) {
        *error = target.errorString();
        return false;
    }
    return true;
}

QString realPath(const QString& file) {
    const QFileInfo info(file);
    const QString real = info.canonicalFilePath();
    const QString folder = info.absoluteDir().canonicalPath();
    if (!real.isEmpty() || folder.isEmpty()) {
        return real.isEmpty() ? info.absoluteFilePath() : real;
    }
    return QDir(folder).filePath(info.fileName());
}

QString besideShow(const QString& showFile, const QString& ending) {
    const QFileInfo info = realFile(showFile);
    return info.absoluteDir().filePath(info.completeBaseName() + ending);
}

QString defaultProjectPath(const QString& showFile) {
    return besideShow(showFile, QStringLiteral(".xml"));
}

bool isShowFile(const QString& path) {
    return path.endsWith(QLatin1String(".vshow"), Qt::CaseInsensitive);
}

bool fitsRecord(const QString& path) {
    return path.size() < static_cast<qsizetype>(std::size(_PHOTO_LIST_NODE{}.path));
}

bool toRecord(const ShowPhoto& photo, _PHOTO_LIST_NODE& record) {
    setHostText(record.path, fitsRecord(photo.path) ? photo.path : QString());
    setHostText(record.title, photo.title);
    setHostText(record.description, photo.description);
    setHostText(record.link, photo.link);
    record.rotation = photo.rotation;
    record.flip_x = photo.flipX ? 1 : 0;
    record.flip_y = photo.flipY ? 1 : 0;
    record.background = photo.background;
    record.suppress_sprites = photo.suppressSprites ? 1 : 0;
    record.first_duration = photo.firstDuration;
    record.second_duration = photo.secondDuration;
    return fitsRecord(photo.path);
}

void fromRecord(const _PHOTO_LIST_NODE& record, ShowPhoto& photo) {
    photo.path = hostText(record.path);
    photo.title = hostText(record.title);
    photo.description = hostText(record.description);
    photo.link = hostText(record.link);
    photo.rotation = record.rotation;
    photo.flipX = record.flip_x != 0;
    photo.flipY = record.flip_y != 0;
    photo.background = record.background;
    photo.suppressSprites = record.suppress_sprites != 0;
    photo.firstDuration = record.first_duration;
    photo.secondDuration = record.second_duration;
}

}  // namespace vellora::hostkit
