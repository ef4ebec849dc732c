#pragma once

#include <QWidget>
#include <cstdint>

namespace vellora {

/// A page of the edit dialog: white, with a grey line along its sides and bottom.
class CEditPage : public QWidget {
    Q_OBJECT

public:
    /// @param dialogId   The page's template, by which language files name it.
    /// @param lineWidth  Of the grey line, in logical pixels.
    CEditPage(std::int32_t dialogId, int lineWidth, QWidget* parent);

    [[nodiscard]] std::int32_t GetDialogId() const { return m_dialogId; }

protected:
    /// Takes over the texts of the language file for the page's controls.
    void Translate();
    void paintEvent(QPaintEvent* event) override;

private:
    std::int32_t m_dialogId;
    int m_lineWidth;
};

/// Width of the line around most pages.
inline constexpr int kPageLine = 2;
/// Space between a page's edge and its controls.
inline constexpr int kPageMargin = 14;
/// Space between controls.
inline constexpr int kPageSpacing = 8;

}  // namespace vellora
