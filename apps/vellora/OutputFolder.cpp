#include "OutputFolder.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <filesystem>

#include "Console.h"
#include "OutputNames.h"
#include "Paths.h"

namespace vellora::cli {
namespace {

namespace fs = std::filesystem;

fs::path native(const QString& path) {
    return fs::path(QFile::encodeName(path).toStdString());
}

enum class Claim { Done, NameTaken, Failed };

/// Moves a file to a name that nothing has, even if another process wants it too.
Claim moveToFreeName(const QString& from, const QString& to) {
    std::error_code error;
    fs::create_hard_link(native(from), native(to), error);
    if (!error) {
        fs::remove(native(from), error);
        return Claim::Done;
    }
    if (QFileInfo(to).isSymLink() || QFileInfo::exists(to)) {
        return Claim::NameTaken;
    }
    // A file system without links: whoever creates the name owns it.
    QFile claim(to);
    if (!claim.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        return QFileInfo::exists(to) ? Claim::NameTaken : Claim::Failed;
    }
    claim.close();
    fs::rename(native(from), native(to), error);
    if (error) {
        claim.remove();
        return Claim::Failed;
    }
    return Claim::Done;
}

}  // namespace

OutputFolder::OutputFolder(const QString& path, bool overwrite)
    : m_dir(absolutePathOf(path)), m_overwrite(overwrite) {
    if (QFileInfo::exists(m_dir.path()) && !QFileInfo(m_dir.path()).isDir()) {
        m_problem = QStringLiteral("'%1' is not a folder").arg(printable(path));
        return;
    }
    if (!m_dir.mkpath(QStringLiteral("."))) {
        m_problem = QStringLiteral("folder '%1' cannot be made").arg(printable(path));
        return;
    }
    m_scratch = std::make_unique<QTemporaryDir>(m_dir.filePath(QStringLiteral(".vellora-XXXXXX")));
    if (!m_scratch->isValid()) {
        m_problem = QStringLiteral("folder '%1' cannot be written to").arg(printable(path));
        return;
    }
    m_cleanup.watch(native(m_scratch->path()));
}

QString OutputFolder::scratchFile(const QString& suffix) {
    const QString path = m_scratch->filePath(QStringLiteral("picture.") + suffix);
    QFile::remove(path);
    return path;
}

QString OutputFolder::publish(const QString& scratchFile, const QString& name) {
    const auto undisturbed = m_cleanup.holdOff();
    if (m_overwrite) {
        const QString path = m_dir.filePath(name);
        std::error_code error;
        fs::rename(native(scratchFile), native(path), error);
        return error ? QString() : path;
    }
    QString path = m_dir.filePath(name);
    for (int number = 2;; ++number) {
        switch (moveToFreeName(scratchFile, path)) {
            case Claim::Done:
                return path;
            case Claim::Failed:
                return {};
            case Claim::NameTaken:
                path = m_dir.filePath(numberedName(name, number));
        }
    }
}

QString OutputFolder::writeProblem() const {
    const QStorageInfo disk(m_dir);
    QString problem =
        QStringLiteral("the result cannot be written to '%1'").arg(printable(m_dir.path()));
    if (disk.isValid()) {
        problem += QStringLiteral(" (%1 KiB free)").arg(disk.bytesAvailable() / 1024);
    }
    return problem;
}

}  // namespace vellora::cli
