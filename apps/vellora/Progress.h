#pragma once

#include <QString>

namespace vellora::cli {

/// A line that counts the photos while a person watches standard error; silent otherwise.
class Progress {
public:
    Progress(qsizetype total, bool quiet);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Shows that a photo, counted from 1, is being worked on.
    void show(qsizetype number, const QString& name);
    /// Makes room for another line.
    void clear();

private:
    qsizetype m_total;
    bool m_shown;
    bool m_escapes;
    qsizetype m_width = 0;
};

}  // namespace vellora::cli
