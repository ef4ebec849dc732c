#include "desktop/RenderQueue.h"

#include <algorithm>
#include <utility>

#include "common/Picture.h"
#include "common/ReducedPicture.h"

namespace vellora::desktop {
namespace {

QImage renderJob(const RenderJob& job) {
    if (!job.fullSize) {
        QImage reduced = hostkit::reducedPicture(*job.slide->node(), job.fit);
        if (!reduced.isNull()) {
            return reduced;
        }
    }
    const QImage picture = hostkit::finishedPicture(
        job.slide->node(), job.fullSize ? hostkit::Detail::Full : hostkit::Detail::Preview);
    // Decoded pictures of a long show would fill the memory.
    ReleaseImgBuf(job.slide->node());
    if (picture.isNull()) {
        job.slide->checkFile();
    }
    const bool fits = picture.width() <= job.fit.width() && picture.height() <= job.fit.height();
    return picture.isNull() || fits
               ? picture
               : picture.scaled(job.fit, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

RenderQueue::RenderQueue(int threads, QObject* parent) : QObject(parent) {
    for (int index = 0; index < threads; ++index) {
        m_threads.emplace_back([this] { run(); });
    }
}

RenderQueue::~RenderQueue() {
    {
        const std::lock_guard lock(m_mutex);
        m_stop = true;
        m_waiting.clear();
    }
    m_changed.notify_all();
    for (std::thread& thread : m_threads) {
        thread.join();
    }
}

void RenderQueue::request(RenderJob job) {
    {
        const std::lock_guard lock(m_mutex);
        const auto same = std::ranges::find(m_waiting, job.slide, &RenderJob::slide);
        if (same != m_waiting.end()) {
            *same = std::move(job);
        } else {
            m_waiting.push_back(std::move(job));
        }
    }
    m_changed.notify_one();
}

void RenderQueue::clear() {
    const std::lock_guard lock(m_mutex);
    m_waiting.clear();
}

void RenderQueue::keepOnly(const QSet<quint64>& slideIds) {
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_waiting,
                  [&](const RenderJob& job) { return !slideIds.contains(job.slide->id()); });
}

RenderQueue::Waiting::iterator RenderQueue::nextJob() {
    return m_pauses > 0 ? m_waiting.end()
                        : std::ranges::find_if(m_waiting, [this](const RenderJob& job) {
                              return !m_atWork.contains(job.slide->id());
                          });
}

void RenderQueue::run() {
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_stop || nextJob() != m_waiting.end(); });
        if (m_stop) {
            return;
        }
        const auto next = nextJob();
        const RenderJob job = std::move(*next);
        m_waiting.erase(next);
        m_atWork.insert(job.slide->id());
        lock.unlock();
        const QImage picture = renderJob(job);
        Q_EMIT rendered(job.slide->id(), picture);
        lock.lock();
        m_atWork.remove(job.slide->id());
        m_changed.notify_all();
    }
}

RenderQueue::Pause::Pause(RenderQueue& queue) : m_queue(queue) {
    std::unique_lock lock(m_queue.m_mutex);
    ++m_queue.m_pauses;
    m_queue.m_changed.wait(lock, [this] { return m_queue.m_atWork.isEmpty(); });
}

RenderQueue::Pause::~Pause() {
    {
        const std::lock_guard lock(m_queue.m_mutex);
        --m_queue.m_pauses;
    }
    m_queue.m_changed.notify_all();
}

}  // namespace vellora::desktop
