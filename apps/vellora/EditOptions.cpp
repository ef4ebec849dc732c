#include "EditOptions.h"

#include <CLI/CLI.hpp>

#include "ClipEdit.h"
#include "Console.h"
#include "CropEdit.h"
#include "FilterEdit.h"
#include "TextEdit.h"

namespace vellora::cli {
namespace {

constexpr const char* kGroup = "Edits (repeatable, done in the order given)";

/// Why the value of a flag is none; empty when it is one.
std::string flagProblem(const std::string& value) {
    try {
        CLI::detail::to_flag_value(value);
        return {};
    } catch (const std::exception&) {
        return "'" + printable(QString::fromStdString(value)).toStdString() +
               "' is neither true nor false";
    }
}

}  // namespace

void EditOptions::addTo(CLI::App& command) {
    add(command, "--filter", "NAME[=F1[,F2[,F3]]]", "Add a filter", addFilterEdit);
    add(command, "--roi", "X,Y,W,H", "Region of the last region filter, as fractions",
        setFilterRegion);
    add(command, "--crop", "X,Y,W,H",
        "Add a crop step, in preview pixels (the photo as shown\non the 600 x 450 stage)",
        addCropEdit);
    add(command, "--clip", "FILE@X,Y[,CX,CY]", "Place an art clip, in stage units", addClipEdit);
    addTextOptions(command);
}

void EditOptions::addTextOptions(CLI::App& command) {
    add(command, "--text", "TEXT@X,Y",
        "Place a text, in stage units, in the style set\nby the options before it", addTextEdit);
    add(command, "--font", "FAMILY", "Font of the texts that follow", setTextFont);
    add(command, "--font-size", "POINTS", "Their size on the stage", setTextFontSize);
    add(command, "--color", "RRGGBB", "Their colour", setTextColour);
    add(command, "--effect", "N", "Their style; see vellora effects", setTextEffect);
    addFlag(command, "--bold", "Bold, until --bold=false", setTextBold);
    addFlag(command, "--italic", "Italic, until --italic=false", setTextItalic);
    addFlag(command, "--underline", "Underlined, until --underline=false", setTextUnderline);
    addFlag(command, "--shadow", "With a shadow, until --shadow=false", setTextShadow);
}

void EditOptions::add(CLI::App& command, const std::string& name, const std::string& form,
                      const std::string& help, const EditReader& reader) {
    command
        .add_option_function<std::string>(
            name,
            [this, reader](const std::string& argument) { m_given.emplace_back(reader, argument); },
            help)
        ->type_name(form)
        ->group(kGroup)
        ->trigger_on_parse();
}

void EditOptions::addFlag(CLI::App& command, const std::string& name, const std::string& help,
                          void (*setter)(Edits& edits, bool on)) {
    command
        .add_flag_function(
            name,
            [this, setter](std::int64_t count) {
                m_given.emplace_back(
                    [setter](Edits& edits, const QString& value) {
                        setter(edits, value == QLatin1String("on"));
                    },
                    count > 0 ? "on" : "off");
            },
            help)
        ->check(flagProblem)
        ->group(kGroup)
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
