#include "desktop/ExportJob.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <algorithm>

#include <vellora/host/PhotoFile.h>

#include "desktop/ShowDocument.h"

namespace vellora::desktop {
namespace {

constexpr int kMostWorkers = 8;  // each holds a decoded photo
constexpr int kPatienceMs = 10'000;

/// The program that renders: beside this one, in the tree in which both were built, or wherever
/// the user's programs are.
QString renderProgram() {
    const QString name = QStringLiteral("vellora");
    const QDir own(QCoreApplication::applicationDirPath());
    const QString found = QStandardPaths::findExecutable(
        name, {own.path(), own.filePath(QStringLiteral("../vellora")),
               own.filePath(QStringLiteral("../apps/vellora"))});
    return found.isEmpty() ? name : found;
}

QString fitName(ExportOptions::Fit fit) {
    switch (fit) {
        case ExportOptions::Inside:
            return QStringLiteral("inside");
        case ExportOptions::Fill:
            return QStringLiteral("fill");
        default:
            return QStringLiteral("box");
    }
}

}  // namespace

/// A process that renders every n-th photo and tells of each in a line of JSON.
struct ExportJob::Worker {
    Worker(int first, int stride) : next(first), step(stride) {}

    QProcess process;
    int next;  ///< The slide of the next line.
    int step;
    bool running = true;
};

ExportJob::ExportJob(ExportOptions options, QObject* parent)
    : QObject(parent),
      m_options(std::move(options)),
      m_copy(QDir::temp().filePath(QStringLiteral("vellora-export-XXXXXX"))) {}

ExportJob::~ExportJob() {
    cancel();
    for (const auto& worker : m_workers) {
        worker->process.disconnect(this);
        worker->process.waitForFinished(kPatienceMs);
    }
}

bool ExportJob::prepare(ShowDocument& document, QString* error) {
    if (!m_copy.isValid()) {
        *error = m_copy.errorString();
        return false;
    }
    if (!document.saveCopy(m_copy.filePath(QStringLiteral("show.vshow")), error)) {
        return false;
    }
    for (const SlidePtr& slide : document.slides().slides()) {
        m_captions.append(slide->caption());
        m_paths.append(slide->path());
    }
    return true;
}

void ExportJob::start() {
    const int workers = std::min({std::max(QThread::idealThreadCount(), 1), kMostWorkers, count()});
    m_running = workers;
    if (workers == 0) {
        QMetaObject::invokeMethod(this, &ExportJob::sumUp, Qt::QueuedConnection);
    }
    for (int index = 0; index < workers; ++index) {
        startWorker(index, workers);
    }
}

QStringList ExportJob::arguments(int index, int count) const {
    QStringList result{QStringLiteral("render"),
                       QStringLiteral("--json"),
                       QStringLiteral("--quiet"),
                       QStringLiteral("--out"),
                       m_options.folder,
                       QStringLiteral("--quality"),
                       QString::number(m_options.quality),
                       QStringLiteral("--shard"),
                       QStringLiteral("%1/%2").arg(index + 1).arg(count)};
    if (m_options.numbered) {
        result << QStringLiteral("--numbered");
    }
    if (!m_options.size.isEmpty()) {
        result << QStringLiteral("--size")
               << QStringLiteral("%1x%2").arg(m_options.size.width()).arg(m_options.size.height())
               << QStringLiteral("--fit") << fitName(m_options.fit);
    }
    return result << m_copy.filePath(QStringLiteral("show.vshow"));
}

void ExportJob::startWorker(int index, int count) {
    auto& worker = *m_workers.emplace_back(std::make_unique<Worker>(index, count));
    QProcess& process = worker.process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // Together the processes keep the processors busy.
    environment.insert(QStringLiteral("OPENCV_FOR_THREADS_NUM"),
                       QString::number(std::max(1, QThread::idealThreadCount() / count)));
    if (!m_options.assetsFolder.isEmpty()) {
        environment.insert(QStringLiteral("VELLORA_ASSETS"), m_options.assetsFolder);
    }
    process.setProcessEnvironment(environment);
    process.setStandardErrorFile(QProcess::nullDevice());
    connect(&process, &QProcess::readyRead, this, [this, &worker] { readReports(worker); });
    const auto end = [this, &worker] { endWorker(worker); };
    connect(&process, &QProcess::finished, this, end, Qt::QueuedConnection);
    connect(
        &process, &QProcess::errorOccurred, this,
        [end](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart) {
                end();
            }
        },
        Qt::QueuedConnection);
    process.start(renderProgram(), arguments(index, count), QIODevice::ReadOnly);
}

void ExportJob::cancel() {
    m_cancelled = m_cancelled || m_running > 0;
    for (const auto& worker : m_workers) {
        worker->process.terminate();
    }
}

void ExportJob::readReports(Worker& worker) {
    while (worker.process.canReadLine()) {
        const QJsonObject report = QJsonDocument::fromJson(worker.process.readLine()).object();
        const bool succeeded = report.contains(QStringLiteral("result"));
        // A cancelled process fails with the picture at hand, which is no fault of the photo.
        if (worker.next < count() && (succeeded || !m_cancelled)) {
            if (report.value(QStringLiteral("damaged")).toBool()) {
                m_damaged.insert(worker.next);
            }
            noteDone(worker.next, succeeded ? QString() : reasonFor(worker.next));
            worker.next += worker.step;
        }
    }
}

QString ExportJob::reasonFor(int slide) const {
    PhotoInfo info;
    QString reason;
    if (!ReadPhotoInfo(m_paths[slide], &info, &reason)) {
        return reason;
    }
    return tr("the picture cannot be decoded, or %1 cannot be written")
        .arg(QDir::toNativeSeparators(m_options.folder));
}

void ExportJob::noteDone(int slide, const QString& failure) {
    if (!failure.isEmpty()) {
        m_failures[slide] = QStringLiteral("%1: %2").arg(m_captions[slide], failure);
    }
    ++m_done;
    Q_EMIT progressed(m_done, m_captions[slide]);
}

void ExportJob::endWorker(Worker& worker) {
    if (!std::exchange(worker.running, false)) {
        return;
    }
    readReports(worker);
    for (; !m_cancelled && worker.next < count(); worker.next += worker.step) {
        noteDone(worker.next, tr("the program that renders it does not run"));
    }
    if (--m_running == 0) {
        sumUp();
    }
}

void ExportJob::sumUp() {
    QStringList failures;
    for (const auto& [slide, failure] : m_failures) {
        failures.append(failure);
    }
    QStringList damaged;
    for (const int slide : m_damaged) {
        damaged.append(m_captions[slide]);
    }
    Q_EMIT finished(m_done - static_cast<int>(failures.size()), failures, m_done < count(),
                    damaged);
}

}  // namespace vellora::desktop
