#pragma once

#include <filesystem>
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

private:
    std::jthread m_watcher;
};

}  // namespace vellora::cli
