#pragma once

/// @file
/// The album record.

#include <QString>

#include <vellora/model/SpriteHolder.h>

namespace vellora {

/// Holds the sprites that appear on every photo of the album, beneath the photo's own.
class VELLORA_EXPORT CDVDAlbumImage : public CSpriteHolder {
public:
    CDVDAlbumImage();
    ~CDVDAlbumImage() override;

    [[nodiscard]] const CRuntimeClass* GetRuntimeClass() const override;

    /// The folder below which text effects find their textures.
    void SetTextEffectBaseFolder(const QString& folder) { m_baseFolder = folder; }
    [[nodiscard]] const QString& GetTextEffectBaseFolder() const { return m_baseFolder; }

    /// A text held with the album.
    void SetName(const QString& name) { m_name = name; }
    [[nodiscard]] const QString& GetName() const { return m_name; }

protected:
    void OnSpriteListChanged() override;

private:
    QString m_name;
    QString m_baseFolder = QStringLiteral(".");
};

}  // namespace vellora
