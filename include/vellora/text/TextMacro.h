#pragma once

/// @file
/// Macros in the texts placed on photos.

#include <QString>
#include <cstdint>

#include <vellora/base/Export.h>

namespace vellora {

class CDVDImage;

/// Replaces the macros of a text, tokens such as "$[F]", by facts about a photo.
///
/// | Token  | Value                               | Token  | Value                     |
/// |--------|-------------------------------------|--------|---------------------------|
/// | "$[F]" | file name                           | "$[T]" | today, as "2026:11:15"    |
/// | "$[f]" | file name without its extension     | "$[P]" | number of slides          |
/// | "$[e]" | extension                           | "$[p]" | number of this slide      |
/// | "$[t]" | title                               | "$[o]" | name of the file's folder |
/// | "$[d]" | description                         | "$[D]" | full path                 |
///
/// An unknown token vanishes; "$$[" stands for a literal "$[".
class VELLORA_EXPORT CTextMacro {
public:
    CTextMacro() = default;
    virtual ~CTextMacro() = default;

    /// Takes the facts of a photo; null for none. The record must outlive the calls of `Expand`.
    void Bind(const CDVDImage* record);
    void SetSlideIndex(std::int32_t index) { m_slideIndex = index; }  ///< From 0.
    void SetSlideCount(std::int32_t count) { m_slideCount = count; }

    /// Replaces `result` by the expansion of `source`. Values are not expanded again. After the
    /// value or the piece of plain text with which it reaches a million characters, an expansion
    /// ends.
    /// @return 1.
    int Expand(const QString& source, QString& result) const;

    /// The photo's path, empty without a photo.
    [[nodiscard]] QString GetPath() const { return m_path; }

private:
    struct Row;

    [[nodiscard]] QString ValueOf(QStringView token) const;
    [[nodiscard]] QString FileName() const;
    [[nodiscard]] QString FileTitle() const;
    [[nodiscard]] QString Extension() const;
    [[nodiscard]] QString Title() const;
    [[nodiscard]] QString Description() const;
    [[nodiscard]] QString Date() const;
    [[nodiscard]] QString SlideCount() const;
    [[nodiscard]] QString SlideNumber() const;
    [[nodiscard]] QString FolderName() const;

    QString m_path;
    const CDVDImage* m_record = nullptr;
    std::int32_t m_slideIndex = 0;
    std::int32_t m_slideCount = 0;
};

}  // namespace vellora
