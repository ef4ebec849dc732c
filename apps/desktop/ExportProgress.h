#pragma once

#include <QDialog>
#include <QElapsedTimer>

#include "desktop/ExportJob.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace vellora::desktop {

/// Runs an export, shows how far it is, and sums it up.
class ExportProgress : public QDialog {
    Q_OBJECT

public:
    /// Starts a prepared job.
    ExportProgress(ExportJob& job, QWidget* parent);

    /// Asks to cancel while the export runs.
    void reject() override;

private:
    void showStep(int done, const QString& caption);
    void showSummary(int exported, const QStringList& failures, bool cancelled,
                     const QStringList& damaged);
    /// Puts a list of photos with a line above it over the button.
    void addList(const QString& heading, const QString& name, const QStringList& lines);

    QLabel* m_caption;
    QProgressBar* m_bar;
    QLabel* m_rate;
    QPushButton* m_button;
    QElapsedTimer m_clock;
    bool m_running = true;
    ExportJob& m_job;
};

}  // namespace vellora::desktop
