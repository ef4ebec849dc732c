#pragma once

#include <QWidget>
#include <cstdint>

#include <vellora/host/Language.h>

namespace vellora {

/// Gives a control the id by which language files name it.
template <class Control>
Control* withId(Control* control, std::int32_t id) {
    control->setProperty(kControlIdProperty, id);
    return control;
}

/// The control of a dialog or page with an id, or null.
template <class Control = QWidget>
Control* controlWithId(const QWidget& dialog, std::int32_t id) {
    for (Control* child : dialog.findChildren<Control*>()) {
        const QVariant value = child->property(kControlIdProperty);
        if (value.isValid() && value.toInt() == id) {
            return child;
        }
    }
    return nullptr;
}

/// Names a control for people who do not see it, and tells what it does in a tooltip.
void describe(QWidget& control, const QString& name, const QString& tip = {});

}  // namespace vellora
