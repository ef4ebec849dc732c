#pragma once

#include <vector>

#include "ui/pages/ArtClipLibrary.h"
#include "ui/pages/EditPage.h"

class QComboBox;
class QListWidgetItem;

namespace vellora {

class CPhotoEditShowWnd;
class CSpritePropsListBox;

/// The art-clip page: the clips of the library by style, and any other picture file.
class CPhotoEditOperPropsPage : public CEditPage {
    Q_OBJECT

public:
    /// @param canvas      Not owned; outlives the page.
    /// @param baseFolder  The folder below which the library lies.
    CPhotoEditOperPropsPage(CPhotoEditShowWnd& canvas, const QString& baseFolder,
                            QWidget* parent = nullptr);

private:
    void BuildControls();
    void FillStyles();
    void FillClips();
    void OnClipChosen(const QListWidgetItem& item);
    void OnMore();
    void AddClip(const QString& file);

    CPhotoEditShowWnd& m_canvas;
    QString m_baseFolder;
    std::vector<ArtClipStyle> m_styles;
    QComboBox* m_styleCombo;
    CSpritePropsListBox* m_clips;
};

}  // namespace vellora
