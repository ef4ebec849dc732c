#include <QImageReader>
#include <QMetaObject>
#include <QObject>

#include <vellora/host/Language.h>

#include "base/JpegScans.h"
#include "base/PictureReader.h"
#include "base/StringTable.h"
#include "host/LanguageFile.h"

namespace vellora {
namespace {

constexpr qsizetype kImageNameBuffer = 1023;
constexpr std::int32_t kNoImage = -1;

QString withLineFeeds(QString text) {
    return text.replace(QStringLiteral("\\n"), QStringLiteral("\n"));
}

QImage loadPicture(const QString& name) {
    const auto path = languagePicturePath(name);
    if (!path) {
        return {};
    }
    QImageReader reader(*path);
    return preparePicture(reader) == PictureKind::Readable && !fileHasExcessiveScans(*path)
               ? reader.read()
               : QImage();
}

bool hasProperty(const QObject& object, const char* name) {
    return object.metaObject()->indexOfProperty(name) >= 0;
}

/// Shown as it stands: no markup of the text is interpreted.
void setPlainText(QObject& object, const QString& text) {
    if (hasProperty(object, "textFormat")) {
        object.setProperty("textFormat", Qt::PlainText);
    }
    for (const char* name : {"text", "title"}) {
        if (hasProperty(object, name)) {
            object.setProperty(name, text);
            return;
        }
    }
}

}  // namespace

QString LanguageString(std::int32_t id) {
    const QString text = languageEntry(QStringLiteral("STRING"), QString::number(id));
    return text.isEmpty() ? QString::fromUtf16(builtInString(id)) : text;
}

QString LanguageText(const QString& section, const QString& key) {
    return withLineFeeds(languageEntry(section, key))
        .replace(QStringLiteral("\\t"), QStringLiteral("\t"));
}

QString LanguageWord(const QString& english) {
    const QString translation = languageEntry(QStringLiteral("DICTIONARY"), english);
    return translation.isEmpty() ? english : translation;
}

QString LanguageControlText(std::int32_t dialogId, const QString& key) {
    return withLineFeeds(languageEntry(QStringLiteral("DIALOG_IDD_%1").arg(dialogId), key));
}

QString LanguageMenuText(std::int32_t commandId) {
    return languageEntry(QStringLiteral("MENU_DLL"), QString::number(commandId));
}

QImage LanguageBitmap(std::int32_t id, const QImage& builtIn) {
    const QString name = languageEntry(QStringLiteral("BITMAP"), QString::number(id));
    const QImage picture = name.isEmpty() ? QImage() : loadPicture(name);
    return picture.isNull() ? builtIn : picture;
}

std::unique_ptr<QImage> LanguageImage(std::int32_t id) {
    if (id == kNoImage) {
        return nullptr;
    }
    const QString name =
        languageEntry(QStringLiteral("IMAGE"), QString::number(id), kImageNameBuffer);
    return name.isEmpty() ? nullptr : std::make_unique<QImage>(loadPicture(name));
}

void TranslateDialog(QObject& dialog, std::int32_t dialogId) {
    for (QObject* child : dialog.findChildren<QObject*>()) {
        const QVariant id = child->property(kControlIdProperty);
        if (!id.isValid()) {
            continue;
        }
        if (const QString text = LanguageControlText(dialogId, QString::number(id.toInt()));
            !text.isEmpty()) {
            setPlainText(*child, text);
        }
    }
    if (const QString title = LanguageControlText(dialogId, QStringLiteral("title"));
        !title.isEmpty()) {
        dialog.setProperty("windowTitle", title);
    }
}

}  // namespace vellora
