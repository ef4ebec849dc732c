#pragma once

#include <QPixmap>
#include <array>
#include <memory>
#include <vector>

#include "ui/pages/CommitButtons.h"
#include "ui/pages/EditPage.h"
#include "ui/pages/SliderSetup.h"

class QButtonGroup;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QBoxLayout;

namespace vellora {

class COpencvFilterInterface;
class CPhotoEditShowWnd;
class EditSession;
class FilterParameterRow;

/// The crop-and-filter page: crop modes, the filters as thumbnails of the photo, the parameters of
/// the selected one, and the commands that commit or take back.
class CPhotoCropFilter : public CEditPage {
    Q_OBJECT

public:
    /// @param session, canvas  Not owned; outlive the page.
    CPhotoCropFilter(EditSession& session, CPhotoEditShowWnd& canvas, QWidget* parent = nullptr);
    ~CPhotoCropFilter() override;

    /// Another photo is open: new thumbnails, nothing to save.
    void SetEditRecord();
    /// Goes back to "No Change" and to the first filter of the list.
    void Refresh();
    /// Chooses "No Change".
    void DropCropFrame();
    /// The selected filter, or null.
    [[nodiscard]] COpencvFilterInterface* GetSelectedFilter() const;
    /// Makes the selected filter the preview filter again, after the photo's pictures were made
    /// anew behind the page's back.
    void RestorePreview();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void BuildCropGroup(QBoxLayout& page);
    void BuildFilterGroup(QBoxLayout& page);
    void BuildCommands(QBoxLayout& page);
    void BuildFilterList();

    void FillList();
    void UpdateThumbnails();
    void ShowThumbnails();
    void OnFilterSelected();
    void OnSliderMoved();
    void OnCropModeChosen(int mode);
    void OnSave();
    void OnRestore();
    void UpdateButtons();
    [[nodiscard]] int SelectedRow() const;
    [[nodiscard]] CropMode ChosenCropMode() const;

    EditSession& m_session;
    CPhotoEditShowWnd& m_canvas;
    std::vector<std::unique_ptr<COpencvFilterInterface>> m_filters;
    std::vector<QPixmap> m_thumbnails;
    bool m_thumbnailsStale = true;
    FilterSliders m_sliders;
    CommitButtons m_commit;

    QButtonGroup* m_crop;
    QButtonGroup* m_category;
    QListWidget* m_list;
    std::array<FilterParameterRow*, 3> m_rows{};
    QPushButton* m_restore = nullptr;
    QPushButton* m_save = nullptr;
};

}  // namespace vellora
