#pragma once

#include <vellora/text/TextBrushSettings.h>

#include "ui/dialog/VUDFrame.h"

class QBoxLayout;
class QButtonGroup;
class QComboBox;

namespace vellora {

class CTextBrushButton;

/// The dialog in which a text brush is edited.
class CDlgTextBrush : public CVUDFrame {
    Q_OBJECT

public:
    /// @param settings    Receives the edited brush on "OK" and is untouched otherwise; may be
    ///                    null. Not owned.
    /// @param baseFolder  The text-effect base folder, below which the textures lie.
    CDlgTextBrush(TextBrushSettings* settings, const QString& baseFolder, QWidget* parent);

    void accept() override;

private:
    void BuildControls();
    void BuildCommands(QBoxLayout& layout);
    void Open();
    void RefreshControls();
    void PickColour(COLORREF& colour);
    void OnMainButton();

    TextBrushSettings* m_caller;
    TextBrushSettings m_settings;
    QString m_baseFolder;
    QButtonGroup* m_type;
    CTextBrushButton* m_mainButton;
    CTextBrushButton* m_secondButton;
    TextBrushSettings m_secondColour;  ///< What the second button shows.
    QComboBox* m_textures;
};

}  // namespace vellora
