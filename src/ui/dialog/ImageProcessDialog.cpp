#include "ui/dialog/ImageProcessDialog.h"

#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QShortcut>
#include <QStyle>

#include <vellora/base/HostText.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/ImageObj.h>
#include <vellora/host/Language.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageSprite.h>

#include "base/ResourceIds.h"
#include "host/Guard.h"
#include "ui/EditSession.h"
#include "ui/WaitCursor.h"
#include "ui/canvas/PhotoEditShowWnd.h"
#include "ui/controls/ControlId.h"
#include "ui/controls/CoolButton.h"
#include "ui/controls/CoolTabBar.h"
#include "ui/controls/CoolToolBar.h"
#include "ui/controls/TransparentStatic.h"
#include "ui/dialog/DialogBars.h"
#include "ui/dialog/PhotoList.h"
#include "ui/pages/PhotoCropFilter.h"
#include "ui/pages/PhotoEditOperPropsPage.h"
#include "ui/pages/PhotoEditOperTextPage.h"
#include "ui/pages/PhotoInfoEditPage.h"
#include "ui/pages/TextMacroMenu.h"
#include "ui/skin/Skin.h"
#include "ui/skin/SkinStyle.h"

namespace vellora {
namespace {

constexpr int kTabBarId = 3337;
constexpr int kToolPanelId = 3338;
constexpr int kCanvasId = 3005;
constexpr int kToolHeaderImage = 3012;
constexpr int kTabHeaderImage = 3013;
constexpr int kBackgroundBitmap = 3014;
constexpr int kSelectionChanged = -551;
constexpr QColor kHeaderLine{0xCC, 0xCC, 0xCC};

// Items of the tab bar. What a selected sprite is compared with are not the items it switches to.
constexpr int kTextItem = 2;
constexpr int kClipItem = 4;
constexpr int kTextGuard = 1;
constexpr int kClipGuard = 2;

constexpr int kOrdinaryToolHeight = 44;
constexpr int kOrdinaryTabHeight = 32;
constexpr int kOrdinaryPageWidth = 321;
constexpr int kOrdinaryFontHeight = 16;

QImage headerImage(int id) {
    const auto image = LanguageImage(id);
    return image != nullptr ? *image : QImage();
}

}  // namespace

CImageProcessDialog::CImageProcessDialog(CImageObj& document, int index, const HostNotifier& host)
    : CVUDFrame(dialog_id::kEditDialog, nullptr),
      m_document(document),
      m_index(index),
      m_host(host),
      m_session(new EditSession(this)),
      m_canvas(withId(new CPhotoEditShowWnd(*m_session, this), kCanvasId)),
      m_toolPanel(
          withId(new CFlexibleToolBar(QStringLiteral("MainToolBtnBar"), this), kToolPanelId)),
      m_tabBar(withId(new CCoolTabBar(QStringLiteral("EditTabBar"), this), kTabBarId)),
      m_status(new CTransparentStatic({}, this)) {
    setWindowTitle(QStringLiteral("Edit Photo"));
    setWindowModality(Qt::ApplicationModal);
    BuildTemplateControls();
    TranslateDialog(*this, GetDialogId());
    m_toolHeader = headerImage(kToolHeaderImage);
    m_tabHeader = headerImage(kTabHeaderImage);
    if (const QImage tile = LanguageBitmap(kBackgroundBitmap, {}); !tile.isNull()) {
        m_background = tile;
    }
    fillToolPanel(*m_toolPanel);
    fillTabBar(*m_tabBar);
    m_tabBar->setAccessibleName(windowTitle());
    auto deletePages = qScopeGuard([this] { DeletePages(); });
    BuildPages(document.GetTextEffectBaseFolder());
    skin::applySkin(*this);
    Connect();
    OrderTabs();
    OpenPhoto(photoAt(document, index));
    OnTab(m_tabBar->currentIndex());
    FitToContents();
    m_canvas->setFocus();
    deletePages.dismiss();
}

CImageProcessDialog::~CImageProcessDialog() {
    DeletePages();
    if (CDVDImage* record = m_session->record(); record != nullptr) {
        record->GetProcessor()->ReleaseImages();
    }
    m_session->forgetPhoto();
}

void CImageProcessDialog::DeletePages() {
    // Before the session, which they still look at.
    for (CEditPage* page : findChildren<CEditPage*>()) {
        delete page;
    }
}

CDVDImage* CImageProcessDialog::record() const {
    return m_session->record();
}

void CImageProcessDialog::expandTexts() {
    m_canvas->ExpandTexts();
}

void CImageProcessDialog::BuildTemplateControls() {
    // Never shown; their commands still reach the dialog.
    const auto add = [this](int id, const char* text, auto handler) {
        auto* button = withId(new QPushButton(QString::fromLatin1(text), this), id);
        button->hide();
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QPushButton::clicked, this, handler);
    };
    add(1, "OK", [this] { OnOk(); });
    add(3023, "Info", [this] { m_tabBar->setCurrentIndex(0); });
    add(3003, "Text", [this] { m_tabBar->setCurrentIndex(kTextItem); });
    add(3004, "ArtClips", [this] { m_tabBar->setCurrentIndex(kClipItem); });
    add(3008, "<<", [this] { OnToolCommand(ToolCommand::Previous); });
    add(3009, ">>", [this] { OnToolCommand(ToolCommand::Next); });
    add(3010, "<90", [this] { OnToolCommand(ToolCommand::RotateLeft); });
    add(3011, "90>", [this] { OnToolCommand(ToolCommand::RotateRight); });
}

