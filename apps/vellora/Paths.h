#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

namespace vellora::cli {

/// The absolute path of a file, as the system would find it: ".." behind a link to a folder leads
/// out of the folder that the link names.
QString absolutePathOf(const QString& file);

/// Files that a command reads and that nothing it writes may replace, known by their names and by
/// what links lead to.
class ProtectedFiles {
public:
    explicit ProtectedFiles(const QStringList& files);

    /// Whether writing to a path would replace one of them.
    [[nodiscard]] bool holds(const QString& path) const;

    /// @param option  Names the target in the message.
    /// @throws UsageError when it would.
    void refuse(const QString& path, const QString& option) const;

private:
    QSet<QString> m_paths;
};

/// Why a file that should be read must not even be opened: a pipe might keep the program waiting
/// for ever. Empty for a regular file, and for what opening it will complain about.
QString irregularity(const QString& file);

}  // namespace vellora::cli
