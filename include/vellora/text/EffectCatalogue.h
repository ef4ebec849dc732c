#pragma once

/// @file
/// The catalogue of text styles that users choose from.

#include <QColor>
#include <QImage>
#include <QString>
#include <QStringList>
#include <vector>

#include <vellora/text/TextEffect.h>

namespace vellora {

/// One style of the catalogue.
struct TextEffectEntry {
    QString name;             ///< "Style 1" and so on; its number is the id in the file plus one.
    TextEffectRecord effect;  ///< All zero for an entry that lacks font name, size or element.
};

/// Reads "texteffect/effect_list.xml" below the base folder: as many entries as the file counts,
/// but 4096 at most. A file that cannot be read, or that does not say its count, gives none. The
/// file is read again only when it has changed. Any thread.
VELLORA_EXPORT std::vector<TextEffectEntry> LoadEffectCatalogue(const QString& baseFolder);

/// The folder with the textures below a text-effect base folder.
VELLORA_EXPORT QString TextureFolder(const QString& baseFolder);

/// The texture files below a text-effect base folder: names without folder, in alphabetical order.
/// Left out are hidden and system files, and names with a backslash or a colon, which paint
/// nothing.
VELLORA_EXPORT QStringList ListTextures(const QString& baseFolder);

/// A picture of a sample text drawn with an effect, as large as fits with all its layers.
///
/// @param size        In pixels; null image for an empty size.
/// @param background  May be transparent.
VELLORA_EXPORT QImage PreviewTextEffect(const QString& baseFolder, const TextEffectRecord& effect,
                                        QSize size, const QString& sample = QStringLiteral("Abc"),
                                        const QColor& background = Qt::transparent);

}  // namespace vellora