void CImageProcessDialog::BuildPages(const QString& baseFolder) {
    m_canvas->setLayoutDirection(Qt::LeftToRight);
    describe(*m_canvas, LanguageString(string_id::kCanvasName));
    m_canvas->setToolTip({});
    m_infoPage = new CPhotoInfoEditPage(*m_session, this);
    m_textPage = new CPhotoEditOperTextPage(*m_canvas, baseFolder, this);
    m_clipPage = new CPhotoEditOperPropsPage(*m_canvas, baseFolder, this);
    m_cropPage = new CPhotoCropFilter(*m_session, *m_canvas, this);
    m_pages = {m_infoPage, m_textPage, m_clipPage, m_cropPage};
}

void CImageProcessDialog::Connect() {
    connect(m_toolPanel, &CCoolToolBar::Command, this,
            [this](int index) { OnToolCommand(static_cast<ToolCommand>(index)); });
    connect(m_tabBar, &CCoolTabBar::CurrentItemChanged, this, &CImageProcessDialog::OnTab);
    connect(m_canvas, &CPhotoEditShowWnd::SpriteSelected, this,
            &CImageProcessDialog::OnSpriteSelected);
    connect(m_textPage, &CPhotoEditOperTextPage::MacroCommand, this,
            &CImageProcessDialog::OnMacroCommand);
    connect(m_session, &EditSession::albumChanged, this,
            [this] { m_document.SetChangedToAllNode(); });
    const auto shortcut = [this](const QKeySequence& keys, ToolCommand command) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this,
                [this, command] { OnToolCommand(command); });
    };
    shortcut(kPreviousKeys, ToolCommand::Previous);
    shortcut(kNextKeys, ToolCommand::Next);
    if (m_host.window() != nullptr) {
        connect(m_host.window(), &QObject::destroyed, this, &CImageProcessDialog::Abandon);
    }
}

void CImageProcessDialog::OrderTabs() {
    QWidget* last = m_toolPanel->GetButton(0);
    for (int index = 1; index <= static_cast<int>(ToolCommand::Close); ++index) {
        setTabOrder(last, m_toolPanel->GetButton(index));
        last = m_toolPanel->GetButton(index);
    }
    setTabOrder(last, m_canvas);
    setTabOrder(m_canvas, m_tabBar);
}

void CImageProcessDialog::FitToContents() {
    const int fontHeight = fontMetrics().height();
    m_layout.extraToolHeight = std::max(0, m_toolPanel->sizeHint().height() - kOrdinaryToolHeight);
    m_layout.extraTabHeight = std::max(0, fontHeight + 14 - kOrdinaryTabHeight);
    int pageHeight = 0;
    for (const CEditPage* page : m_pages) {
        pageHeight = std::max(pageHeight, page->minimumSizeHint().height());
    }
    const int pageWidth =
        kOrdinaryPageWidth * std::max(fontHeight, kOrdinaryFontHeight) / kOrdinaryFontHeight;
    const auto* host = qobject_cast<const QWidget*>(m_host.window());
    const QRect available = (host != nullptr ? host : this)->screen()->availableGeometry();
    setMinimumSize(m_layout.dialogSize({}));
    setGeometry(placedDialog(
        m_layout.dialogSize({pageWidth, pageHeight}), minimumSize(), available,
        host != nullptr ? host->window()->frameGeometry().center() : available.center()));
}

