#pragma once

/// @file
/// The slideshow file of the sample hosts (`*.vshow`): JSON that lists the photos and names the
/// project file with their edits. docs/file-format.md describes it.

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include <vellora/base/PhotoListNode.h>
#include <vellora/base/Types.h>

namespace vellora::hostkit {

/// One photo of a show: what a host record holds, in the host's own terms.
struct ShowPhoto {
    QString path;  ///< Absolute; relative to the show in the file.
    int rotation = 0;
    bool flipX = false;
    bool flipY = false;
    QString title;
    QString description;
    QString link;
    COLORREF background = 0;
    bool suppressSprites = false;
    int firstDuration = 2;   ///< Seconds that the photo is shown.
    int secondDuration = 2;  ///< Seconds of the change to the next photo.
    QJsonObject unknown;     ///< Keys of other programs, written back as they came.
};

/// A slideshow.
struct Show {
    QString projectPath;        ///< The project file with the edits; absolute.
    bool namesProject = false;  ///< Whether the file says which; else there may be no edits yet.
    std::vector<ShowPhoto> photos;
    QJsonObject unknown;  ///< Keys of other programs, written back as they came.
};

/// Reads a show.
///
/// @param warnings  Receives a line for each value that had to be left out, naming its place.
/// @param error     Receives the reason when there is no show, with line and column of bad JSON.
std::optional<Show> readShow(const QString& file, QStringList* warnings, QString* error);

/// Writes a show beside its photos; the old file stays until the new one is complete.
/// @return False with the reason in `error`.
bool writeShow(const QString& file, const Show& show, QString* error);

/// The project file that belongs to a new show: beside it, with the ending "xml".
QString defaultProjectPath(const QString& showFile);

/// Whether a path names a show by its ending.
bool isShowFile(const QString& path);

/// The path of a file, which need not be there yet, without links.
QString realPath(const QString& file);

/// A file beside a show with its name and another ending; beside the file itself for a link.
QString besideShow(const QString& showFile, const QString& ending);

/// Whether the path of a photo is short enough for a host record.
bool fitsRecord(const QString& path);

/// Fills the fields of a host record that a show keeps.
/// @return False when the path is longer than the record can hold; it is then left empty, which
///         makes a photo that cannot be found.
bool toRecord(const ShowPhoto& photo, _PHOTO_LIST_NODE& record);

/// Reads the fields back, for instance after the edit dialog; `unknown` stays as it is.
void fromRecord(const _PHOTO_LIST_NODE& record, ShowPhoto& photo);

}  // namespace vellora::hostkit
