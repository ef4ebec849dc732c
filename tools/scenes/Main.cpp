#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>
#include <QImageWriter>
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "scenes/Scenes.h"

namespace {

using vellora::scenes::Scene;

constexpr double kMostMegapixels = 100.0;
constexpr int kSmallestEdge = 16;
constexpr int kJpegQuality = 92;

// "WxH", or an empty size when the text is none or the scenes cannot be that small or large.
QSize parseSize(const QString& text) {
    const QStringList parts = text.split(QLatin1Char('x'));
    if (parts.size() != 2) {
        return {};
    }
    const QSize size(parts[0].toInt(), parts[1].toInt());
    const double megapixels = 1e-6 * size.width() * size.height();
    const bool roomy = std::min(size.width(), size.height()) >= kSmallestEdge;
    return roomy && megapixels <= kMostMegapixels ? size : QSize();
}

QSize scaledToMegapixels(QSize size, double megapixels) {
    const double scale = std::sqrt(megapixels * 1e6 / (double(size.width()) * size.height()));
    return {std::max(kSmallestEdge, int(std::lround(size.width() * scale))),
            std::max(kSmallestEdge, int(std::lround(size.height() * scale)))};
}

bool writeScene(const Scene& scene, QSize size, const QDir& folder) {
    const QString path = folder.filePath(QString::fromLatin1(scene.name) + QStringLiteral(".jpg"));
    QImageWriter writer(path, "jpeg");
    writer.setQuality(kJpegQuality);
    if (!writer.write(scene.paint(size))) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(writer.errorString()));
        return false;
    }
    std::printf("%s %dx%d\n", qPrintable(path), size.width(), size.height());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Paints photo-like pictures as JPEG files."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("OUTDIR"), QStringLiteral("Folder to write to."));
    const QCommandLineOption size(QStringLiteral("size"), QStringLiteral("Size of every picture."),
                                  QStringLiteral("WxH"));
    const QCommandLineOption megapixels(
        QStringLiteral("megapixels"), QStringLiteral("Scale every picture to so many megapixels."),
        QStringLiteral("N"));
    const QCommandLineOption only(QStringLiteral("only"), QStringLiteral("Paint one scene."),
                                  QStringLiteral("NAME"));
    parser.addOptions({size, megapixels, only});
    parser.process(application);

    const QSize fixedSize = parseSize(parser.value(size));
    const double wanted = parser.value(megapixels).toDouble();
    const bool badSize = parser.isSet(size) && fixedSize.isEmpty();
    const bool badScale = parser.isSet(megapixels) && !(wanted > 0 && wanted <= kMostMegapixels);
    if (parser.positionalArguments().size() != 1 || badSize || badScale) {
        parser.showHelp(2);
    }
    const QDir folder(parser.positionalArguments().constFirst());
    if (!folder.mkpath(QStringLiteral("."))) {
        std::fprintf(stderr, "%s: cannot be made\n", qPrintable(folder.path()));
        return 1;
    }
    bool good = true;
    for (const Scene& scene : vellora::scenes::all()) {
        if (parser.isSet(only) && parser.value(only) != QLatin1String(scene.name)) {
            continue;
        }
        QSize target = fixedSize.isEmpty() ? scene.defaultSize : fixedSize;
        if (parser.isSet(megapixels)) {
            target = scaledToMegapixels(target, wanted);
        }
        good = writeScene(scene, target, folder) && good;
    }
    return good ? 0 : 1;
}