void CImageProcessDialog::resizeEvent(QResizeEvent* event) {
    CVUDFrame::resizeEvent(event);
    const auto place = [this](QWidget* widget, const QRect& target) {
        widget->setGeometry(QStyle::visualRect(layoutDirection(), rect(), target));
    };
    place(m_toolPanel, m_layout.toolPanel(size()));
    place(m_tabBar, m_layout.tabBar(size()));
    place(m_canvas, m_layout.canvas());
    place(m_status, m_layout.status(size()));
    for (CEditPage* page : m_pages) {
        place(page, m_layout.page(size()));
    }
}

void CImageProcessDialog::paintEvent(QPaintEvent* event) {
    CVUDFrame::paintEvent(event);
    QPainter painter(this);
    const auto mirrored = [this](const QRect& rect_) {
        return QStyle::visualRect(layoutDirection(), rect(), rect_);
    };
    if (m_background.style() != Qt::NoBrush) {
        painter.fillRect(rect().adjusted(1, kMoveZone, -1, -1), m_background);
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRect toolHeader = mirrored(m_layout.toolHeader(size()));
    if (m_toolHeader.isNull()) {
        painter.fillRect(toolHeader, QColor(255, 255, 255, 150));
    } else {
        painter.drawImage(toolHeader, m_toolHeader);
    }
    painter.drawImage(mirrored(m_layout.tabHeader(size())), m_tabHeader);
    const int line = m_layout.toolHeader(size()).bottom();
    painter.fillRect(QRect(5, line, width() - 5, 1), kHeaderLine);
    painter.fillRect(mirrored({m_layout.page(size()).left(), line, 1, height() - 6 - line}),
                     kHeaderLine);
    const QRect mat =
        m_canvas->geometry().adjusted(-kCanvasMat, -kCanvasMat, kCanvasMat, kCanvasMat);
    skin::drawFace(painter, mat, GetFrameBrush(), skin::kBorder);
}

void CImageProcessDialog::keyPressEvent(QKeyEvent* event) {
    // Neither Escape nor Return closes the dialog.
    if (event->key() == Qt::Key_Escape) {
        m_cropPage->DropCropFrame();
    } else if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        CVUDFrame::keyPressEvent(event);
    }
}

bool CImageProcessDialog::eventFilter(QObject* watched, QEvent* event) {
    // The host may have added or removed photos since.
    if (watched == m_toolPanel && event->type() == QEvent::Enter) {
        UpdateStatus();
    }
    return CVUDFrame::eventFilter(watched, event);
}

void CImageProcessDialog::OnTab(int item) {
    const auto chosen = static_cast<std::size_t>(item / 2);
    for (std::size_t index = 0; index < m_pages.size(); ++index) {
        m_pages[index]->setVisible(index == chosen);
    }
    m_infoPage->Save();
}

void CImageProcessDialog::OnSpriteSelected() {
    const CDVDImageSprite* sprite = m_canvas->GetSelected();
    if (sprite == nullptr) {
        return;
    }
    if (sprite->GetKind() == kTextSprite && m_tabBar->currentIndex() != kTextGuard) {
        m_tabBar->setCurrentIndex(kTextItem);
    } else if (sprite->GetKind() == kPropsSprite && m_tabBar->currentIndex() != kClipGuard) {
        m_tabBar->setCurrentIndex(kClipItem);
    }
    OnTab(m_tabBar->currentIndex());
    Q_EMIT TabNotification(kTabBarId, kSelectionChanged);
}

void CImageProcessDialog::OnMacroCommand(int command) {
    if (const auto macro = macroOfCommand(command)) {
        m_canvas->InsertMacro(*macro);
    }
}

void CImageProcessDialog::OnToolCommand(ToolCommand command) {
    switch (command) {
        case ToolCommand::FlipX:
            return EditPicture(&EditSession::flipX);
        case ToolCommand::FlipY:
            return EditPicture(&EditSession::flipY);
        case ToolCommand::RotateLeft:
            return EditPicture(&EditSession::rotateLeft);
        case ToolCommand::RotateRight:
            return EditPicture(&EditSession::rotateRight);
        case ToolCommand::Previous:
            return Navigate(-1);
        case ToolCommand::Next:
            return Navigate(+1);
        case ToolCommand::Close:
            FindIndexAgain();
            m_host.post(m_index);
            return OnOk();
    }
}

