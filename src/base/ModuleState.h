#pragma once

#include <mutex>

#include <vellora/base/Types.h>

namespace vellora {

/// Guards the reference counts of node handles.
std::mutex& nodeLock();

/// Guards the decoded image buffers. Never held together with the node lock.
std::mutex& imageBufferLock();

/// The background colour of the photo that was bound or rendered last.
COLORREF currentBackground();
void setCurrentBackground(COLORREF colour);

}  // namespace vellora
