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

/// The edit dialog as rendering sees it, from construction to destruction. Guarded by the
/// image-buffer lock.
class OpenEdit {
public:
    OpenEdit(const OpenEdit&) = delete;
    OpenEdit& operator=(const OpenEdit&) = delete;

    /// The dialog that is open, or null.
    static OpenEdit* current();

    /// The record that is being edited; null when there is none, or none any more.
    [[nodiscard]] virtual CDVDImage* record() const = 0;
    /// Gives the texts their macros as the dialog shows them, after a picture was composed with
    /// others.
    virtual void expandTexts() = 0;

protected:
    OpenEdit();
    ~OpenEdit();
};

/// The background colour of the photo that was bound or rendered last.
COLORREF currentBackground();
void setCurrentBackground(COLORREF colour);

}  // namespace vellora
