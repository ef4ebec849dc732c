#pragma once

/// @file
/// The art clip sprite.

#include <QString>

#include <vellora/model/DVDImageSprite.h>

namespace vellora {

/// An image file drawn over a photo.
///
/// Raster files keep their transparency; vector files are drawn at the size at which they are
/// shown. A file that cannot be loaded draws nothing.
class VELLORA_EXPORT CDVDImageProps : public CDVDImageSprite {
public:
    explicit CDVDImageProps(CSpriteOwner* owner, const QString& file = {});
    CDVDImageProps(const CDVDImageProps& other);
    ~CDVDImageProps() override;

    int Draw(QPainter& painter, QPoint offset, int mode) override;
    int Load(const CXMLParse& reader, const QString& nodePath) override;
    int Save(int depth) const override;

    using CDVDImageSprite::IsEqual;
    using CDVDImageSprite::IsNotEqual;
    /// As the base comparison, and the file paths are equal without regard to letter case.
    [[nodiscard]] virtual bool IsEqual(const CDVDImageProps& other) const;
    [[nodiscard]] virtual bool IsNotEqual(const CDVDImageProps& other) const;

    [[nodiscard]] const QString& GetFile() const { return m_file; }
    /// Stores the path without the characters that no project file can hold.
    void SetFile(const QString& file);

    /// The size that the file gives itself, in pixels; empty when it cannot be loaded. `reason`,
    /// where given, then says why.
    [[nodiscard]] static QSizeF NaturalSize(const QString& file, QString* reason = nullptr);

private:
    QString m_file;
};

}  // namespace vellora
