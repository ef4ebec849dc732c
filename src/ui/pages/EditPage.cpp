#include "ui/pages/EditPage.h"

#include <QPainter>

#include <vellora/host/Language.h>

#include "ui/skin/Skin.h"

namespace vellora {

CEditPage::CEditPage(std::int32_t dialogId, int lineWidth, QWidget* parent)
    : QWidget(parent), m_dialogId(dialogId), m_lineWidth(lineWidth) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CEditPage::Translate() {
    TranslateDialog(*this, m_dialogId);
    setAccessibleName(windowTitle());
}

void CEditPage::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), skin::kPage);
    painter.fillRect(0, 0, m_lineWidth, height(), skin::kLine);
    painter.fillRect(width() - m_lineWidth, 0, m_lineWidth, height(), skin::kLine);
    painter.fillRect(0, height() - m_lineWidth, width(), m_lineWidth, skin::kLine);
}

}  // namespace vellora