void CImageProcessDialog::EditPicture(void (EditSession::*edit)()) {
    FindIndexAgain();
    const ListedPhoto listed = photoAt(m_document, m_index);
    if (!listed.isUsable() || listed.image != m_session->record()) {
        return;
    }
    (m_session->*edit)();
    listed.image->SetBackgroundColor(listed.photo->background);
    m_cropPage->Refresh();
    m_canvas->Redraw();
    m_host.post(m_index);
}

void CImageProcessDialog::Navigate(int step) {
    FindIndexAgain();
    const ListedPhoto listed = photoAt(m_document, m_index + step);
    if (!listed.isUsable()) {
        return;
    }
    m_host.post(m_index);
    m_index += step;
    listed.photo->changed = 1;
    OpenPhoto(listed);
}

void CImageProcessDialog::OpenPhoto(const ListedPhoto& listed) {
    const WaitCursor wait;
    m_canvas->CommitEditor();
    if (CDVDImage* previous = m_session->record(); previous != nullptr) {
        m_infoPage->Save();
        previous->GetProcessor()->ReleaseImages();
    }
    // An inserted node is not bound to the album.
    listed.image->BindNode(listed.photo, m_document.GetAlbum());
    listed.image->SetBackgroundColor(listed.photo->background);
    SetFrameColor(listed.photo->background);
    // A picture that was built for an output may be there, at another size.
    listed.image->GetProcessor()->ReleaseImages();
    // Without memory for it the photo is shown as one that cannot be read: nothing may be thrown
    // through the event loop.
    guarded([&listed] {
        listed.image->GetProcessor()->Rebuild(true);
        return S_OK;
    });
    m_session->setPhoto(listed.image, m_document.GetAlbum());
    ShowPhoto();
}

void CImageProcessDialog::ShowPhoto() {
    m_canvas->SetSlide(m_index, photoCount(m_document));
    m_infoPage->Load();
    m_cropPage->SetEditRecord();
    m_cropPage->Refresh();
    m_canvas->Redraw();
    UpdateStatus();
}

void CImageProcessDialog::FindIndexAgain() {
    // A photo may stand in the list more than once.
    if (photoAt(m_document, m_index).image == m_session->record()) {
        return;
    }
    const int found = indexOfRecord(m_document, m_session->record());
    if (found >= 0) {
        m_index = found;
    }
}

void CImageProcessDialog::UpdateStatus() {
    FindIndexAgain();
    const int count = photoCount(m_document);
    const ListedPhoto listed = photoAt(m_document, m_index);
    const QString name =
        listed.isUsable() ? QFileInfo(hostText(listed.photo->path)).fileName() : QString();
    m_status->setText(QStringLiteral("%1   %2 / %3").arg(name).arg(m_index + 1).arg(count));
    const auto button = [this](ToolCommand command) {
        return m_toolPanel->GetButton(static_cast<int>(command));
    };
    button(ToolCommand::Previous)->setEnabled(photoAt(m_document, m_index - 1).isUsable());
    button(ToolCommand::Next)->setEnabled(photoAt(m_document, m_index + 1).isUsable());
}

void CImageProcessDialog::OnOk() {
    m_canvas->CommitEditor();
    m_infoPage->Save();
    if (_PHOTO_LIST_NODE* photo = m_session->node(); photo != nullptr) {
        photo->changed = 1;
    }
    done(QDialog::Accepted);
}

void CImageProcessDialog::Abandon() {
    // With the picture goes the filter of the page: the photo may outlive the dialog.
    if (CDVDImage* record = m_session->record(); record != nullptr) {
        record->GetProcessor()->ReleaseImages();
    }
    m_session->forgetPhoto();
    m_infoPage->Load();
    for (QWidget* modal = QApplication::activeModalWidget(); modal != nullptr && modal != this;) {
        QWidget* const closed = modal;
        modal->close();
        modal = QApplication::activeModalWidget();
        if (modal == closed) {
            break;
        }
    }
    done(QDialog::Rejected);
}

}  // namespace vellora
