#include <QApplication>
#include <QTimer>

#include "desktop/Icons.h"
#include "desktop/MainWindow.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Vellora"));
    QApplication::setApplicationName(QStringLiteral("vellora-desktop"));
    QApplication::setWindowIcon(vellora::desktop::programIcon());

    vellora::desktop::MainWindow window;
    window.show();
    QTimer::singleShot(0, &window, [&window] {
        window.openPaths(QApplication::arguments().mid(1));
        window.offerOrphans();
    });
    return QApplication::exec();
}
