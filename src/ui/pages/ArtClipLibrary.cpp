#include "ui/pages/ArtClipLibrary.h"

#include <QDir>
#include <QFileInfo>
#include <limits>
#include <map>

#include "base/IniFile.h"

namespace vellora {
namespace {

constexpr qsizetype kMaxTextLength = 259;
constexpr qsizetype kMaxDigits = 10;

/// The number at the start of a text, as profile integers are read; 0 without one.
int leadingNumber(const QString& text) {
    qsizetype end = 0;
    while (end < text.size() && end < kMaxDigits && text[end] >= u'0' && text[end] <= u'9') {
        ++end;
    }
    return static_cast<int>(
        std::min<qint64>(text.left(end).toLongLong(), std::numeric_limits<int>::max()));
}

/// The sections of styles by number. The count in the file is only an upper bound.
std::map<int, QString> styleSections(const IniFile& ini) {
    std::map<int, QString> sections;
    const int count =
        leadingNumber(ini.value(QStringLiteral("Base"), QStringLiteral("StyleCount")));
    for (const QString& section : ini.sections()) {
        const int number = leadingNumber(section.mid(5));
        if (number >= 1 && number <= count && section == QStringLiteral("style%1").arg(number)) {
            sections.emplace(number, section);
        }
    }
    return sections;
}

}  // namespace

QString artClipFolder(const QString& baseFolder) {
    return QDir(baseFolder).absoluteFilePath(QStringLiteral("ArtClip"));
}

std::vector<ArtClipStyle> readArtClipStyles(const QString& baseFolder) {
    const QDir folder(artClipFolder(baseFolder));
    const IniFile ini = IniFile::fromFile(folder.filePath(QStringLiteral("artclip.ini")));
    std::vector<ArtClipStyle> styles;
    for (const auto& [number, section] : styleSections(ini)) {
        const QString name = ini.value(section, QStringLiteral("Name")).left(kMaxTextLength);
        const QString path = ini.value(section, QStringLiteral("Path")).left(kMaxTextLength);
        if (!name.isEmpty() && !path.isEmpty()) {
            styles.push_back({name, path});
        }
    }
    return styles;
}

QStringList listArtClips(const QString& baseFolder, const ArtClipStyle& style) {
    QString path = style.path;
    const QDir folder(artClipFolder(baseFolder) + u'/' + path.replace(u'\\', u'/'));
    QStringList clips;
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files, QDir::Name | QDir::IgnoreCase)) {
        const QString extension = file.suffix();
        if (extension.compare(u"WMF", Qt::CaseInsensitive) == 0 ||
            extension.compare(u"EMF", Qt::CaseInsensitive) == 0) {
            clips << file.absoluteFilePath();
        }
    }
    return clips;
}

}  // namespace vellora
