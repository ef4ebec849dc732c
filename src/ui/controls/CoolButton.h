#pragma once

#include <QAbstractButton>

#include "ui/skin/SkinIcons.h"

namespace vellora {

/// A flat button of a button row: an icon, and under it a caption where there is room for one.
class CCoolButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit CCoolButton(skin::Icon icon, QWidget* parent = nullptr);

    /// The outline shown while the mouse is over the button.
    void SetFrameColour(const QColor& colour) { m_frameColour = colour; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    void PaintFace(QPainter& painter) const;

    skin::Icon m_icon;
    QColor m_frameColour;
};

}  // namespace vellora
