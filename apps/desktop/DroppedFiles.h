#pragma once

#include <QList>
#include <QStringList>
#include <QUrl>

namespace vellora::desktop {

/// What was dropped into the window.
struct DroppedFiles {
    explicit DroppedFiles(const QList<QUrl>& urls);

    QStringList paths;
    QStringList refused;  ///< Addresses of what is not on this computer.
};

/// The files and folders in these folders whose names are no text: nothing can open them by name.
QStringList namelessFilesIn(const QStringList& folders);

}  // namespace vellora::desktop
