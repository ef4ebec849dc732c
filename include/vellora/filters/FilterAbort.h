#pragma once

/// @file
/// Cancelling a filter that is running.

#include <vellora/base/Export.h>

namespace vellora {

/// Asks the running "Depth Dim" or "Wax Paint" to stop.
///
/// May be called from any thread while another one is in `COpencvFilterInterface::Apply`. The
/// filter stops at its next poll, a fraction of a second later at most, and `Apply` returns true.
/// Its image is then valid and keeps its size, but is visibly unfinished: the part that was not
/// reached is black ("Depth Dim") or white ("Wax Paint"). A call that comes when the filter is
/// done changes nothing, and a call while neither runs has no effect on the next one, because
/// each clears the request when it starts. The other filters run to their end.
VELLORA_EXPORT void CancelFilter() noexcept;

}  // namespace vellora
