#pragma once

namespace vellora {

/// The module-wide abort flag. A filter that can be cancelled clears it when it starts and polls
/// it as it goes; anyone may raise it, from any thread.
void clearAbort();
void requestAbort();
[[nodiscard]] bool abortRequested();

}  // namespace vellora
