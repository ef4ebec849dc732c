#include "desktop/Thumbnails.h"

#include <QThread>
#include <algorithm>

namespace vellora::desktop {
namespace {

constexpr qsizetype kCacheBytes = 96 << 20;
constexpr int kMostThreads = 4;

}  // namespace

Thumbnails::Thumbnails(QObject* parent)
    : QObject(parent),
      m_pictures(kCacheBytes),
      m_queue(std::clamp(QThread::idealThreadCount(), 1, kMostThreads)) {
    connect(&m_queue, &RenderQueue::rendered, this, &Thumbnails::store, Qt::QueuedConnection);
}

void Thumbnails::setBox(QSize box) {
    if (box != m_box) {
        m_box = box;
        clear();
    }
}

QPixmap Thumbnails::picture(const SlidePtr& slide) {
    const QPixmap* known = m_pictures.object(slide->id());
    const bool wanted = known == nullptr || m_outdated.contains(slide->id());
    if (wanted && !slide->isMissing() && !isUnreadable(slide->id())) {
        m_queue.request({slide, m_box, false});
    }
    return known != nullptr ? *known : QPixmap();
}

void Thumbnails::invalidate(quint64 slideId) {
    m_outdated.insert(slideId);
    m_unreadable.remove(slideId);
    Q_EMIT updated(slideId);
}

void Thumbnails::clear() {
    m_queue.clear();
    m_pictures.clear();
    m_outdated.clear();
    m_unreadable.clear();
}

void Thumbnails::store(quint64 slideId, const QImage& picture) {
    m_outdated.remove(slideId);
    if (picture.isNull()) {
        m_unreadable.insert(slideId);
        m_pictures.remove(slideId);
    } else {
        m_pictures.insert(slideId, new QPixmap(QPixmap::fromImage(picture)), picture.sizeInBytes());
    }
    Q_EMIT updated(slideId);
}

}  // namespace vellora::desktop
