#include "host/LanguageFile.h"

#include <QCoreApplication>
#include <algorithm>

#include "base/IniFile.h"
#include "base/XmlText.h"

namespace vellora {
namespace {

struct LanguageState {
    QString path;
    std::optional<IniFile> file;  // parsed at the first lookup
};

LanguageState& state() {
    static LanguageState language;
    return language;
}

bool leavesItsFolder(const QStringList& parts) {
    return std::ranges::any_of(parts, [](const QString& part) {
        return part.isEmpty() || part == u".." || part.contains(u':');
    });
}

}  // namespace

void setLanguageFilePath(const QString& path) {
    state() = {path, std::nullopt};
}

const QString& languageFilePath() {
    return state().path;
}

QString languageEntry(const QString& section, const QString& key, qsizetype limit) {
    LanguageState& language = state();
    if (language.path.isEmpty()) {
        return {};
    }
    if (!language.file) {
        language.file = IniFile::fromFile(language.path);
    }
    return xmlText(language.file->value(section, key).left(limit - 1));
}

std::optional<QString> languagePicturePath(const QString& name) {
    QString path = name;
    path.replace(u'\\', u'/');
    if (leavesItsFolder(path.split(u'/'))) {
        return std::nullopt;
    }
    return QCoreApplication::applicationDirPath() + QStringLiteral("/lang/") + path;
}

}  // namespace vellora
