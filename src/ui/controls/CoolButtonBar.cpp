#include "ui/controls/CoolButtonBar.h"

#include <QStyle>

#include "ui/controls/ControlId.h"
#include "ui/controls/CoolButton.h"

namespace vellora {

CCoolButtonBar::CCoolButtonBar(const QString& windowName, QWidget* parent) : QWidget(parent) {
    setObjectName(windowName);
}

CCoolButton* CCoolButtonBar::AddButton(skin::Icon icon, int command, const QString& name) {
    auto* button = new CCoolButton(icon, this);
    describe(*button, name);
    connect(button, &CCoolButton::clicked, this, [this, command] { Q_EMIT Command(command); });
    m_buttons.push_back(button);
    return button;
}

void CCoolButtonBar::resizeEvent(QResizeEvent* /*event*/) {
    const int count = static_cast<int>(m_buttons.size());
    for (int index = 0; index < count; ++index) {
        const int left = width() * index / count;
        const QRect cell(left, 0, width() * (index + 1) / count - left, height());
        m_buttons[static_cast<std::size_t>(index)]->setGeometry(
            QStyle::visualRect(layoutDirection(), rect(), cell));
    }
}

}  // namespace vellora
