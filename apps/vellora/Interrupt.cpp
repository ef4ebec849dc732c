#include "Interrupt.h"

#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace vellora::cli {
namespace {

constexpr int kSignalled = 128;  // plus the signal's number: the status shells expect
constexpr int kAttempts = 20;
/// The last one says that nobody reads the output any more.
constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};

volatile std::sig_atomic_t g_signal = 0;

void noteSignal(int signal) {
    g_signal = signal;
}

/// The other thread may be about to put a file into the folder: tried again until it is gone.
void removeFolder(const std::filesystem::path& folder) {
    std::error_code error;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        std::filesystem::remove_all(folder, error);
        if (!std::filesystem::exists(folder, error)) {
            return;
        }
    }
}

}  // namespace

InterruptCleanup::InterruptCleanup() {
    for (const int signal : kSignals) {
        if (std::signal(signal, noteSignal) == SIG_IGN) {
            std::signal(signal, SIG_IGN);  // as whoever started the program wants it
        }
    }
}

void InterruptCleanup::watch(std::filesystem::path folder) {
    m_watcher = std::jthread([this, folder = std::move(folder)](const std::stop_token& stop) {
        endWhenSignalled(stop, folder);
    });
}

void InterruptCleanup::endWhenSignalled(const std::stop_token& stop,
                                        const std::filesystem::path& folder) {
    std::condition_variable_any stopped;
    std::unique_lock lock(m_mutex);
    while (!stop.stop_requested()) {
        stopped.wait_for(lock, stop, std::chrono::milliseconds(50), [] { return false; });
        if (g_signal != 0) {
            removeFolder(folder);
            std::_Exit(kSignalled + g_signal);
        }
    }
}

InterruptCleanup::~InterruptCleanup() {
    if (m_watcher.joinable()) {
        m_watcher.request_stop();
        m_watcher.join();
    }
    if (g_signal != 0) {  // too late for the watcher
        std::fflush(stdout);
        std::_Exit(kSignalled + g_signal);
    }
    for (const int signal : kSignals) {
        if (std::signal(signal, SIG_DFL) == SIG_IGN) {
            std::signal(signal, SIG_IGN);
        }
    }
}

}  // namespace vellora::cli
