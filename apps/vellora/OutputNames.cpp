#include "OutputNames.h"

#include <QFileInfo>
#include <QHash>
#include <QSet>

namespace vellora::cli {
namespace {

/// The files as they may be met in the folder: by name and by what a link leads to.
QSet<QString> pathsOf(const QStringList& files) {
    QSet<QString> paths;
    for (const QString& file : files) {
        const QFileInfo info(file);
        paths << info.absoluteFilePath() << info.canonicalFilePath();
    }
    return paths;
}

QString stemOf(const QString& photo) {
    const QFileInfo file(photo);
    const QString stem = file.completeBaseName();
    return stem.isEmpty() ? file.fileName() : stem;  // ".name" has no stem
}

}  // namespace

QString numberedName(const QString& name, int number) {
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return QStringLiteral("%1-%2%3").arg(name.left(dot)).arg(number).arg(name.mid(dot));
}

QStringList planResultNames(const QStringList& photos, const QStringList& inputs,
                            const QDir& folder, const QString& suffix, bool numbered) {
    const QSet<QString> protectedPaths = pathsOf(photos + inputs);
    const QString realFolder = folder.canonicalPath();
    const auto isInput = [&](const QString& name) {
        return protectedPaths.contains(folder.absoluteFilePath(name)) ||
               protectedPaths.contains(realFolder + QLatin1Char('/') + name);
    };
    QStringList names;
    QSet<QString> taken;
    QHash<QString, int> lastNumber;
    const auto digits = static_cast<int>(QString::number(photos.size()).size());
    for (const QString& photo : photos) {
        QString plain = stemOf(photo) + QLatin1Char('.') + suffix;
        if (numbered) {
            plain.prepend(
                QStringLiteral("%1-").arg(names.size() + 1, digits, 10, QLatin1Char('0')));
        }
        QString name = plain;
        while (taken.contains(name) || isInput(name)) {
            int& number = lastNumber[plain];
            number = number == 0 ? 2 : number + 1;
            name = numberedName(plain, number);
        }
        taken << name;
        names << name;
    }
    return names;
}

}  // namespace vellora::cli
