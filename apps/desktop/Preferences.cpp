#include "desktop/Preferences.h"

#include <QFileInfo>
#include <QSettings>

#include "common/Assets.h"
#include "desktop/Autosave.h"

namespace vellora::desktop {
namespace {

constexpr int kRecentShows = 8;
const QString kLanguageKey = QStringLiteral("preferences/language");
const QString kAssetsKey = QStringLiteral("preferences/assetsFolder");
const QString kBackgroundKey = QStringLiteral("preferences/background");
const QString kRecentKey = QStringLiteral("recentShows");

}  // namespace

Preferences Preferences::load() {
    const QSettings settings;
    Preferences result;
    result.language = settings.value(kLanguageKey).toString();
    result.assetsFolder = settings.value(kAssetsKey).toString();
    result.background = settings.value(kBackgroundKey, 0U).toUInt() & 0x00FFFFFFU;
    return result;
}

void Preferences::store() const {
    QSettings settings;
    settings.setValue(kLanguageKey, language);
    settings.setValue(kAssetsKey, assetsFolder);
    settings.setValue(kBackgroundKey, background);
}

QString Preferences::effectiveAssetsFolder() const {
    return assetsFolder.isEmpty() ? hostkit::assetsFolder() : assetsFolder;
}

QStringList recentShows() {
    QStringList shows = QSettings().value(kRecentKey).toStringList();
    shows.removeIf([](const QString& path) {
        return !QFileInfo::exists(path) && Autosave::copiesOf(path).isEmpty();
    });
    return shows;
}

void rememberShow(const QString& path) {
    // With those that are not there at the moment: their disk may come back.
    QStringList shows = QSettings().value(kRecentKey).toStringList();
    shows.removeAll(path);
    shows.prepend(path);
    QSettings().setValue(kRecentKey, QStringList(shows.mid(0, kRecentShows)));
}

}  // namespace vellora::desktop
