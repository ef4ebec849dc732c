// Edits one photo: photo-editor PHOTO EDITS.xml

#include <QApplication>
#include <QFile>
#include <QTimer>
#include <QWidget>
#include <cstdio>

#include <vellora/vellora.h>

using namespace vellora;

/// Hears of each photo that the dialog changed or left.
class Host : public QObject {
    void customEvent(QEvent* event) override {
        if (event->type() == HostMessageEvent::messageType()) {
            const auto& message = *static_cast<HostMessageEvent*>(event);
            std::printf("photo %d changed\n", message.firstParameter());
        }
    }
};

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 3) {
        std::fputs("usage: photo-editor PHOTO EDITS.xml\n", stderr);
        return 2;
    }
    _PHOTO_LIST_NODE photo{};
    setHostText(photo.path, QFile::decodeName(argv[1]));
    const QString edits = QFile::decodeName(argv[2]);

    CImageObj show;
    show.SetTextEffectBaseFolder("/usr/share/vellora");  // text styles and clips
    _HNODE* node = nullptr;
    if (show.AddPhotoListNode(&photo, &node) != S_OK) {
        return 1;
    }
    show.LoadFromXMLFile(edits);  // a file that is missing changes nothing

    if (qEnvironmentVariableIsSet("CLOSE_AT_ONCE")) {
        QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
    }
    Host host;
    show.ShowProcessDialog(0, &host, 1);  // returns when the dialog is closed
    const STATUS saved = show.SaveToXMLFile(edits);
    ReleaseNode(node);
    return saved == S_OK ? 0 : 1;
}
