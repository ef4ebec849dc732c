#include "EditOptions.h"

#include <CLI/CLI.hpp>

#include "ClipEdit.h"
#include "CropEdit.h"
#include "FilterEdit.h"

namespace vellora::cli {

void EditOptions::addTo(CLI::App& command) {
    add(command, "--filter", "NAME[=F1[,F2[,F3]]]", "Add a filter", addFilterEdit);
    add(command, "--roi", "X,Y,W,H", "Region of the last region filter, as fractions",
        setFilterRegion);
    add(command, "--crop", "X,Y,W,H",
        "Add a crop step, in preview pixels (the photo as shown\non the 600 x 450 stage)",
        addCropEdit);
    add(command, "--clip", "FILE@X,Y[,CX,CY]", "Place an art clip, in stage units", addClipEdit);
}

void EditOptions::add(CLI::App& command, const std::string& name, const std::string& form,
                      const std::string& help, const EditReader& reader) {
    command
        .add_option_function<std::string>(
            name,
            [this, reader](const std::string& argument) { m_given.emplace_back(reader, argument); },
            help)
        ->type_name(form)
        ->group("Edits (repeatable, done in the order given)")
        ->trigger_on_parse();
}

Edits EditOptions::read() const {
    Edits edits;
    for (const auto& [reader, argument] : m_given) {
        reader(edits, QString::fromStdString(argument));
    }
    return edits;
}

}  // namespace vellora::cli
