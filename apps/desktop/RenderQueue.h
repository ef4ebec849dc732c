#pragma once

#include <QImage>
#include <QObject>
#include <QSize>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include "desktop/Slide.h"

namespace vellora::desktop {

/// What to render.
struct RenderJob {
    SlidePtr slide;
    QSize fit;              ///< The finished picture is reduced to fit, in device pixels.
    bool fullSize = false;  ///< Decode at full size instead of the preview's.
};

/// Renders slides one after another on a thread of its own. The newest request comes first:
/// it is what the user looks at now.
class RenderQueue : public QObject {
    Q_OBJECT

public:
    explicit RenderQueue(QObject* parent = nullptr);
    ~RenderQueue() override;

    /// Asks for a picture. A request for a slide that waits already replaces the waiting one;
    /// beyond `kLongest` waiting requests the oldest is dropped.
    void request(RenderJob job);
    /// Forgets what waits.
    void clear();

    /// While it lives, nothing is rendered: its constructor waits for the picture at hand.
    class Pause {
    public:
        explicit Pause(RenderQueue& queue);
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        RenderQueue& m_queue;
    };

    static constexpr std::size_t kLongest = 256;

Q_SIGNALS:
    /// A picture is ready; null when the photo cannot be shown.
    void rendered(quint64 slideId, QImage picture);

private:
    void run();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<RenderJob> m_waiting;
    int m_pauses = 0;
    bool m_busy = false;
    bool m_stop = false;
    std::thread m_thread;
};

}  // namespace vellora::desktop
