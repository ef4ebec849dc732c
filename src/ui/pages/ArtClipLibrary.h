#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace vellora {

/// A group of clips of the library.
struct ArtClipStyle {
    QString name;  ///< As the library names it.
    QString path;  ///< Its folder below the library's.
};

/// The folder of the clip library below the base folder that the host sets.
QString artClipFolder(const QString& baseFolder);

/// The styles that "artclip.ini" describes, in their order; those without name or path are left
/// out. None when there is no such file.
std::vector<ArtClipStyle> readArtClipStyles(const QString& baseFolder);

/// The WMF and EMF files of a style with their full paths, by name.
QStringList listArtClips(const QString& baseFolder, const ArtClipStyle& style);

/// What the file dialog of "More..." offers.
inline constexpr char16_t kArtClipFileFilter[] =
    u"All Supported Formats(*.jpg;*.jpeg;*.tif;*.tiff;*.bmp;*.pcx;*.png;*.wmf;*.emf)|"
    u"*.jpg;*.jpeg;*.TIFF;*.BMP;*.PCX;*.PNG;*.wmf;*.emf|JPEG (*.jpg;*.jpeg)|*.jpg;*.jpeg|"
    u"TIFF(*.tif;*.tiff)|*.tif;*.tiff|Bitmap(*.bmp)|*.bmp|PNG (*.png)|*.png|WMF (*.wmf)|*.wmf|"
    u"emf (*.emf)|*.emf||";

}  // namespace vellora
