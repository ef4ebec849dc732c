#include "desktop/RenderQueue.h"

#include <utility>

#include "common/Picture.h"

namespace vellora::desktop {
namespace {

QImage renderJob(const RenderJob& job) {
    const QImage picture = hostkit::finishedPicture(
        job.slide->node(), job.fullSize ? hostkit::Detail::Full : hostkit::Detail::Preview);
    // Decoded pictures of a long show would fill the memory.
    ReleaseImgBuf(job.slide->node());
    const bool fits = picture.width() <= job.fit.width() && picture.height() <= job.fit.height();
    return picture.isNull() || fits
               ? picture
               : picture.scaled(job.fit, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

RenderQueue::RenderQueue(QObject* parent) : QObject(parent), m_thread([this] { run(); }) {}

RenderQueue::~RenderQueue() {
    {
        const std::lock_guard lock(m_mutex);
        m_stop = true;
        m_waiting.clear();
    }
    m_changed.notify_all();
    m_thread.join();
}

void RenderQueue::request(RenderJob job) {
    {
        const std::lock_guard lock(m_mutex);
        std::erase_if(m_waiting, [&](const RenderJob& other) { return other.slide == job.slide; });
        m_waiting.push_front(std::move(job));
        if (m_waiting.size() > kLongest) {
            m_waiting.pop_back();
        }
    }
    m_changed.notify_all();
}

void RenderQueue::clear() {
    const std::lock_guard lock(m_mutex);
    m_waiting.clear();
}

void RenderQueue::run() {
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_stop || (m_pauses == 0 && !m_waiting.empty()); });
        if (m_stop) {
            return;
        }
        const RenderJob job = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_busy = true;
        lock.unlock();
        const QImage picture = renderJob(job);
        Q_EMIT rendered(job.slide->id(), picture);
        lock.lock();
        m_busy = false;
        m_changed.notify_all();
    }
}

RenderQueue::Pause::Pause(RenderQueue& queue) : m_queue(queue) {
    std::unique_lock lock(m_queue.m_mutex);
    ++m_queue.m_pauses;
    m_queue.m_changed.wait(lock, [this] { return !m_queue.m_busy; });
}

RenderQueue::Pause::~Pause() {
    {
        const std::lock_guard lock(m_queue.m_mutex);
        --m_queue.m_pauses;
    }
    m_queue.m_changed.notify_all();
}

}  // namespace vellora::desktop
