#pragma once

#include <QWidget>
#include <vector>

#include "ui/skin/SkinIcons.h"

namespace vellora {

class CCoolButton;

/// A row of small buttons without captions that reports commands by number.
class CCoolButtonBar : public QWidget {
    Q_OBJECT

public:
    CCoolButtonBar(const QString& windowName, QWidget* parent = nullptr);

    CCoolButton* AddButton(skin::Icon icon, int command, const QString& name);

Q_SIGNALS:
    void Command(int command);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    std::vector<CCoolButton*> m_buttons;
};

}  // namespace vellora
