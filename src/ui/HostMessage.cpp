#include <vellora/host/HostMessage.h>

namespace vellora {

HostMessageEvent::HostMessageEvent(unsigned message, int firstParameter, int secondParameter)
    : QEvent(messageType()),
      m_message(message),
      m_first(firstParameter),
      m_second(secondParameter) {}

QEvent::Type HostMessageEvent::messageType() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

}  // namespace vellora
