#pragma once

#include <QLabel>

namespace vellora {

/// A static text without background. It never asks for more width than it gets: a text that does
/// not fit is cut with dots and told in full by the tooltip.
class CTransparentStatic : public QLabel {
    Q_OBJECT

public:
    explicit CTransparentStatic(const QString& text = {}, QWidget* parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

}  // namespace vellora
