#include "base/IniFile.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

// The texts are UTF-8 throughout, and the parser is compiled in here.
#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>

namespace vellora {
namespace {

constexpr qint64 kMaxFileSize = qint64{16} << 20;

QString decoded(const QByteArray& bytes) {
    auto encoding = QStringConverter::encodingForData(bytes, u'[');
    if (!encoding) {
        encoding = QStringConverter::encodingForData(bytes, u';');
    }
    QStringDecoder decoder(encoding.value_or(QStringConverter::Utf8));
    QString text = decoder.decode(bytes);
    if (!encoding && decoder.hasError()) {
        text = QString::fromLatin1(bytes);
    }
    return text.remove(QChar(u'\0'));
}

QString unquoted(const QString& value) {
    const bool isQuoted = value.size() >= 2 && value.front() == value.back() &&
                          (value.front() == u'"' || value.front() == u'\'');
    return isQuoted ? value.sliced(1, value.size() - 2) : value;
}

}  // namespace

IniFile IniFile::fromFile(const QString& path) {
    QFile file(path);
    if (path.isEmpty() || QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly) ||
        file.isSequential() || file.size() > kMaxFileSize) {
        return {};
    }
    return fromBytes(file.readAll());
}

IniFile IniFile::fromBytes(const QByteArray& bytes) {
    const QByteArray text = decoded(bytes).toUtf8();
    CSimpleIniA parser(true, true);
    IniFile file;
    if (parser.LoadData(text.constData(), static_cast<std::size_t>(text.size())) < 0) {
        return file;
    }
    CSimpleIniA::TNamesDepend sections;
    parser.GetAllSections(sections);
    for (const auto& section : sections) {
        Section& entries = file.m_sections[QString::fromUtf8(section.pItem).toLower()];
        CSimpleIniA::TNamesDepend keys;
        parser.GetAllKeys(section.pItem, keys);
        for (const auto& key : keys) {
            const QString name = QString::fromUtf8(key.pItem).toLower();
            if (!entries.contains(name)) {
                const char* value = parser.GetValue(section.pItem, key.pItem, "");
                entries.insert(name, unquoted(QString::fromUtf8(value)));
            }
        }
    }
    return file;
}

QString IniFile::value(const QString& section, const QString& key) const {
    const auto found = m_sections.constFind(section.toLower());
    return found != m_sections.cend() ? found->value(key.toLower()) : QString();
}

QStringList IniFile::keys(const QString& section) const {
    QStringList names = m_sections.value(section.toLower()).keys();
    names.sort();
    return names;
}

QStringList IniFile::sections() const {
    QStringList names = m_sections.keys();
    names.sort();
    return names;
}

}  // namespace vellora
