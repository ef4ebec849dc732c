#pragma once

#include <QByteArray>
#include <QSaveFile>
#include <QString>

namespace vellora {

/// Replaces a file with new contents without ever losing the old one.
///
/// The contents are written to a file beside the target, flushed to the disk and renamed over it by
/// `Commit`. Until then, and after any failure, the old file is as it was and no other file is
/// left. A target that is read-only or a folder is refused.
class SafeFile {
public:
    explicit SafeFile(const QString& path);
    SafeFile(const SafeFile&) = delete;
    SafeFile& operator=(const SafeFile&) = delete;

    /// Creates the new file. While another program holds a lock on the target this is tried again
    /// after 250 ms, five times in all.
    bool Open();

    /// Writes all bytes, or fails.
    bool Write(const QByteArray& bytes);

    /// Swaps the new file in. Without it the destructor discards what was written.
    bool Commit();

    /// What failed last, for a developer's eye; nothing shows it.
    [[nodiscard]] const QString& Diagnosis() const { return m_diagnosis; }

private:
    QSaveFile m_file;
    QString m_diagnosis;
};

}  // namespace vellora
