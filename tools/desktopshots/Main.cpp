// Writes pictures of the desktop program's windows:
//   vellora-desktop-screenshots [--language NAME] [--font POINTS] [--dark] FOLDER
// QT_SCALE_FACTOR sets the device pixels for each logical pixel.

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <functional>

#include <vellora/vellora.h>

#include "desktop/ExportDialog.h"
#include "desktop/ExportProgress.h"
#include "desktop/Language.h"
#include "desktop/MainWindow.h"
#include "desktop/Preferences.h"
#include "desktop/PreferencesDialog.h"
#include "desktop/ShowDocument.h"
#include "desktop/SlideView.h"
#include "scenes/Scenes.h"
#include "screenshots/Palette.h"

namespace vellora::desktop {
namespace {

constexpr int kThumbnailPause = 1500;
constexpr int kDialogPause = 200;

class Shots {
public:
    explicit Shots(const QString& folder) : m_folder(folder) {}

    void take(QWidget* window, const char* name) {
        const QString file = m_folder.filePath(QString::fromLatin1(name) + QStringLiteral(".png"));
        const QImage picture = window->grab().toImage();
        if (!screenshots::withPalette(picture).save(file, "PNG", 0)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
            m_failed = true;
        }
    }
    /// Takes a dialog that the action opens, and closes it.
    void takeDialog(const char* name, const std::function<void()>& action) {
        QTimer::singleShot(kDialogPause, [this, name] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr) {
                m_failed = true;
                return;
            }
            take(dialog, name);
            dialog->close();
        });
        action();
    }
    [[nodiscard]] bool failed() const { return m_failed; }

private:
    QDir m_folder;
    bool m_failed = false;
};

void wait(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// The painted scenes, several times over, every other round mirrored.
QStringList makePhotos(const QDir& folder, int count) {
    QStringList paths;
    std::vector<QImage> pictures;
    for (const scenes::Scene& scene : scenes::all()) {
        pictures.push_back(scene.paint(scene.defaultSize.scaled(900, 750, Qt::KeepAspectRatio)));
    }
    for (int k = 0; k < count; ++k) {
        const auto scene = static_cast<std::size_t>(k) % pictures.size();
        const QString name = QString::fromLatin1(scenes::all()[scene].name);
        const QString path = folder.filePath(QStringLiteral("%1-%2.jpg").arg(name).arg(k + 1));
        pictures[scene].mirrored(k / 3 % 2 == 1, false).save(path, "JPEG", 92);
        paths.append(path);
    }
    return paths;
}

void addFilter(const Slide& slide, const char16_t* name) {
    slide.node()->data->image->GetProcessor()->AddFilterToChain(CreateFilterByName(name));
}

QPalette darkPalette() {
    QPalette palette(QColor(0x2d, 0x2f, 0x33));
    palette.setColor(QPalette::Base, QColor(0x1f, 0x20, 0x23));
    palette.setColor(QPalette::AlternateBase, QColor(0x2d, 0x2f, 0x33));
    return palette;
}

void takeAll(Shots& shots, const QDir& photos) {
    MainWindow window;
    window.resize(1000, 640);
    window.show();
    shots.take(&window, "empty");
    const QStringList paths = makePhotos(photos, 11);
    window.openPaths(paths);
    addFilter(*window.document().slides().slide(3), u"Grey");
    addFilter(*window.document().slides().slide(5), u"Oil Paint");
    QFile::remove(paths[6]);
    window.document().slides().slide(6)->checkFile();
    window.view().setCurrentIndex(window.document().slides().index(3));
    wait(kThumbnailPause);
    shots.take(&window, "main");
    for (QMenu* menu : window.menuBar()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
        menu->popup({0, 0});
        wait(kDialogPause);
        shots.take(menu, qPrintable(QStringLiteral("menu-") + menu->title().remove(u'&')));
        menu->close();
    }
    shots.takeDialog("preferences", [&] { PreferencesDialog(Preferences(), &window).exec(); });
    ExportOptions options;
    options.folder = photos.filePath(QStringLiteral("out"));
    options.size = {400, 300};
    QDir().mkpath(options.folder);
    shots.takeDialog("export", [&] {
        ExportDialog dialog(window.document().slides().count(), &window);
        dialog.exec();
    });
    ExportJob job(options);
    QString error;
    job.prepare(window.document(), &error);
    ExportProgress progress(job, &window);
    wait(2 * kThumbnailPause);
    shots.takeDialog("summary", [&] { progress.exec(); });
    QTimer::singleShot(2 * kDialogPause, [] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            box->button(QMessageBox::Discard)->click();
        }
    });
    QTimer::singleShot(kDialogPause, [&] {
        if (QWidget* box = QApplication::activeModalWidget()) {
            shots.take(box, "unsaved");
        }
    });
    window.close();
}

}  // namespace
}  // namespace vellora::desktop

int main(int argc, char** argv) {
    using namespace vellora::desktop;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    QApplication::setOrganizationName(QStringLiteral("Vellora"));
    QApplication::setApplicationName(QStringLiteral("vellora-desktop-screenshots"));
    QCommandLineParser parser;
    parser.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("for the pictures"));
    const QCommandLineOption language(QStringLiteral("language"), QStringLiteral("of the windows"),
                                      QStringLiteral("name"), QStringLiteral("english"));
    const QCommandLineOption font(QStringLiteral("font"), QStringLiteral("size of the system font"),
                                  QStringLiteral("points"));
    const QCommandLineOption dark(QStringLiteral("dark"), QStringLiteral("light text on dark"));
    parser.addOptions({language, font, dark});
    parser.addHelpOption();
    parser.process(application);
    if (parser.positionalArguments().size() != 1 ||
        !QDir().mkpath(parser.positionalArguments().first())) {
        parser.showHelp(2);
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    if (parser.isSet(dark)) {
        QApplication::setPalette(darkPalette());
    }
    if (parser.isSet(font)) {
        QFont large = QApplication::font();
        large.setPointSizeF(parser.value(font).toDouble());
        QApplication::setFont(large);
    }
    // The export runs the command line.
    const QString commandLine =
        QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("../../apps/vellora"));
    qputenv("PATH", commandLine.toLocal8Bit() + ':' + qgetenv("PATH"));
    Preferences preferences;
    preferences.language = parser.value(language);
    preferences.store();
    const QTemporaryDir photos;
    Shots shots(parser.positionalArguments().first());
    takeAll(shots, QDir(photos.path()));
    return shots.failed() ? 1 : 0;
}
