#pragma once

#include <mutex>

#include <vellora/base/Types.h>

namespace vellora {

class CDVDImage;

/// Guards the reference counts of node handles.
std::mutex& nodeLock();

/// Guards the decoded image buffers. Never held together with the node lock. The edit dialog holds
/// it while it is open; what the host calls meanwhile on the dialog's thread may take it again.
std::recursive_mutex& imageBufferLock();

/// The record that is open in the edit dialog, or null. Guarded by the image-buffer lock.
CDVDImage* recordInEdit();
void setRecordInEdit(CDVDImage* record);

/// The background colour of the photo that was bound or rendered last.
COLORREF currentBackground();
void setCurrentBackground(COLORREF colour);

}  // namespace vellora
