#pragma once

#include <QString>
#include <functional>
#include <stdexcept>

namespace CLI {
class App;
}

namespace vellora::cli {

/// The program's exit status.
enum ExitStatus : int { kAllDone = 0, kSomeFailed = 1, kWrongUsage = 2 };

/// What the user typed makes no sense; the text says what would.
class UsageError : public std::runtime_error {
public:
    explicit UsageError(const QString& message) : std::runtime_error(message.toStdString()) {}
};

/// A command of the program: `run` is called when the user gave it and returns the exit status.
/// It may throw `UsageError`.
struct Command {
    CLI::App* app;
    std::function<int()> run;
    bool opensWindows = false;  ///< Needs a display; the others never touch one.
};

}  // namespace vellora::cli
