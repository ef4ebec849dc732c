#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

namespace vellora::cli {

/// Names the results after their photos.
///
/// Each name is the photo's own with another suffix; where it is taken by an earlier result or by
/// one of the given files it gets a number. The names depend on nothing else: several processes
/// that share one list of photos come to the same names. A name that is too long for a file system
/// is shortened.
///
/// @param inputs    Files that no result may replace, beside the photos.
/// @param numbered  The names start with the place in the list, all with as many digits.
QStringList planResultNames(const QStringList& photos, const QStringList& inputs,
                            const QDir& folder, const QString& suffix, bool numbered = false);

/// "name.jpg" with a number: "name-2.jpg".
QString numberedName(const QString& name, int number);

}  // namespace vellora::cli
