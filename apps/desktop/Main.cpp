#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>
#include <cstdio>

#include "common/Display.h"
#include "desktop/Icons.h"
#include "desktop/MainWindow.h"

namespace {

constexpr int kWrongUsage = 2;

/// What the command line names; ends the program after `--help` and `--version`.
QStringList givenPaths(const QCoreApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Makes slideshows of photos: edits, plays and exports them."));
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 QStringLiteral("A slideshow (*.vshow), or photos for a new one."),
                                 QStringLiteral("[SHOW.vshow | PHOTO...]"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(application);
    return parser.positionalArguments();
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication::setOrganizationName(QStringLiteral("Vellora"));
    QCoreApplication::setApplicationName(QStringLiteral("vellora-desktop"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELLORA_VERSION));
    if (!vellora::hostkit::hasDisplay()) {
        const QCoreApplication application(argc, argv);
        givenPaths(application);
        std::fputs("vellora-desktop: this program needs a display\n", stderr);
        return kWrongUsage;
    }

    const QApplication application(argc, argv);
    const QStringList paths = givenPaths(application);
    QApplication::setWindowIcon(vellora::desktop::programIcon());

    vellora::desktop::MainWindow window;
    window.show();
    QTimer::singleShot(0, &window, [&window, &paths] {
        window.openPaths(paths);
        window.offerOrphans();
    });
    return QApplication::exec();
}
