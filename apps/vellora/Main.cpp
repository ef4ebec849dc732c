// The command-line host: renders photos and tells about them, without a display.

#include <QApplication>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <CLI/CLI.hpp>

#include "Commands.h"
#include "Console.h"
#include "common/Display.h"

namespace vellora::cli {
namespace {

/// File names and texts are UTF-8 whatever the locale says; Qt would say so at every start.
void useUtf8() {
    const char* locale = std::setlocale(LC_CTYPE, "");
    const std::string_view name = locale != nullptr ? locale : "C";
    if (name == "C" || name == "POSIX") {
        qputenv("LC_ALL", "C.UTF-8");
    }
}

void ignoreLibraryMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                          const QString& /*text*/) {}

int runGiven(const std::vector<Command>& commands, int argc, char** argv) {
    useUtf8();
    qInstallMessageHandler(ignoreLibraryMessage);
    const auto given = std::ranges::find_if(
        commands, [](const Command& command) { return command.app->parsed(); });
    if (given == commands.end()) {
        return kWrongUsage;
    }
    if (given->opensWindows) {
        if (!hostkit::hasDisplay()) {
            throw UsageError(QStringLiteral("this command needs a display"));
        }
        const QApplication application(argc, argv);
        return given->run();
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Lives on to the end of the process: its own end would look for all fonts of the system, half
    // of the time of a short run, only to forget them.
    static int count = argc;
    [[maybe_unused]] static const auto* application = new QGuiApplication(count, argv);
    return given->run();
}

/// The arguments in the reversed order in which the parser takes them. It would read "[name]" as a
/// list of one name, and "++" as the end of a command; a photo may be called so.
std::vector<std::string> argumentsOf(int argc, char** argv) {
    std::vector<std::string> arguments;
    for (int index = argc - 1; index > 0; --index) {
        const std::string_view argument = argv[index];
        const bool bracketed = argument.starts_with('[') && argument.ends_with(']');
        const bool isSign = bracketed || argument == "++";
        arguments.push_back((isSign ? "./" : "") + std::string(argument));
    }
    return arguments;
}

/// An empty value is a script's empty variable more often than a wish. "--option=" would take the
/// next argument as its value.
void refuseOpenEnds(const std::vector<std::string>& arguments) {
    for (auto argument = arguments.rbegin(); argument != arguments.rend() && *argument != "--";
         ++argument) {
        if (argument->starts_with("--") && argument->ends_with('=') &&
            argument->find('=') == argument->size() - 1) {
            throw UsageError(
                QStringLiteral("%1: the value is empty")
                    .arg(QString::fromStdString(argument->substr(0, argument->size() - 1))));
        }
    }
}

void refuseEmptyValues(CLI::App& command) {
    for (CLI::Option* option : command.get_options()) {
        if (!option->get_positional() && option->get_items_expected_max() > 0) {
            option->check([](const std::string& value) {
                return value.empty() ? "the value is empty" : std::string();
            });
        }
    }
}

int runProgram(int argc, char** argv) {
    CLI::App program("Renders finished pictures of photos: filters, crops, art clips.");
    program.name("vellora");
    program.set_version_flag("--version", "vellora " VELLORA_VERSION);
    program.require_subcommand(1);
    std::vector<Command> commands{addRenderCommand(program),  addFiltersCommand(program),
                                  addEditCommand(program),    addInfoCommand(program),
                                  addEffectsCommand(program), addNewCommand(program),
                                  addClipCommand(program)};
    std::ranges::move(addProjectCommands(program), std::back_inserter(commands));
    for (const Command& command : commands) {
        refuseEmptyValues(*command.app);
    }
    try {
        std::vector<std::string> arguments = argumentsOf(argc, argv);
        refuseOpenEnds(arguments);
        program.parse(arguments);
        return runGiven(commands, argc, argv);
    } catch (const CLI::Success& request) {
        return program.exit(request);
    } catch (const CLI::ParseError& error) {
        printError(error.what());
    } catch (const UsageError& error) {
        printError(error.what());
    }
    std::fputs("Try --help.\n", stderr);
    return kWrongUsage;
}

}  // namespace
}  // namespace vellora::cli

int main(int argc, char** argv) {
    using namespace vellora::cli;
    int status = kSomeFailed;
    occupyStandardStreams();
    try {
        status = runProgram(argc, argv);
    } catch (const std::exception& error) {
        printError(error.what());
    }
    if (outputFailed() && status == kAllDone) {
        printError("standard output cannot be written");
        status = kSomeFailed;
    }
    return status;
}
