#pragma once

#include <QDir>
#include <QString>
#include <QTemporaryDir>
#include <memory>

#include "Interrupt.h"

namespace vellora::cli {

/// The folder of the results.
///
/// Results are made in a scratch folder inside it and appear under their names only when they are
/// complete; the scratch folder disappears at the end, also when the user interrupts.
class OutputFolder {
public:
    /// Makes the folder when it is missing. `problem` says what failed.
    OutputFolder(const QString& path, bool overwrite);

    /// Why nothing can be written here; empty when all is well.
    [[nodiscard]] const QString& problem() const { return m_problem; }
    [[nodiscard]] const QDir& dir() const { return m_dir; }

    /// Where to make the next result. What was left there is gone.
    [[nodiscard]] QString scratchFile(const QString& suffix);

    /// Gives a finished result its name, or the next free numbered one.
    /// @return The path of the result; empty when the folder refuses it.
    QString publish(const QString& scratchFile, const QString& name);

    /// "cannot be written ..." with what is known of the reason.
    [[nodiscard]] QString writeProblem() const;

private:
    QDir m_dir;
    bool m_overwrite;
    QString m_problem;
    InterruptCleanup m_cleanup;  // goes last, so that no moment is left unwatched
    std::unique_ptr<QTemporaryDir> m_scratch;
};

}  // namespace vellora::cli
