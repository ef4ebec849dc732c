#pragma once

#include <vector>

#include "Command.h"

namespace vellora::cli {

// Each adds its command with its options to the program.
Command addClipCommand(CLI::App& program);
Command addEditCommand(CLI::App& program);
Command addEffectsCommand(CLI::App& program);
Command addFiltersCommand(CLI::App& program);
Command addInfoCommand(CLI::App& program);
Command addNewCommand(CLI::App& program);
std::vector<Command> addProjectCommands(CLI::App& program);
Command addRenderCommand(CLI::App& program);

}  // namespace vellora::cli
