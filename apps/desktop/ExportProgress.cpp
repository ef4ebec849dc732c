#include "desktop/ExportProgress.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace vellora::desktop {
namespace {

QString timeLeft(qint64 milliseconds) {
    const qint64 seconds = (milliseconds + 999) / 1000;
    return seconds < 60
               ? ExportProgress::tr("%1 s left").arg(seconds)
               : ExportProgress::tr("%1 min %2 s left").arg(seconds / 60).arg(seconds % 60);
}

}  // namespace

ExportProgress::ExportProgress(ExportJob& job, QWidget* parent)
    : QDialog(parent),
      m_caption(new QLabel),
      m_bar(new QProgressBar),
      m_rate(new QLabel),
      m_button(new QPushButton(tr("Cancel"))),
      m_job(job) {
    setWindowTitle(tr("Export"));
    m_bar->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    m_bar->setRange(0, job.count());
    m_caption->setTextFormat(Qt::PlainText);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_caption);
    layout->addWidget(m_bar);
    layout->addWidget(m_rate);
    layout->addWidget(m_button, 0, Qt::AlignRight);
    connect(m_button, &QPushButton::clicked, this, &QDialog::reject);

    connect(&job, &ExportJob::progressed, this, &ExportProgress::showStep);
    connect(&job, &ExportJob::finished, this, &ExportProgress::showSummary);
    m_clock.start();
    job.start();
}

void ExportProgress::reject() {
    if (m_running) {
        m_job.cancel();
        m_button->setEnabled(false);
    } else {
        QDialog::reject();
    }
}

void ExportProgress::showStep(int done, const QString& caption) {
    m_bar->setValue(done);
    m_caption->setText(tr("%L1 of %L2: %3").arg(done).arg(m_bar->maximum()).arg(caption));
    if (m_button->isEnabled()) {
        const qint64 each = m_clock.elapsed() / done;
        m_rate->setText(
            tr("%L1 photos a minute, %2")
                .arg(60000.0 / static_cast<double>(std::max<qint64>(each, 1)), 0, 'f', 0)
                .arg(timeLeft(each * (m_bar->maximum() - done))));
    }
}

void ExportProgress::showSummary(int exported, const QStringList& failures, bool cancelled,
                                 const QStringList& damaged) {
    m_running = false;
    m_bar->setValue(exported + static_cast<int>(failures.size()));
    m_caption->setText(cancelled ? tr("Cancelled after %Ln picture(s).", nullptr, exported)
                                 : tr("%Ln picture(s) exported.", nullptr, exported));
    m_rate->hide();
    addList(tr("%Ln photo(s) could not be exported:", nullptr, static_cast<int>(failures.size())),
            QStringLiteral("failures"), failures);
    addList(tr("%Ln photo(s) could be read in part only, the file is damaged or ends early:",
               nullptr, static_cast<int>(damaged.size())),
            QStringLiteral("damaged"), damaged);
    m_button->setText(tr("Close"));
    m_button->setEnabled(true);
    m_button->setFocus();
}

void ExportProgress::addList(const QString& heading, const QString& name,
                             const QStringList& lines) {
    if (lines.isEmpty()) {
        return;
    }
    auto* list = new QPlainTextEdit(lines.join(QLatin1Char('\n')));
    list->setReadOnly(true);
    list->setObjectName(name);
    list->setAccessibleName(heading);
    auto* rows = static_cast<QVBoxLayout*>(layout());
    rows->insertWidget(rows->indexOf(m_button), new QLabel(heading));
    rows->insertWidget(rows->indexOf(m_button), list);
}

}  // namespace vellora::desktop
