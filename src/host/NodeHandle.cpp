#include <mutex>

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/NodeHandle.h>
#include <vellora/model/DVDImage.h>

#include "base/ModuleState.h"
#include "host/EditPause.h"

namespace vellora {

_HNODE* DupHandle(_HNODE* node) {
    if (node != nullptr) {
        const std::lock_guard lock(nodeLock());
        ++node->refs;
    }
    return node;
}

void ReleaseNode(_HNODE* node) {
    if (node == nullptr) {
        return;
    }
    const std::lock_guard lock(nodeLock());
    if (node->refs-- == 1) {
        if (node->data != nullptr) {
            delete node->data->image;
            delete node->data;
        }
        delete node;
    }
}

void ReleaseImgBuf(_HNODE* node) {
    if (node != nullptr && node->data != nullptr && node->data->image != nullptr) {
        const std::lock_guard lock(imageBufferLock());
        if (!isInEdit(*node->data->image)) {
            node->data->image->GetProcessor()->ReleaseImages();
        }
    }
}

}  // namespace vellora
