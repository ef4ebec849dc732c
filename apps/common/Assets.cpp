#include "common/Assets.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace vellora::hostkit {
namespace {

constexpr char kEnvironmentName[] = "VELLORA_ASSETS";
constexpr int kLevelsAbove = 5;

bool holdsAssets(const QString& folder) {
    return QFileInfo(folder + QStringLiteral("/lang")).isDir();
}

/// "german" for a German system.
QString systemLanguage() {
    const QLocale locale(QLocale::system().uiLanguages().value(0));
    return QLocale::languageToString(locale.language()).toLower();
}

}  // namespace

QString assetsFolder() {
    if (const QString named = qEnvironmentVariable(kEnvironmentName); !named.isEmpty()) {
        return QDir(named).absolutePath();
    }
    QDir folder(QCoreApplication::applicationDirPath());
    const QString installed = folder.absoluteFilePath(QStringLiteral("../share/vellora"));
    if (holdsAssets(installed)) {
        return QDir::cleanPath(installed);
    }
    for (int level = 0; level < kLevelsAbove && folder.cdUp(); ++level) {
        if (const QString assets = folder.filePath(QStringLiteral("assets")); holdsAssets(assets)) {
            return assets;
        }
    }
    return QStringLiteral(".");
}

QString languageFileFor(const QString& choice) {
    if (choice.contains(QLatin1Char('/')) || choice.contains(QLatin1Char('\\'))) {
        return choice;
    }
    const QString name = choice == QLatin1String("auto") ? systemLanguage() : choice.toLower();
    const QString file = QStringLiteral("%1/lang/%2.ini").arg(assetsFolder(), name);
    return !name.isEmpty() && QFileInfo(file).isFile() ? file : QString();
}

}  // namespace vellora::hostkit
