#include "ui/controls/ControlId.h"

namespace vellora {

void describe(QWidget& control, const QString& name, const QString& tip) {
    control.setAccessibleName(name);
    const QString shown = tip.isEmpty() ? name : tip;
    control.setAccessibleDescription(shown);
    // Escaped, because a tooltip would take the markup of a translation for its own.
    control.setToolTip(QStringLiteral("<span>%1</span>").arg(shown.toHtmlEscaped()));
}

}  // namespace vellora
