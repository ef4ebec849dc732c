#include "ui/canvas/EditTrans.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTextDocument>
#include <algorithm>
#include <cmath>

#include <vellora/base/Types.h>
#include <vellora/text/PhotoTextEffect.h>
#include <vellora/text/TextStyle.h>

namespace vellora {
namespace {

bool isReturn(const QKeyEvent& event) {
    return (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) &&
           !event.modifiers().testFlag(Qt::ShiftModifier);
}

/// The height of the em in stage units; texts are laid out at 96 dots per inch.
int emOf(const TextStyle& style) {
    constexpr int kSmallest = 6;
    constexpr int kLargest = 400;
    const std::int64_t em = std::int64_t{style.size} * 96 / 72;
    return static_cast<int>(std::clamp<std::int64_t>(em, kSmallest, kLargest));
}

COLORREF faceColour(const TextBrushSettings& face) {
    if (face.type == kGradientBrush) {
        return face.colour1;
    }
    return face.type == kTextureBrush ? 0x00FFFFFFU : face.colour;
}

}  // namespace

CEditTrans::CEditTrans(QWidget* parent) : QPlainTextEdit(parent) {
    setFrameShape(QFrame::NoFrame);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAttribute(Qt::WA_TranslucentBackground);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    connect(this, &QPlainTextEdit::textChanged, this, &CEditTrans::FitToText);
}

void CEditTrans::SetStyle(const TextStyle& style) {
    const int em = emOf(style);
    QFont font = CPhotoTextEffect::LayoutFont(style.GetFont(), style.bold != 0, style.italic != 0,
                                              style.underline != 0);
    font.setPixelSize(em);
    setFont(font);
    const COLORREF face = faceColour(style.effect.face);
    const QColor colour(redOf(face), greenOf(face), blueOf(face));
    QPalette palette = this->palette();
    palette.setColor(QPalette::Text, colour);
    palette.setColor(QPalette::Base, Qt::transparent);
    setPalette(palette);
    setViewportMargins(em / 6, 0, em / 6, 0);
    setCursorWidth(std::max(1, em / 16));
    m_outline = qGray(colour.rgb()) > 127 ? Qt::black : Qt::white;
    FitToText();
}

void CEditTrans::FitToText() {
    const QFontMetricsF metrics(font());
    const QSizeF text = metrics.size(0, toPlainText().left(4096));
    const double em = font().pixelSize();
    const int width = static_cast<int>(std::ceil(text.width() + em));
    const int height = static_cast<int>(std::ceil(std::max(text.height(), metrics.lineSpacing())));
    resize(std::clamp(width, 48, 2 * kStageWidth), std::clamp(height + 2, 12, 2 * kStageHeight));
}

bool CEditTrans::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter) {
            event->accept();
            return true;
        }
    }
    return QPlainTextEdit::event(event);
}

void CEditTrans::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(viewport());
        QColor tint = m_outline;
        tint.setAlpha(50);
        painter.fillRect(viewport()->rect(), tint);
        // Dots on a line, so that it shows on light and on dark.
        const QRect edge = viewport()->rect().adjusted(0, 0, -1, -1);
        painter.setPen(QPen(m_outline == Qt::black ? Qt::white : Qt::black, 1.0));
        painter.drawRect(edge);
        painter.setPen(QPen(m_outline, 1.0, Qt::DotLine));
        painter.drawRect(edge);
    }
    QPlainTextEdit::paintEvent(event);
}

void CEditTrans::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape || isReturn(*event)) {
        m_key.press(event->key());
        event->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void CEditTrans::keyReleaseEvent(QKeyEvent* event) {
    if (!m_key.release(*event)) {
        QPlainTextEdit::keyReleaseEvent(event);
        return;
    }
    event->accept();
    if (event->key() == Qt::Key_Escape) {
        clear();
    }
    Q_EMIT Committed();
}

}  // namespace vellora
