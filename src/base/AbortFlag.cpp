#include "base/AbortFlag.h"

#include <atomic>

namespace vellora {
namespace {

std::atomic<bool> g_abort{false};

}  // namespace

void clearAbort() {
    g_abort.store(false, std::memory_order_relaxed);
}

void requestAbort() {
    g_abort.store(true, std::memory_order_relaxed);
}

bool abortRequested() {
    return g_abort.load(std::memory_order_relaxed);
}

}  // namespace vellora
