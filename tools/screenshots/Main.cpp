// Writes pictures of every page of the edit dialog, in English and German, at one and two device
// pixels for each logical pixel:  vellora-screenshots FOLDER
// In one language, with another system font:  vellora-screenshots --play LANGUAGE PREFIX POINTS

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>
#include <cstring>

#include <vellora/vellora.h>

#include "scenes/Scenes.h"
#include "screenshots/Session.h"

namespace vellora::screenshots {
namespace {

/// Photos are a little soft: grain would make the pictures of the dialog far larger.
constexpr QSize kSoftSize{440, 293};

/// The folder that the processes share, so that each photo is painted once.
constexpr char kPhotosVariable[] = "VELLORA_SCREENSHOT_PHOTOS";

void setText(char16_t* field, const QString& text) {
    std::memcpy(field, text.utf16(), static_cast<std::size_t>(text.size()) * sizeof(char16_t));
}

/// Three painted photos in a folder, the first of them with title and description. Photos that
/// are there already are taken as they are.
std::vector<_PHOTO_LIST_NODE> makePhotos(const QDir& folder) {
    std::vector<_PHOTO_LIST_NODE> photos;
    for (const scenes::Scene& scene : scenes::all()) {
        const QString path =
            folder.filePath(QStringLiteral("%1.jpg").arg(QString::fromLatin1(scene.name)));
        if (!QFile::exists(path)) {
            scene.paint({1600, 1066})
                .scaled(kSoftSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                .scaled(1200, 800, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                .save(path, "JPEG", 95);
        }
        _PHOTO_LIST_NODE photo{};
        setText(photo.path, path);
        photos.push_back(photo);
    }
    setText(photos[0].title, QStringLiteral("Morning at the lake"));
    setText(photos[0].description,
            QStringLiteral("The first day of the walk.\nClear air, and nobody about."));
    return photos;
}

int play(const QString& language, const QString& prefix) {
    const QTemporaryDir own;
    const QDir folder(qEnvironmentVariable(kPhotosVariable, own.path()));
    const QString assets =
        qEnvironmentVariable("VELLORA_ASSETS", QStringLiteral(VELLORA_ASSETS_DIR));
    std::vector<_PHOTO_LIST_NODE> photos = makePhotos(folder);
    CImageObj document;
    document.SetTextEffectBaseFolder(assets);
    CImageObj::SetLanguageString(QStringLiteral("%1/lang/%2.ini").arg(assets, language));
    std::vector<_HNODE*> handles(photos.size());
    for (std::size_t index = 0; index < photos.size(); ++index) {
        document.AddPhotoListNode(&photos[index], &handles[index]);
    }
    Session session(prefix);
    session.Start();
    const STATUS status = document.ShowProcessDialog(0, nullptr, 0);
    for (_HNODE* handle : handles) {
        ReleaseNode(handle);
    }
    return status == S_OK && !session.Failed() ? 0 : 1;
}

/// Plays the session in a process of its own, because a process has one scale.
bool playAt(const QString& language, int scale, const QDir& folder, const QString& photos) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(kPhotosVariable), photos);
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(scale));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    const QString prefix = folder.filePath(QStringLiteral("%1-%2x").arg(language).arg(scale));
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--play"), language, prefix});
    return process.waitForFinished(120000) && process.exitCode() == 0;
}

}  // namespace
}  // namespace vellora::screenshots

int main(int argc, char** argv) {
    using namespace vellora::screenshots;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() >= 4 && arguments[1] == QStringLiteral("--play")) {
        if (arguments.size() == 5) {
            QFont font = QApplication::font();
            font.setPointSizeF(arguments[4].toDouble());
            QApplication::setFont(font);
        }
        return play(arguments[2], arguments[3]);
    }
    if (arguments.size() != 2 || !QDir().mkpath(arguments[1])) {
        std::fprintf(stderr, "usage: vellora-screenshots FOLDER\n");
        return 2;
    }
    const QTemporaryDir photos;
    bool complete = true;
    for (const QString& language : {QStringLiteral("english"), QStringLiteral("german")}) {
        for (const int scale : {1, 2}) {
            complete = playAt(language, scale, QDir(arguments[1]), photos.path()) && complete;
        }
    }
    return complete ? 0 : 1;
}
