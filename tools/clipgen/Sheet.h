#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

namespace vellora::clipgen {

/// One style of a sheet: its name and the paths of its clips.
struct SheetRow {
    QString title;
    QStringList clips;
};

/// A picture of all clips, each over a light and over a dark photo. Clips are read back from
/// their files, as a user sees them.
QImage drawSheet(const QList<SheetRow>& rows);

}  // namespace vellora::clipgen
