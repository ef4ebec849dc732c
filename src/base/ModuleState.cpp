#include "base/ModuleState.h"

#include <atomic>

namespace vellora {
namespace {

constinit std::mutex g_nodeLock;
std::recursive_mutex g_imageBufferLock;
constinit OpenEdit* g_openEdit = nullptr;
constinit std::atomic<COLORREF> g_background{0};

}  // namespace

std::mutex& nodeLock() {
    return g_nodeLock;
}

std::recursive_mutex& imageBufferLock() {
    return g_imageBufferLock;
}

OpenEdit::OpenEdit() {
    g_openEdit = this;
}

OpenEdit::~OpenEdit() {
    if (g_openEdit == this) {
        g_openEdit = nullptr;
    }
}

OpenEdit* OpenEdit::current() {
    return g_openEdit;
}

COLORREF currentBackground() {
    return g_background.load();
}

void setCurrentBackground(COLORREF colour) {
    g_background.store(colour & 0x00FFFFFFU);
}

}  // namespace vellora
