#pragma once

#include <QWidget>
#include <vector>

#include "ui/skin/SkinIcons.h"

namespace vellora {

class CCoolButton;

/// A row of buttons with icon and caption that reports the index of the button that was used.
class CCoolToolBar : public QWidget {
    Q_OBJECT

public:
    CCoolToolBar(const QString& windowName, QWidget* parent = nullptr);

    /// Appends a button; its index is the number of buttons before it.
    CCoolButton* AddButton(skin::Icon icon, const QString& caption, const QString& tip);
    /// Draws a line behind the last button.
    void AddSeparator();
    [[nodiscard]] CCoolButton* GetButton(int index) const;
    void SetButtonFrameColour(const QColor& colour);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void Command(int index);

protected:
    [[nodiscard]] const std::vector<CCoolButton*>& GetButtons() const { return m_buttons; }
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<CCoolButton*> m_buttons;
    std::vector<CCoolButton*> m_separated;  ///< Buttons with a line behind them.
};

/// The tool panel: its buttons share the width of the row evenly.
class CFlexibleToolBar : public CCoolToolBar {
    Q_OBJECT

public:
    using CCoolToolBar::CCoolToolBar;

protected:
    void resizeEvent(QResizeEvent* event) override;
};

}  // namespace vellora
