#pragma once

#include <QCache>
#include <QObject>
#include <QPixmap>
#include <QSet>

#include "desktop/RenderQueue.h"

namespace vellora::desktop {

/// The finished pictures of slides in small, made when they are first looked at. Only the most
/// recent ones are kept.
class Thumbnails : public QObject {
    Q_OBJECT

public:
    explicit Thumbnails(QObject* parent = nullptr);

    /// The box that a thumbnail fits, in device pixels.
    void setBox(QSize box);
    /// The picture, or null while it is being made; `updated` follows then.
    QPixmap picture(const SlidePtr& slide);
    /// Whether the photo turned out not to be readable.
    [[nodiscard]] bool isUnreadable(quint64 slideId) const {
        return m_unreadable.contains(slideId);
    }
    /// The slide has changed. The old picture is shown until the new one is there.
    void invalidate(quint64 slideId);
    void clear();
    /// Those of other slides are made when they are looked at again.
    void keepOnly(const QSet<quint64>& slideIds) { m_queue.keepOnly(slideIds); }

    [[nodiscard]] RenderQueue& queue() { return m_queue; }

Q_SIGNALS:
    void updated(quint64 slideId);

private:
    void store(quint64 slideId, const QImage& picture);

    QSize m_box{200, 150};
    QCache<quint64, QPixmap> m_pictures;
    QSet<quint64> m_outdated;
    QSet<quint64> m_unreadable;
    RenderQueue m_queue;
};

}  // namespace vellora::desktop
