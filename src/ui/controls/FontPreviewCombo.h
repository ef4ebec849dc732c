#pragma once

#include <QComboBox>

namespace vellora {

/// A list of the installed font families, each shown in its own font.
class CFontPreviewCombo : public QComboBox {
    Q_OBJECT

public:
    explicit CFontPreviewCombo(QWidget* parent = nullptr);

    [[nodiscard]] QString GetFontName() const { return currentText(); }
    /// Shows a family; one that is not installed joins the list.
    void SetFontName(const QString& name);

    [[nodiscard]] QSize minimumSizeHint() const override;
};

}  // namespace vellora
