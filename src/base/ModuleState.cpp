#include "base/ModuleState.h"

#include <atomic>

namespace vellora {
namespace {

constinit std::mutex g_nodeLock;
constinit std::mutex g_imageBufferLock;
constinit std::atomic<COLORREF> g_background{0};

}  // namespace

std::mutex& nodeLock() {
    return g_nodeLock;
}

std::mutex& imageBufferLock() {
    return g_imageBufferLock;
}

COLORREF currentBackground() {
    return g_background.load();
}

void setCurrentBackground(COLORREF colour) {
    g_background.store(colour & 0x00FFFFFFU);
}

}  // namespace vellora
