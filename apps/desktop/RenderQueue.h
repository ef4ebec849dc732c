#pragma once

#include <QImage>
#include <QObject>
#include <QSet>
#include <QSize>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

#include "desktop/Slide.h"

namespace vellora::desktop {

/// What to render.
struct RenderJob {
    SlidePtr slide;
    QSize fit;              ///< The finished picture is reduced to fit, in device pixels.
    bool fullSize = false;  ///< Decode at full size instead of the preview's.
};

/// Renders slides on threads of its own, in the order in which they were asked for.
class RenderQueue : public QObject {
    Q_OBJECT

public:
    explicit RenderQueue(int threads, QObject* parent = nullptr);
    ~RenderQueue() override;

    /// Asks for a picture. A slide that waits already keeps its place.
    void request(RenderJob job);
    /// Forgets what waits.
    void clear();
    /// Forgets what waits, except for some slides.
    void keepOnly(const QSet<quint64>& slideIds);

    /// While it lives, nothing is rendered: its constructor waits for the pictures at hand.
    class Pause {
    public:
        explicit Pause(RenderQueue& queue);
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        RenderQueue& m_queue;
    };

Q_SIGNALS:
    /// A picture is ready; null when the photo cannot be shown.
    void rendered(quint64 slideId, QImage picture);

private:
    using Waiting = std::deque<RenderJob>;

    void run();
    /// The first job whose slide no other thread works on: pictures of a slide come in order.
    Waiting::iterator nextJob();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    Waiting m_waiting;
    QSet<quint64> m_atWork;
    int m_pauses = 0;
    bool m_stop = false;
    std::vector<std::thread> m_threads;
};

}  // namespace vellora::desktop
