#pragma once

#include <QTimer>
#include <QVariantAnimation>
#include <QWidget>
#include <map>
#include <vector>

#include "desktop/RenderQueue.h"

namespace vellora::desktop {

/// Plays the show on the full screen with a plain cross-fade, as long as the photo that goes asks
/// for. Space halts and goes on, the arrow
/// keys change the photo, Escape ends.
class Player : public QWidget {
    Q_OBJECT

public:
    Player(std::vector<SlidePtr> slides, int first, QWidget* parent);

    /// Which slide is on the screen.
    [[nodiscard]] int current() const { return m_current; }
    [[nodiscard]] bool isHalted() const { return m_halted; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void goTo(int index);
    void advance();
    void halt(bool halted);
    /// The next photo comes after so many milliseconds, counted from the end of the fade.
    void startClock(int delay);
    void requestAround();
    void store(quint64 slideId, const QImage& picture);
    void showCurrent();
    [[nodiscard]] const Slide& slide(int index) const;
    void paintPicture(QPainter& painter, const QImage& picture, double opacity) const;

    std::vector<SlidePtr> m_slides;
    int m_current;
    int m_onScreen = -1;  ///< The slide of `m_shown`: its transition leads to the next one.
    bool m_halted = false;
    bool m_awaited = true;
    QImage m_shown;
    QImage m_previous;
    std::map<quint64, QImage> m_ready;
    QVariantAnimation m_fade;
    QTimer m_clock;
    RenderQueue m_queue;
};

}  // namespace vellora::desktop
