#include <QPointer>
#include <QWidget>
#include <QWindow>
#include <mutex>

#include <vellora/base/HostText.h>
#include <vellora/base/PhotoListNode.h>
#include <vellora/host/ImageObj.h>
#include <vellora/model/DVDImage.h>

#include "base/ModuleState.h"
#include "host/Guard.h"
#include "ui/dialog/ImageProcessDialog.h"
#include "ui/dialog/PhotoList.h"

namespace vellora {
namespace {

/// Keeps the dialog above the host's window without making it the window's child: a host that
/// destroys its window must not destroy the dialog under the loop that runs it.
void attachTo(QWidget& dialog, QObject* hostWindow) {
    const auto* widget = qobject_cast<const QWidget*>(hostWindow);
    if (widget != nullptr && widget->window()->windowHandle() != nullptr) {
        dialog.winId();
        dialog.windowHandle()->setTransientParent(widget->window()->windowHandle());
    }
}

}  // namespace

STATUS CImageObj::ShowProcessDialog(int index, QObject* hostWindow, unsigned hostMessage) {
    return guarded([&] {
        const ListedPhoto listed = photoAt(*this, index);
        if (!listed.isUsable()) {
            return E_FAIL;
        }
        listed.image->SetBackgroundColor(listed.photo->background);
        SetImageFilePath(hostText(listed.photo->path));

        const std::lock_guard lock(imageBufferLock());
        CImageProcessDialog dialog(*this, index, HostNotifier(hostWindow, hostMessage));
        dialog.SetBkImage(m_background);
        dialog.SetFrameColor(listed.photo->background);
        attachTo(dialog, hostWindow);
        dialog.exec();
        return S_OK;
    });
}

}  // namespace vellora
