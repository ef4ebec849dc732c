#pragma once

#include <QStringList>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "Edits.h"

namespace CLI {
class App;
}

namespace vellora::cli {

/// Understands one occurrence of an option and adds to the edits; throws `UsageError`.
using EditReader = std::function<void(Edits& edits, const QString& argument)>;

/// The options that edit a photo. Their order on the command line is the order of the edits, also
/// between different options.
class EditOptions {
public:
    /// Adds all of them to a command.
    void addTo(CLI::App& command);

    /// The edits that the user asked for.
    [[nodiscard]] Edits read() const;

private:
    void add(CLI::App& command, const std::string& name, const std::string& form,
             const std::string& help, const EditReader& reader);
    void addFlag(CLI::App& command, const std::string& name, const std::string& help,
                 void (*setter)(Edits& edits, bool on));
    void addTextOptions(CLI::App& command);

    std::vector<std::pair<EditReader, std::string>> m_given;
};

}  // namespace vellora::cli
