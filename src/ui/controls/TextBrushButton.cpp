#include "ui/controls/TextBrushButton.h"

#include <QPainter>

#include "text/TextBrushMaker.h"
#include "ui/skin/Skin.h"

namespace vellora {
namespace {

constexpr double kOutlineWidth = 2.0;
constexpr QColor kOutline{0, 0, 100, 200};
constexpr QColor kPressedOutline{100, 0, 100, 200};

}  // namespace

CTextBrushButton::CTextBrushButton(QWidget* parent) : QPushButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
}

void CTextBrushButton::SetBrush(TextBrushSettings* settings, const QString& textureFolder) {
    m_settings = settings;
    m_textureFolder = textureFolder;
    update();
}

QSize CTextBrushButton::sizeHint() const {
    return {64, QPushButton::sizeHint().height()};
}

void CTextBrushButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRectF face(rect());
    if (m_settings != nullptr) {
        painter.fillRect(face, MakeTextBrush(face, *m_settings, m_textureFolder));
    }
    painter.setPen(QPen(isDown() ? kPressedOutline : kOutline, kOutlineWidth, Qt::SolidLine,
                        Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(face.adjusted(1, 1, -1, -1));
    if (hasFocus()) {
        painter.setPen(QPen(skin::kPage, 1));
        painter.drawRect(face.adjusted(2.5, 2.5, -2.5, -2.5));
        painter.setPen(QPen(skin::kAccent, 1));
        painter.drawRect(face.adjusted(3.5, 3.5, -3.5, -3.5));
    }
}

}  // namespace vellora
