#include "ui/dialog/HostNotifier.h"

#include <QCoreApplication>

#include <vellora/host/HostMessage.h>

namespace vellora {

void HostNotifier::post(int index) const {
    if (m_window != nullptr) {
        QCoreApplication::postEvent(m_window, new HostMessageEvent(m_message, index, 0));
    }
}

}  // namespace vellora
