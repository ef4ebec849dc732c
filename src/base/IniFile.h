#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

namespace vellora {

/// An INI file, parsed once and asked by map access.
///
/// Sections and keys are found without regard to letter case; where a key comes twice the first
/// one counts. Values keep their backslashes and lose the blanks and one pair of quotes around
/// them. UTF-8 and UTF-16 files are read, with or without a byte order mark; bytes that are no
/// UTF-8 are taken as Latin-1. A file that is missing or larger than 16 MiB is empty.
class IniFile {
public:
    IniFile() = default;

    static IniFile fromFile(const QString& path);
    static IniFile fromBytes(const QByteArray& bytes);

    /// The value, empty when there is none.
    [[nodiscard]] QString value(const QString& section, const QString& key) const;
    /// The keys of a section in lower case, sorted.
    [[nodiscard]] QStringList keys(const QString& section) const;
    /// The sections in lower case, sorted.
    [[nodiscard]] QStringList sections() const;

private:
    using Section = QHash<QString, QString>;

    QHash<QString, Section> m_sections;
};

}  // namespace vellora
