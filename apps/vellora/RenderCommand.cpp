// vellora render: from photos and edits to finished pictures.

#include <QFile>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>

#include "Commands.h"
#include "Console.h"
#include "EditOptions.h"
#include "OutputFolder.h"
#include "OutputNames.h"
#include "Paths.h"
#include "PhotoRenderer.h"
#include "Progress.h"
#include "RenderList.h"
#include "RenderOptions.h"
#include "common/Document.h"

namespace vellora::cli {
namespace {

/// All that the user typed.
struct RenderRequest {
    RenderArguments arguments;
    EditOptions edits;
    std::vector<std::string> photos;
};

/// What else no result may replace.
QStringList filesBeside(const RenderOptions& options, const Edits& edits, const RenderList& list) {
    QStringList files = edits.files + list.files + list.sources;
    if (!options.saveProject.isEmpty()) {
        files << options.saveProject;
    }
    return files;
}

/// One run over all photos.
class RenderRun {
public:
    RenderRun(const RenderOptions& options, const Edits& edits, const RenderList& list)
        : m_options(options),
          m_list(list),
          m_photos(list.photos()),
          m_folder(options.folder, options.overwrite),
          m_names(planResultNames(m_photos, filesBeside(options, edits, list), m_folder.dir(),
                                  options.suffix(), options.numbered)),
          m_renderer(options, edits),
          m_progress(countOwn(), options.quiet) {}

    int run() {
        bool allDone = !m_list.incomplete;
        qsizetype number = 0;
        for (qsizetype index = 0; index < m_photos.size(); ++index) {
            if (m_options.shard.holds(index)) {
                m_progress.show(++number, m_photos[index]);
                const RenderItem& item = m_list.items[static_cast<std::size_t>(index)];
                allDone = renderOne(item, m_names[index]) && allDone;
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

    bool renderOne(const RenderItem& item, const QString& name) {
        RenderOutcome outcome;
        QString result;
        if (!m_folder.problem().isEmpty()) {
            outcome.problem = m_folder.problem();
        } else {
            const QString scratch = m_folder.scratchFile(m_options.suffix());
            try {
                outcome = m_renderer.render(item, scratch);
            } catch (const std::bad_alloc&) {
                outcome.problem = QStringLiteral("there is not enough memory for it");
            } catch (const std::exception& error) {
                outcome.problem = QString::fromUtf8(error.what());
            }
            if (outcome.problem.isEmpty()) {
                result = outcome.size.isEmpty() ? QString() : m_folder.publish(scratch, name);
                outcome.problem = result.isEmpty() ? m_folder.writeProblem() : QString();
            }
        }
        report(item.photo, name, result, outcome);
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
    const RenderList& m_list;
    QStringList m_photos;
    OutputFolder m_folder;
    QStringList m_names;
    PhotoRenderer m_renderer;
    Progress m_progress;
};

/// Writes the edits of all photos, whichever of them this run renders.
bool saveProject(const RenderList& list, const RenderOptions& options, const Edits& edits) {
    hostkit::Document document;
    std::shared_ptr<const ProjectEdits> album;
    for (const RenderItem& item : list.items) {
        _PHOTO_LIST_NODE record{};
        prepareRecord(record, item, options);
        CDVDImage& photo = document.addPhoto(record);
        if (item.edits != nullptr) {
            CDVDAlbumImage unused;
            const bool isNew = item.edits != album;
            item.edits->applyTo(photo, isNew ? *document.show().GetAlbum() : unused, item.position);
            album = item.edits;
        }
        edits.applyTo(photo);
    }
    return document.show().SaveToXMLFile(options.saveProject) == S_OK;
}

int runRender(const RenderRequest& request) {
    const RenderOptions options = request.arguments.read();
    const Edits edits = request.edits.read();
    const RenderList list = RenderList::read(request.photos, options.project);
    if (!options.saveProject.isEmpty()) {
        ProtectedFiles(list.photos() + list.sources + edits.files)
            .refuse(options.saveProject, QStringLiteral("--save-project"));
    }
    int status = RenderRun(options, edits, list).run();
    if (!options.saveProject.isEmpty() && !saveProject(list, options, edits)) {
        printError(QStringLiteral("%1: cannot be written").arg(printable(options.saveProject)));
        status = kSomeFailed;
    }
    return status;
}

}  // namespace

Command addRenderCommand(CLI::App& program) {
    CLI::App* command = program.add_subcommand(
        "render", "Render each photo to a folder; a slideshow file stands for its photos");
    auto request = std::make_shared<RenderRequest>();
    request->arguments.addTo(*command);
    request->edits.addTo(*command);
    command->add_option("PHOTO", request->photos, "Photos and slideshow files (*.vshow)")
        ->type_name("")
        ->required();
    return {command, [request] { return runRender(*request); }};
}

}  // namespace vellora::cli
