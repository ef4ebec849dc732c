#include "ui/controls/TransparentStatic.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include "ui/skin/Skin.h"

namespace vellora {

CTransparentStatic::CTransparentStatic(const QString& text, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setText(text);
    setAutoFillBackground(false);
}

QSize CTransparentStatic::minimumSizeHint() const {
    return {0, QLabel::minimumSizeHint().height()};
}

bool CTransparentStatic::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && fontMetrics().horizontalAdvance(text()) > width()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                           QStringLiteral("<span>%1</span>").arg(text().toHtmlEscaped()), this);
        return true;
    }
    return QLabel::event(event);
}

void CTransparentStatic::paintEvent(QPaintEvent* event) {
    if (wordWrap() || text().contains(u'\n')) {
        return QLabel::paintEvent(event);
    }
    QPainter painter(this);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Normal : QPalette::Disabled, QPalette::WindowText));
    skin::drawElided(painter, contentsRect(),
                     static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())),
                     text());
}

}  // namespace vellora
