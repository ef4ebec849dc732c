// Writes the art-clip library: a folder of clips per style, and the file that lists the styles.

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <cstdio>

#include "ClipList.h"
#include "Sheet.h"
#include "writer/Writers.h"

namespace vellora::clipgen {
namespace {

bool writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// Clips take turns between the two formats. Returns the files; none when one cannot be written.
QStringList writeStyle(const Style& style, const QDir& folder) {
    QStringList paths;
    bool enhanced = false;
    for (const Clip& clip : style.clips) {
        const QString path =
            folder.filePath(clip.name + (enhanced ? QLatin1String(".emf") : QLatin1String(".wmf")));
        if (!writeFile(path, enhanced ? writeEmf(clip.drawing) : writeWmf(clip.drawing)))
            return {};
        paths.append(path);
        enhanced = !enhanced;
    }
    return paths;
}

QByteArray listOf(const std::vector<Style>& styles) {
    QString text = QStringLiteral("[Base]\r\nStyleCount=%1\r\n").arg(styles.size());
    int number = 0;
    for (const Style& style : styles)
        text += QStringLiteral("\r\n[Style%1]\r\nName=%2\r\nPath=%3\r\n")
                    .arg(++number)
                    .arg(style.name, style.folder);
    return text.toUtf8();
}

int run(const QStringList& arguments) {
    const bool withSheet = arguments.size() == 4 && arguments[2] == QLatin1String("--sheet");
    if (arguments.size() != 2 && !withSheet) {
        std::fputs("usage: vellora-clipgen FOLDER [--sheet FILE.png]\n", stderr);
        return 2;
    }
    const std::vector<Style> styles{frames(),  ribbonsAndStars(), balloons(),    flourishes(),
                                    seasons(), travel(),          celebrations()};
    QDir root(arguments[1]);
    QList<SheetRow> rows;
    for (const Style& style : styles) {
        if (!root.mkpath(style.folder))
            return 1;
        rows.append({style.name, writeStyle(style, QDir(root.filePath(style.folder)))});
        if (rows.back().clips.isEmpty())
            return 1;
    }
    if (!writeFile(root.filePath(QStringLiteral("artclip.ini")), listOf(styles)))
        return 1;
    if (!withSheet)
        return 0;
    QDir().mkpath(QFileInfo(arguments[3]).path());
    return drawSheet(rows).save(arguments[3], "PNG", 0) ? 0 : 1;
}

}  // namespace
}  // namespace vellora::clipgen

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    return vellora::clipgen::run(QCoreApplication::arguments());
}
