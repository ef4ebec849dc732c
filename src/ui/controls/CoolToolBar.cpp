#include "ui/controls/CoolToolBar.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>

#include "ui/controls/ControlId.h"
#include "ui/controls/CoolButton.h"
#include "ui/skin/Skin.h"

namespace vellora {

CCoolToolBar::CCoolToolBar(const QString& windowName, QWidget* parent) : QWidget(parent) {
    setObjectName(windowName);
}

CCoolButton* CCoolToolBar::AddButton(skin::Icon icon, const QString& caption, const QString& tip) {
    auto* button = new CCoolButton(icon, this);
    const int index = static_cast<int>(m_buttons.size());
    button->setText(caption);
    describe(*button, caption, tip);
    connect(button, &CCoolButton::clicked, this, [this, index] { Q_EMIT Command(index); });
    m_buttons.push_back(button);
    return button;
}

void CCoolToolBar::AddSeparator() {
    m_separated.push_back(m_buttons.back());
}

CCoolButton* CCoolToolBar::GetButton(int index) const {
    return m_buttons.at(static_cast<std::size_t>(index));
}

void CCoolToolBar::SetButtonFrameColour(const QColor& colour) {
    for (CCoolButton* button : m_buttons) {
        button->SetFrameColour(colour);
    }
}

QSize CCoolToolBar::sizeHint() const {
    QSize size;
    for (const CCoolButton* button : m_buttons) {
        size = {size.width() + button->sizeHint().width(),
                std::max(size.height(), button->sizeHint().height())};
    }
    return size;
}

void CCoolToolBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    for (const CCoolButton* button : m_separated) {
        const bool mirrored = layoutDirection() == Qt::RightToLeft;
        const QRect cell = button->geometry();
        const int x = mirrored ? cell.left() : cell.right();
        painter.fillRect(x, cell.top() + 7, 1, cell.height() - 14, skin::kFaintBorder);
    }
}

void CFlexibleToolBar::resizeEvent(QResizeEvent* /*event*/) {
    // Equal cells, unless a caption needs more than its share.
    const int count = static_cast<int>(GetButtons().size());
    const int share = width() / std::max(count, 1);
    const bool fits = std::ranges::all_of(GetButtons(), [share](const CCoolButton* button) {
        return button->sizeHint().width() <= share;
    });
    const auto weight = [&](const CCoolButton* button) {
        return fits ? 1 : std::min(button->sizeHint().width(), 2 * share);
    };
    int total = 0;
    for (const CCoolButton* button : GetButtons()) {
        total += weight(button);
    }
    int before = 0;
    for (CCoolButton* button : GetButtons()) {
        const int left = width() * before / std::max(total, 1);
        before += weight(button);
        const QRect cell(left, 0, width() * before / std::max(total, 1) - left, height());
        button->setGeometry(QStyle::visualRect(layoutDirection(), rect(), cell));
    }
}

}  // namespace vellora
