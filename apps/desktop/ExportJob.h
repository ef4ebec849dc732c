#pragma once

#include <QObject>
#include <QSize>
#include <QStringList>
#include <atomic>
#include <thread>
#include <vector>

#include "desktop/Slide.h"

namespace vellora::desktop {

/// How finished pictures are exported.
struct ExportOptions {
    enum Fit { Inside = 0, Fill = 1, Box = 100 };

    QString folder;
    QSize size;  ///< Empty: each photo's own size.
    Fit fit = Box;
    int quality = 90;
    bool numbered = true;  ///< Names start with the place in the show.
};

/// Exports the slides of a show on a thread of its own.
///
/// Until `finished` arrives the document belongs to this job: the window must neither edit nor
/// render it.
class ExportJob : public QObject {
    Q_OBJECT

public:
    ExportJob(CImageObj& document, std::vector<SlidePtr> slides, ExportOptions options,
              QObject* parent);
    /// Cancels and waits.
    ~ExportJob() override;

    void start();
    /// Stops behind the picture at hand.
    void cancel() { m_cancelled = true; }

Q_SIGNALS:
    /// The picture of a slide is next.
    void working(int done, const QString& caption);
    void finished(int exported, const QStringList& failures, bool cancelled);

private:
    void run();
    /// The reason of a failure; empty on success.
    QString exportSlide(int index);
    [[nodiscard]] QString freeName(int index) const;

    CImageObj& m_document;
    std::vector<SlidePtr> m_slides;
    ExportOptions m_options;
    std::atomic<bool> m_cancelled{false};
    std::thread m_thread;
};

}  // namespace vellora::desktop
