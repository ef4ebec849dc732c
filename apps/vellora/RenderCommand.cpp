// vellora render: from photos and edits to finished pictures.

#include <QFile>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "Commands.h"
#include "Console.h"
#include "EditOptions.h"
#include "OutputFolder.h"
#include "OutputNames.h"
#include "PhotoRenderer.h"
#include "Progress.h"
#include "RenderOptions.h"

namespace vellora::cli {
namespace {

/// All that the user typed.
struct RenderRequest {
    RenderArguments arguments;
    EditOptions edits;
    std::vector<std::string> photos;
};

/// One run over all photos.
class RenderRun {
public:
    RenderRun(const RenderOptions& options, const Edits& edits, const QStringList& photos)
        : m_options(options),
          m_photos(photos),
          m_folder(options.folder, options.overwrite),
          m_names(planResultNames(photos, edits.files, m_folder.dir(), options.suffix())),
          m_renderer(options, edits),
          m_progress(countOwn(), options.quiet) {}

    int run() {
        bool allDone = true;
        qsizetype number = 0;
        for (qsizetype index = 0; index < m_photos.size(); ++index) {
            if (m_options.shard.holds(index)) {
                m_progress.show(++number, m_photos[index]);
                allDone = renderOne(m_photos[index], m_names[index]) && allDone;
            }
        }
        return allDone ? kAllDone : kSomeFailed;
    }

private:
    [[nodiscard]] qsizetype countOwn() const {
        qsizetype count = 0;
        for (qsizetype index = 0; index < m_photos.size(); ++index) {
            count += m_options.shard.holds(index) ? 1 : 0;
        }
        return count;
    }

    bool renderOne(const QString& photo, const QString& name) {
        RenderOutcome outcome;
        QString result;
        if (!m_folder.problem().isEmpty()) {
            outcome.problem = m_folder.problem();
        } else {
            const QString scratch = m_folder.scratchFile(m_options.suffix());
            outcome = m_renderer.render(photo, scratch);
            if (outcome.problem.isEmpty()) {
                result = outcome.size.isEmpty() ? QString() : m_folder.publish(scratch, name);
                outcome.problem = result.isEmpty() ? m_folder.writeProblem() : QString();
            }
        }
        report(photo, name, result, outcome);
        return outcome.problem.isEmpty();
    }

    void report(const QString& photo, const QString& name, const QString& result,
                const RenderOutcome& outcome) {
        m_progress.clear();
        const auto say = [&photo](const QString& text) {
            printError(QStringLiteral("%1: %2").arg(printable(photo), text));
        };
        if (!outcome.problem.isEmpty()) {
            say(outcome.problem);
        } else {
            if (outcome.damaged) {
                say(QStringLiteral(
                    "the file is damaged or ends early; what could be read is there"));
            }
            if (result != m_folder.dir().filePath(name)) {
                say(QStringLiteral("'%1' exists already; the result is '%2'")
                        .arg(printable(name), printable(QFileInfo(result).fileName())));
            }
        }
        if (m_options.json) {
            printJson(description(photo, result, outcome));
        }
    }

    static QJsonObject description(const QString& photo, const QString& result,
                                   const RenderOutcome& outcome) {
        QJsonObject object{{QStringLiteral("photo"), photo}};
        if (!outcome.problem.isEmpty()) {
            object.insert(QStringLiteral("error"), outcome.problem);
            return object;
        }
        object.insert(QStringLiteral("result"), result);
        object.insert(QStringLiteral("width"), outcome.size.width());
        object.insert(QStringLiteral("height"), outcome.size.height());
        object.insert(QStringLiteral("damaged"), outcome.damaged);
        return object;
    }

    const RenderOptions& m_options;
    const QStringList& m_photos;
    OutputFolder m_folder;
    QStringList m_names;
    PhotoRenderer m_renderer;
    Progress m_progress;
};

int runRender(const RenderRequest& request) {
    const RenderOptions options = request.arguments.read();
    const Edits edits = request.edits.read();
    QStringList photos;
    for (const std::string& photo : request.photos) {
        photos << QFile::decodeName(photo.c_str());
    }
    return RenderRun(options, edits, photos).run();
}

}  // namespace

Command addRenderCommand(CLI::App& program) {
    CLI::App* command = program.add_subcommand("render", "Render each photo to a folder");
    auto request = std::make_shared<RenderRequest>();
    request->arguments.addTo(*command);
    request->edits.addTo(*command);
    command->add_option("PHOTO", request->photos, "The photos")->type_name("")->required();
    return {command, [request] { return runRender(*request); }};
}

}  // namespace vellora::cli
