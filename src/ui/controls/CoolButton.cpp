#include "ui/controls/CoolButton.h"

#include <QEvent>
#include <QPainter>

#include "ui/skin/Skin.h"

namespace vellora {
namespace {

constexpr int kIconSide = 20;
constexpr int kPadding = 4;

}  // namespace

CCoolButton::CCoolButton(skin::Icon icon, QWidget* parent)
    : QAbstractButton(parent), m_icon(icon), m_frameColour(skin::kBorder) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

QSize CCoolButton::sizeHint() const {
    const QFontMetrics metrics(font());
    const int caption = text().isEmpty() ? 0 : metrics.height();
    const int width = text().isEmpty() ? kIconSide : metrics.horizontalAdvance(text());
    return {std::max(kIconSide, width) + 4 * kPadding, kIconSide + caption + 2 * kPadding};
}

bool CCoolButton::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        update();
    }
    return QAbstractButton::event(event);
}

void CCoolButton::PaintFace(QPainter& painter) const {
    const QRect face = rect().adjusted(2, 1, -2, -1);
    if (isEnabled() && isDown()) {
        skin::drawFace(painter, face, skin::kPressed, m_frameColour);
    } else if (isEnabled() && underMouse()) {
        skin::drawFace(painter, face, skin::kHover, m_frameColour);
    }
    if (hasFocus()) {
        skin::drawFocusRing(painter, face);
    }
}

void CCoolButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    PaintFace(painter);
    const QColor ink = isEnabled() ? skin::kText : skin::kDisabledText;
    QRect icon = rect();
    if (!text().isEmpty()) {
        const int captionHeight = fontMetrics().height();
        const int top = (height() - kIconSide - captionHeight) / 2;
        icon = {0, top, width(), kIconSide};
        painter.setPen(ink);
        skin::drawElided(painter,
                         {kPadding, top + kIconSide, width() - 2 * kPadding, captionHeight},
                         Qt::AlignHCenter | Qt::AlignVCenter, text());
    }
    const int side = std::min({kIconSide, icon.width(), icon.height()});
    QRect square(0, 0, side, side);
    square.moveCenter(icon.center());
    skin::drawIcon(painter, square, m_icon, ink);
}

}  // namespace vellora
