#pragma once

#include <QString>
#include <QStringList>

#include <vellora/base/Types.h>

namespace vellora::desktop {

/// What the user chose for all shows; kept in the settings store.
struct Preferences {
    QString language;      ///< As `useLanguage` takes it; empty: the system's.
    QString assetsFolder;  ///< Holds "texteffect", "ArtClip" and "lang"; empty: the shipped ones.
    COLORREF background = 0;

    static Preferences load();
    void store() const;

    /// The folder that the module is given.
    [[nodiscard]] QString effectiveAssetsFolder() const;
};

/// The shows opened last, newest first: those that are there, or have left an automatic copy.
QStringList recentShows();
void rememberShow(const QString& path);

}  // namespace vellora::desktop
