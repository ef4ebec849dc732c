#include "OutputNames.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include "Paths.h"

namespace vellora::cli {
namespace {

constexpr qsizetype kLongestName = 255;  // bytes, on the usual file systems

/// A name made of a stem, which is shortened where both together are too long, and a tail.
QString fitted(QString stem, const QString& tail) {
    const qsizetype room = kLongestName - QFile::encodeName(tail).size();
    while (QFile::encodeName(stem).size() > room) {
        stem.chop(stem.back().isLowSurrogate() ? 2 : 1);
    }
    return stem + tail;
}

QString stemOf(const QString& photo) {
    const QFileInfo file(photo);
    const QString stem = file.completeBaseName();
    return stem.isEmpty() ? file.fileName() : stem;  // ".name" has no stem
}

}  // namespace

QString numberedName(const QString& name, int number) {
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return fitted(name.left(dot), QStringLiteral("-%1").arg(number) + name.mid(dot));
}

QStringList planResultNames(const QStringList& photos, const QStringList& inputs,
                            const QDir& folder, const QString& suffix, bool numbered) {
    const ProtectedFiles protectedFiles(photos + inputs);
    const auto isInput = [&](const QString& name) {
        return protectedFiles.holds(folder.absoluteFilePath(name));
    };
    QStringList names;
    QSet<QString> taken;
    QHash<QString, int> lastNumber;
    const auto digits = static_cast<int>(QString::number(photos.size()).size());
    for (const QString& photo : photos) {
        const QString place =
            numbered ? QStringLiteral("%1-").arg(names.size() + 1, digits, 10, QLatin1Char('0'))
                     : QString();
        const QString plain = fitted(place + stemOf(photo), QLatin1Char('.') + suffix);
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
