#include "ui/pages/FilterParameterRow.h"

#include <QGridLayout>
#include <QLocale>
#include <QSignalBlocker>
#include <QSlider>

#include <vellora/host/Language.h>

#include "ui/controls/ControlId.h"
#include "ui/controls/TransparentStatic.h"
#include "ui/pages/SliderSetup.h"

namespace vellora {

FilterParameterRow::FilterParameterRow(const QString& label, std::int32_t labelId,
                                       std::int32_t sliderId, QWidget* parent)
    : QWidget(parent),
      m_label(withId(new CTransparentStatic(label, this), labelId)),
      m_slider(withId(new QSlider(Qt::Horizontal, this), sliderId)),
      m_value(new CTransparentStatic({}, this)) {
    m_label->setBuddy(m_slider);
    m_value->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    m_value->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("-00000")));
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(1);
    layout->setColumnStretch(0, 1);
    layout->addWidget(m_label, 0, 0);
    layout->addWidget(m_value, 0, 1);
    layout->addWidget(m_slider, 1, 0, 1, 2);
    for (QWidget* control : {static_cast<QWidget*>(m_label), static_cast<QWidget*>(m_slider),
                             static_cast<QWidget*>(m_value)}) {
        QSizePolicy policy = control->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        control->setSizePolicy(policy);
    }
    connect(m_slider, &QSlider::valueChanged, this, [this](int value) {
        m_value->setText(locale().toString(value));
        Q_EMIT Moved();
    });
    SetUp({});
}

void FilterParameterRow::SetUp(const FilterSlider& slider) {
    const QSignalBlocker blocker(m_slider);
    for (QWidget* control : {static_cast<QWidget*>(m_label), static_cast<QWidget*>(m_slider),
                             static_cast<QWidget*>(m_value)}) {
        control->setVisible(slider.offered);
    }
    if (!slider.offered) {
        return;
    }
    const QString label = LanguageString(slider.labelId);
    m_slider->setRange(slider.minimum, slider.maximum);
    m_slider->setPageStep(std::max(1, (slider.maximum - slider.minimum) / 10));
    m_slider->setValue(slider.value);
    m_value->setText(locale().toString(m_slider->value()));
    m_label->setText(label);
    describe(*m_slider, label);
}

int FilterParameterRow::GetValue() const {
    return m_slider->value();
}

}  // namespace vellora
