// vellora filters: the catalogue.

#include <QFile>
#include <array>
#include <memory>

#include <CLI/CLI.hpp>

#include <vellora/filters/FilterCatalogue.h>

#include "Commands.h"
#include "Console.h"
#include "FilterSheet.h"
#include "Paths.h"

namespace vellora::cli {
namespace {

struct Parameter {
    QString label;
    FilterParamDesc range;
    std::int32_t initial;
};

std::vector<Parameter> parametersOf(const COpencvFilterInterface& prototype) {
    const std::unique_ptr<COpencvFilterInterface> fresh(prototype.Clone());
    std::vector<Parameter> parameters;
    std::size_t k = 0;
    for (const std::int32_t* factor :
         {fresh->GetFactorOne(), fresh->GetFactorTwo(), fresh->GetFactorThree()}) {
        if (factor != nullptr) {
            const FilterParamDesc& range = fresh->param_descs[k++];
            QString label = QString::fromUtf16(GetFilterLabel(range.label_id));
            if (label.endsWith(QLatin1Char(':'))) {
                label.chop(1);
            }
            parameters.push_back({label, range, *factor});
        }
    }
    return parameters;
}

QString categoryOf(const COpencvFilterInterface& filter) {
    return filter.is_art_effect != 0 ? QStringLiteral("art effect") : QStringLiteral("adjustment");
}

QJsonObject toJson(const COpencvFilterInterface& filter) {
    QJsonArray parameters;
    for (const Parameter& parameter : parametersOf(filter)) {
        parameters.append(
            QJsonObject{{QStringLiteral("label"), parameter.label},
                        {QStringLiteral("min"), parameter.range.min},
                        {QStringLiteral("max"), parameter.range.max},
                        {QStringLiteral("initial"), parameter.initial},
                        {QStringLiteral("advertised"), parameter.range.default_value}});
    }
    return {{QStringLiteral("name"), QString::fromUtf16(filter.GetName())},
            {QStringLiteral("category"), categoryOf(filter)},
            {QStringLiteral("region"), filter.HasROI()},
            {QStringLiteral("parameters"), parameters}};
}

void print(const COpencvFilterInterface& filter) {
    printLine(QStringLiteral("%1  %2%3")
                  .arg(QString::fromUtf16(filter.GetName()), -20)
                  .arg(categoryOf(filter))
                  .arg(filter.HasROI() ? QStringLiteral(", works on a region") : QString()));
    for (const Parameter& parameter : parametersOf(filter)) {
        QString line = QStringLiteral("    %1  %2..%3, initial %4")
                           .arg(parameter.label, -22)
                           .arg(parameter.range.min)
                           .arg(parameter.range.max)
                           .arg(parameter.initial);
        if (parameter.range.default_value != parameter.initial) {
            line += QStringLiteral(" (advertised %1)").arg(parameter.range.default_value);
        }
        printLine(line);
    }
}

int runFilters(bool json) {
    if (json) {
        QJsonArray catalogue;
        for (const COpencvFilterInterface* filter : GetFilterPrototypes()) {
            catalogue.append(toJson(*filter));
        }
        printJson(catalogue);
        return kAllDone;
    }
    for (const COpencvFilterInterface* filter : GetFilterPrototypes()) {
        print(*filter);
    }
    return kAllDone;
}

struct FiltersArguments {
    bool json = false;
    std::string sheet;
    std::string photo;
    bool fullSize = false;
    std::uint32_t seed = 1;
};

int runSheet(const FiltersArguments& arguments) {
    const SheetOptions options{QFile::decodeName(arguments.sheet.c_str()),
                               QFile::decodeName(arguments.photo.c_str()), arguments.fullSize,
                               arguments.seed};
    if (!options.photo.isEmpty()) {
        ProtectedFiles({options.photo}).refuse(options.file, QStringLiteral("--sheet"));
    }
    const QString problem = writeFilterSheet(options);
    if (!problem.isEmpty()) {
        printError(printable(problem));
        return kSomeFailed;
    }
    return kAllDone;
}

}  // namespace

Command addFiltersCommand(CLI::App& program) {
    CLI::App* command = program.add_subcommand(
        "filters", "The catalogue: name, category, parameters with their ranges");
    auto arguments = std::make_shared<FiltersArguments>();
    command->add_flag("--json", arguments->json, "The catalogue as one JSON array");
    auto* sheet = command->add_option("--sheet", arguments->sheet,
                                      "Write a contact sheet of all filters to this PNG file");
    sheet->option_text("FILE.png");
    command->add_option("--photo", arguments->photo, "The photo on the sheet")
        ->option_text("PHOTO")
        ->needs(sheet);
    command->add_flag("--full-size", arguments->fullSize, "Filter the whole photo, not its preview")
        ->needs(sheet);
    command->add_option("--seed", arguments->seed, "Seed of the random filters on the sheet")
        ->option_text("N")
        ->needs(sheet);
    return {command, [arguments] {
                return arguments->sheet.empty() ? runFilters(arguments->json)
                                                : runSheet(*arguments);
            }};
}

}  // namespace vellora::cli
