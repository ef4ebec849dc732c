#include "common/Display.h"

#include <QtGlobal>

namespace vellora::hostkit {

bool hasDisplay() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    for (const char* variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) {
        if (!qEnvironmentVariableIsEmpty(variable)) {
            return true;
        }
    }
    return false;
#else
    return true;
#endif
}

}  // namespace vellora::hostkit
