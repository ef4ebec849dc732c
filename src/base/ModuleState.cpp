#include "base/ModuleState.h"

#include <atomic>

namespace vellora {
namespace {

constinit std::mutex g_nodeLock;
std::recursive_mutex g_imageBufferLock;
constinit CDVDImage* g_recordInEdit = nullptr;
constinit std::atomic<COLORREF> g_background{0};

}  // namespace

std::mutex& nodeLock() {
    return g_nodeLock;
}

std::recursive_mutex& imageBufferLock() {
    return g_imageBufferLock;
}

CDVDImage* recordInEdit() {
    return g_recordInEdit;
}

void setRecordInEdit(CDVDImage* record) {
    g_recordInEdit = record;
}

COLORREF currentBackground() {
    return g_background.load();
}

void setCurrentBackground(COLORREF colour) {
    g_background.store(colour & 0x00FFFFFFU);
}

}  // namespace vellora
