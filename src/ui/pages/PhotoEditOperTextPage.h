#pragma once

#include <vellora/text/TextStyle.h>

#include "ui/pages/EditPage.h"
#include "ui/pages/TextControls.h"

class QCheckBox;
class QMenu;
class QPushButton;
class QSpinBox;
class QBoxLayout;

namespace vellora {

class CFontPreviewCombo;
class CPhotoEditShowWnd;
class CTextBrushButton;
class CTextEffectListBox;

/// The text page: the properties of the selected text and of new ones, and the commands that add
/// and remove texts.
class CPhotoEditOperTextPage : public CEditPage {
    Q_OBJECT

public:
    /// @param canvas      Not owned; outlives the page.
    /// @param baseFolder  The text-effect base folder.
    CPhotoEditOperTextPage(CPhotoEditShowWnd& canvas, const QString& baseFolder,
                           QWidget* parent = nullptr);

    /// Loads the controls from the canvas's text properties.
    void LoadProperties();

Q_SIGNALS:
    /// A command of the macro menu was chosen.
    void MacroCommand(int command);

private:
    void BuildControls();
    void BuildFontRow(QBoxLayout& page);
    void BuildStyleRow(QBoxLayout& page);
    void BuildCommands(QBoxLayout& page);
    void DescribeControls();
    void Connect();

    [[nodiscard]] TextControls ReadControls() const;
    void ShowEffect();
    void OnPropertyChanged();
    void OnEffectSelected();
    void OnEffectDoubleClicked();
    void OnBrush();
    void OnMacros();
    void Post();

    CPhotoEditShowWnd& m_canvas;
    QString m_baseFolder;
    TextStyle m_style;
    TextControls m_shown;
    bool m_loading = false;

    CFontPreviewCombo* m_font;
    QSpinBox* m_size;
    CTextBrushButton* m_brush;
    QPushButton* m_bold;
    QPushButton* m_italic;
    QPushButton* m_underline;
    QCheckBox* m_shadow;
    CTextEffectListBox* m_effects;
    QPushButton* m_addText = nullptr;
    QPushButton* m_addMacros = nullptr;
    QPushButton* m_toAll = nullptr;
    QPushButton* m_delete = nullptr;
};

}  // namespace vellora
