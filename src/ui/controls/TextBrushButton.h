#pragma once

#include <QPushButton>

#include <vellora/text/TextBrushSettings.h>

namespace vellora {

/// A button whose face is painted with a text brush.
class CTextBrushButton : public QPushButton {
    Q_OBJECT

public:
    explicit CTextBrushButton(QWidget* parent = nullptr);

    /// @param settings  Not owned; read at each painting, and its position percent reduced then.
    void SetBrush(TextBrushSettings* settings, const QString& textureFolder);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TextBrushSettings* m_settings = nullptr;
    QString m_textureFolder;
};

}  // namespace vellora
