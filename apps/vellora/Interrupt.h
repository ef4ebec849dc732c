#pragma once

#include <filesystem>
#include <mutex>
#include <thread>

namespace vellora::cli {

/// While it lives, an interrupted or terminated program first removes a folder with all it holds.
///
/// A photo may take seconds; the program must not. So a thread of its own waits for the signal,
/// clears up and ends the process with the usual status for that signal.
class InterruptCleanup {
public:
    /// A signal waits from now on until the folder is known, so that none comes between making
    /// the folder and watching it.
    InterruptCleanup();
    /// Names the folder, once.
    void watch(std::filesystem::path folder);
    ~InterruptCleanup();
    InterruptCleanup(const InterruptCleanup&) = delete;
    InterruptCleanup& operator=(const InterruptCleanup&) = delete;

    /// As long as the lock is held the program does not end: for a step that must not be left half
    /// done.
    [[nodiscard]] std::unique_lock<std::mutex> holdOff() { return std::unique_lock(m_mutex); }

private:
    void endWhenSignalled(const std::stop_token& stop, const std::filesystem::path& folder);

    std::mutex m_mutex;
    std::jthread m_watcher;
};

}  // namespace vellora::cli
