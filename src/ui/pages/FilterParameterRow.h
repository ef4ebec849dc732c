#pragma once

#include <QWidget>

class QLabel;
class QSlider;

namespace vellora {

class CTransparentStatic;
struct FilterSlider;

/// One parameter of a filter: its label, its slider and the value it stands at. Keeps its place
/// on the page while it has nothing to show.
class FilterParameterRow : public QWidget {
    Q_OBJECT

public:
    FilterParameterRow(const QString& label, std::int32_t labelId, std::int32_t sliderId,
                       QWidget* parent);

    /// Shows the slider as set up, or hides it when it is not offered.
    void SetUp(const FilterSlider& slider);
    [[nodiscard]] int GetValue() const;

Q_SIGNALS:
    void Moved();

private:
    CTransparentStatic* m_label;
    QSlider* m_slider;
    CTransparentStatic* m_value;
};

}  // namespace vellora
