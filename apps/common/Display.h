#pragma once

namespace vellora::hostkit {

/// Whether the environment names a display. Where it does not, a `QApplication` would end the
/// program with a message about plugins.
bool hasDisplay();

}  // namespace vellora::hostkit
