#pragma once

/// @file
/// The text sprite.

#include <QPoint>
#include <QString>
#include <memory>

#include <vellora/model/DVDImageSprite.h>
#include <vellora/text/TextStyle.h>

namespace vellora {

/// A text on a photo.
///
/// It keeps the text as typed, macros included, and beside it the expanded text that its record
/// hands over before each composition. Its size is measured, from the effect's font and size, when
/// it is first asked for after a change.
class VELLORA_EXPORT CDVDImageText : public CDVDImageSprite {
public:
    /// @param baseFolder  The text-effect base folder, below which the textures lie. It is kept as
    ///                    the sprite's name and copied with it.
    explicit CDVDImageText(CSpriteOwner* owner, const QString& baseFolder = QStringLiteral("."));
    CDVDImageText(const CDVDImageText& other);
    ~CDVDImageText() override;

    [[nodiscard]] QPoint GetHandlePoint(QPoint offset, int index) const override;
    /// The measured size in design units; 100 x 40 while there is no text.
    [[nodiscard]] QSize GetSize() const override;
    /// Draws the text through its effect. What lies left of or above the sprite's position, or
    /// beyond 1.2 times its size, is cut off. The handle squares of a selected sprite are not
    /// scaled to the canvas.
    int Draw(QPainter& painter, QPoint offset, int mode) override;
    int Load(const CXMLParse& reader, const QString& nodePath) override;
    int Save(int depth) const override;

    using CDVDImageSprite::IsEqual;
    using CDVDImageSprite::IsNotEqual;
    /// As the base comparison, and text and style block are the same.
    [[nodiscard]] virtual bool IsEqual(const CDVDImageText& other) const;
    [[nodiscard]] virtual bool IsNotEqual(const CDVDImageText& other) const;

    [[nodiscard]] const QString& GetName() const { return m_name; }
    /// The text as typed.
    [[nodiscard]] const QString& GetText() const { return m_text; }
    /// Stores a typed text without the characters that no project file can hold. The display text
    /// stays what it was until the owner hands over another.
    void SetText(const QString& text);
    [[nodiscard]] const QString& GetDisplayText() const { return m_displayText; }
    /// Stores the expanded text. While it is empty the typed text is shown.
    void SetDisplayText(const QString& text);
    [[nodiscard]] const TextStyle& GetStyle() const { return *m_style; }
    /// Takes over a style that differs in more than the letter case of its font, and marks the
    /// owner changed; the effect then takes over font and size of the style.
    void SetStyle(const TextStyle& style);
    /// Measures the shown text at once.
    void Measure() const;
    /// Where the text starts: the position, moved by the simple shadow when that is on.
    [[nodiscard]] QPoint GetTextOrigin() const;

protected:
    [[nodiscard]] Rect GetContainmentRect() const override;

private:
    [[nodiscard]] const QString& GetShownText() const;

    QString m_name;
    QString m_text;
    std::shared_ptr<const TextStyle> m_style;
    QString m_displayText;
    mutable bool m_isMeasured = false;
    mutable QSizeF m_layoutSize;  // as laid out
    mutable QSize m_size;         // in design units
};

}  // namespace vellora
