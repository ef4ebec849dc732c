#pragma once

#include <array>

#include "base/ModuleState.h"
#include "ui/dialog/DialogLayout.h"
#include "ui/dialog/HostNotifier.h"
#include "ui/dialog/VUDFrame.h"

namespace vellora {

class CCoolTabBar;
class CDVDImage;
class CEditPage;
class CFlexibleToolBar;
class CImageObj;
class CPhotoCropFilter;
class CPhotoEditOperPropsPage;
class CPhotoEditOperTextPage;
class CPhotoEditShowWnd;
class CPhotoInfoEditPage;
class CTransparentStatic;
class EditSession;
struct ListedPhoto;

/// Commands of the tool panel, by the index of their buttons.
enum class ToolCommand { FlipX, FlipY, RotateLeft, RotateRight, Previous, Next, Close };

/// The window in which one photo of the list at a time is edited.
///
/// Every edit is made at once; there is nothing to cancel, and closing the window in whatever way
/// is "OK". The host hears of each flip, rotation, navigation and of the close command.
class CImageProcessDialog : public CVUDFrame, private OpenEdit {
    Q_OBJECT

public:
    /// @param document  Not owned; outlives the dialog.
    /// @param index     Of a photo with its records.
    CImageProcessDialog(CImageObj& document, int index, const HostNotifier& host);
    ~CImageProcessDialog() override;

    [[nodiscard]] int GetCurrentIndex() const { return m_index; }
    /// Message 19923.
    void OnToolCommand(ToolCommand command);
    /// A command of the text macro menu.
    void OnMacroCommand(int command);
    /// Commits and closes: "OK".
    void OnOk();
    /// Closes without touching any record, because the host's window has gone.
    void Abandon();

    void reject() override { OnOk(); }

Q_SIGNALS:
    /// The tab bar's selection was changed by the program: control id and notification code.
    void TabNotification(int controlId, int code);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] CDVDImage* record() const override;
    void expandTexts() override;

    void BuildTemplateControls();
    void BuildPages(const QString& baseFolder);
    void DeletePages();
    void Connect();
    void FitToContents();
    void OrderTabs();

    void OnTab(int item);
    void OnSpriteSelected();
    void EditPicture(void (EditSession::*edit)());
    void Navigate(int step);
    void OpenPhoto(const ListedPhoto& photo);
    void ShowPhoto();
    void FindIndexAgain();
    void UpdateStatus();

    CImageObj& m_document;
    int m_index;
    HostNotifier m_host;
    DialogLayout m_layout;
    EditSession* m_session;
    CPhotoEditShowWnd* m_canvas;
    CFlexibleToolBar* m_toolPanel;
    CCoolTabBar* m_tabBar;
    CTransparentStatic* m_status;
    CPhotoInfoEditPage* m_infoPage = nullptr;
    CPhotoEditOperTextPage* m_textPage = nullptr;
    CPhotoEditOperPropsPage* m_clipPage = nullptr;
    CPhotoCropFilter* m_cropPage = nullptr;
    std::array<CEditPage*, 4> m_pages{};  ///< In the order of their tabs.
    QImage m_toolHeader;
    QImage m_tabHeader;
    QBrush m_background;
};

}  // namespace vellora
