#include "desktop/Player.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>

namespace vellora::desktop {
namespace {

constexpr int kShortestMs = 1000;
constexpr int kOpeningMs = 1000;  // nothing changes to the first photo
constexpr int kDefaultSeconds = 2;
constexpr int kMostSeconds = 86400;  // the sum of two, in milliseconds, fits a number

int milliseconds(std::int32_t seconds) {
    return (seconds < 1 ? kDefaultSeconds : std::min(seconds, kMostSeconds)) * 1000;
}

}  // namespace

Player::Player(std::vector<SlidePtr> slides, int first, QWidget* parent)
    : QWidget(parent, Qt::Window), m_slides(std::move(slides)), m_current(first), m_queue(1) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal);  // its thread renders the photos of the show
    setAttribute(Qt::WA_OpaquePaintEvent);
    setWindowTitle(tr("Slideshow"));
    setCursor(Qt::BlankCursor);
    m_clock.setSingleShot(true);
    m_fade.setStartValue(0.0);
    m_fade.setEndValue(1.0);
    connect(&m_clock, &QTimer::timeout, this, &Player::advance);
    connect(&m_fade, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(&m_queue, &RenderQueue::rendered, this, &Player::store, Qt::QueuedConnection);
}

const Slide& Player::slide(int index) const {
    return *m_slides[static_cast<std::size_t>(index)];
}

void Player::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    requestAround();
}

void Player::requestAround() {
    // A window manager makes the window as large as the screen some time after it is shown.
    const QSize pixels = (QSizeF(screen()->size()) * devicePixelRatioF()).toSize();
    std::map<quint64, QImage> kept;
    m_queue.clear();
    for (const int index : {m_current, m_current + 1, m_current - 1}) {
        if (index < 0 || index >= static_cast<int>(m_slides.size())) {
            continue;
        }
        const auto known = m_ready.find(slide(index).id());
        if (known != m_ready.end()) {
            kept.insert(*known);
        } else {
            m_queue.request({m_slides[static_cast<std::size_t>(index)], pixels, true});
        }
    }
    m_ready = std::move(kept);
    if (m_ready.count(slide(m_current).id()) != 0) {
        showCurrent();
    }
}

void Player::store(quint64 slideId, const QImage& picture) {
    m_ready[slideId] = picture;
    if (m_awaited && slideId == slide(m_current).id()) {
        showCurrent();
    }
}

void Player::showCurrent() {
    if (!m_awaited) {
        return;
    }
    m_awaited = false;
    m_previous = m_shown;
    m_shown = m_ready[slide(m_current).id()];
    m_fade.stop();
    m_fade.setDuration(m_onScreen < 0 ? kOpeningMs
                                      : milliseconds(slide(m_onScreen).record().second_duration));
    m_onScreen = m_current;
    m_fade.start();
    if (!m_halted) {
        startClock(milliseconds(slide(m_current).record().first_duration));
    }
}

void Player::goTo(int index) {
    if (index < 0 || index >= static_cast<int>(m_slides.size())) {
        return;
    }
    m_clock.stop();
    m_current = index;
    m_awaited = true;
    requestAround();
}

void Player::advance() {
    if (m_current + 1 < static_cast<int>(m_slides.size())) {
        goTo(m_current + 1);
    } else {
        close();
    }
}

void Player::halt(bool halted) {
    m_halted = halted;
    m_clock.stop();
    // A photo that is still being made starts the clock when it is on the screen.
    if (!halted && !m_awaited) {
        startClock(kShortestMs);
    }
    update();
}

void Player::startClock(int delay) {
    const bool fades = m_fade.state() == QAbstractAnimation::Running;
    m_clock.start(delay + (fades ? m_fade.duration() - m_fade.currentTime() : 0));
}

void Player::paintPicture(QPainter& painter, const QImage& picture, double opacity) const {
    if (picture.isNull() || opacity <= 0.0) {
        return;
    }
    QSizeF extent = QSizeF(picture.size()) / devicePixelRatioF();
    if (extent.width() > width() || extent.height() > height()) {
        extent.scale(size(), Qt::KeepAspectRatio);
    }
    QRectF target({}, extent);
    target.moveCenter(QRectF(rect()).center());
    painter.setOpacity(opacity);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, picture);
}

void Player::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    const double progress = m_fade.currentValue().toDouble();
    paintPicture(painter, m_previous, 1.0 - progress);
    paintPicture(painter, m_shown, progress);
    painter.setOpacity(1.0);
    if (m_shown.isNull() && !m_awaited) {
        painter.setPen(Qt::lightGray);
        painter.drawText(rect(), Qt::AlignCenter,
                         tr("%1 cannot be shown").arg(slide(m_current).caption()));
    }
    if (m_halted) {
        painter.fillRect(QRect(32, 32, 8, 28), QColor(255, 255, 255, 180));
        painter.fillRect(QRect(48, 32, 8, 28), QColor(255, 255, 255, 180));
    }
}

void Player::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            close();
            break;
        case Qt::Key_Space:
            halt(!m_halted);
            break;
        case Qt::Key_Right:
        case Qt::Key_Down:
        case Qt::Key_PageDown:
            goTo(m_current + 1);
            break;
        case Qt::Key_Left:
        case Qt::Key_Up:
        case Qt::Key_PageUp:
            goTo(m_current - 1);
            break;
        case Qt::Key_Home:
            goTo(0);
            break;
        case Qt::Key_End:
            goTo(static_cast<int>(m_slides.size()) - 1);
            break;
        default:
            QWidget::keyPressEvent(event);
    }
}

void Player::mousePressEvent(QMouseEvent* /*event*/) {
    goTo(m_current + 1);
}

}  // namespace vellora::desktop
