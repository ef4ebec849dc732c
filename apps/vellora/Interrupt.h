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
    explicit InterruptCleanup(std::filesystem::path folder);
    ~InterruptCleanup();
    InterruptCleanup(const InterruptCleanup&) = delete;
    InterruptCleanup& operator=(const InterruptCleanup&) = delete;

private:
    std::jthread m_watcher;
};

}  // namespace vellora::cli
