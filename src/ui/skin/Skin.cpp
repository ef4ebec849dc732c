#include "ui/skin/Skin.h"

#include <QLinearGradient>
#include <QPainter>
#include <QWidget>

namespace vellora::skin {

QPalette palette() {
    QPalette palette;
    const auto set = [&palette](QPalette::ColorRole role, const QColor& colour) {
        palette.setColor(QPalette::All, role, colour);
    };
    set(QPalette::Window, kWindowBottom);
    set(QPalette::WindowText, kText);
    set(QPalette::Base, kPage);
    set(QPalette::AlternateBase, kWindowTop);
    set(QPalette::Text, kText);
    set(QPalette::PlaceholderText, kMutedText);
    set(QPalette::Button, kWindowTop);
    set(QPalette::ButtonText, kText);
    set(QPalette::BrightText, kAccentText);
    set(QPalette::Light, kPage);
    set(QPalette::Midlight, kWindowTop);
    set(QPalette::Mid, kBorder);
    set(QPalette::Dark, kBorder);
    set(QPalette::Shadow, kMutedText);
    set(QPalette::Highlight, kAccent);
    set(QPalette::HighlightedText, kAccentText);
    set(QPalette::Link, kAccent);
    set(QPalette::ToolTipBase, kPage);
    set(QPalette::ToolTipText, kText);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, kDisabledText);
    }
    return palette;
}

QFont scaledFont(const QWidget& widget, double factor, QFont::Weight weight) {
    QFont font = widget.font();
    if (font.pointSizeF() > 0) {
        font.setPointSizeF(font.pointSizeF() * factor);
    } else {
        font.setPixelSize(std::max(1, qRound(font.pixelSize() * factor)));
    }
    font.setWeight(weight);
    return font;
}

void drawFace(QPainter& painter, const QRect& rect, const QBrush& fill, const QColor& border,
              double radius) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(border.isValid() ? QPen(border, 1.0) : QPen(Qt::NoPen));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.restore();
}

void drawFocusRing(QPainter& painter, const QRect& rect, double radius) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(kAccent, 2.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect).adjusted(1.0, 1.0, -1.0, -1.0), radius, radius);
    painter.restore();
}

void drawWindow(QPainter& painter, const QRect& rect) {
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    gradient.setColorAt(0.0, kWindowTop);
    gradient.setColorAt(1.0, kWindowBottom);
    painter.fillRect(rect, gradient);
}

void drawElided(QPainter& painter, const QRect& rect, int flags, const QString& text) {
    QString line = text;
    line.replace(u'\n', u' ');
    painter.drawText(rect, flags | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(line, Qt::ElideRight, rect.width()));
}

}  // namespace vellora::skin
