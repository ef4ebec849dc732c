#include "desktop/ExportJob.h"

#include <QDir>
#include <QFileInfo>

#include <vellora/host/ImageObj.h>
#include <vellora/host/PhotoFile.h>

namespace vellora::desktop {

ExportJob::ExportJob(CImageObj& document, std::vector<SlidePtr> slides, ExportOptions options,
                     QObject* parent)
    : QObject(parent),
      m_document(document),
      m_slides(std::move(slides)),
      m_options(std::move(options)) {}

ExportJob::~ExportJob() {
    cancel();
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

void ExportJob::start() {
    m_thread = std::thread([this] { run(); });
}

void ExportJob::run() {
    QStringList failures;
    int done = 0;
    for (const SlidePtr& slide : m_slides) {
        if (m_cancelled) {
            break;
        }
        Q_EMIT working(done, slide->caption());
        const QString reason = exportSlide(done);
        if (!reason.isEmpty()) {
            failures.append(QStringLiteral("%1: %2").arg(slide->caption(), reason));
        }
        ++done;
    }
    Q_EMIT finished(done - static_cast<int>(failures.size()), failures,
                    done < static_cast<int>(m_slides.size()));
}

QString ExportJob::exportSlide(int index) {
    const Slide& slide = *m_slides[static_cast<std::size_t>(index)];
    QString reason;
    PhotoInfo info;
    if (!ReadPhotoInfo(slide.path(), &info, &reason)) {
        return reason;
    }
    const QString path = freeName(index);
    const STATUS status =
        m_document.SaveNodeToFile(path, index, m_options.size.width(), m_options.size.height(),
                                  m_options.quality, 0, m_options.fit, slide.record().background);
    ReleaseImgBuf(slide.node());
    if (status != S_OK || !QFileInfo::exists(path)) {
        return tr("the picture cannot be decoded, or %1 cannot be written")
            .arg(QDir::toNativeSeparators(path));
    }
    return {};
}

QString ExportJob::freeName(int index) const {
    const int digits = static_cast<int>(QString::number(m_slides.size()).size());
    QString base = QFileInfo(m_slides[static_cast<std::size_t>(index)]->path()).completeBaseName();
    if (m_options.numbered) {
        base = QStringLiteral("%1-%2").arg(index + 1, digits, 10, QLatin1Char('0')).arg(base);
    }
    const QDir folder(m_options.folder);
    QString path = folder.filePath(base + QStringLiteral(".jpg"));
    for (int copy = 2; QFileInfo::exists(path); ++copy) {
        path = folder.filePath(QStringLiteral("%1-%2.jpg").arg(base).arg(copy));
    }
    return path;
}

}  // namespace vellora::desktop
