// The dialog in its own modal loop, driven by timers as a user and a host would.

#include <QApplication>
#include <QFile>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <thread>

#include <opencv2/core/core_c.h>

#include <vellora/base/HostText.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/NodeHandle.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageText.h>

#include "base/ModuleState.h"
#include "support/TestPhotos.h"
#include "ui/dialog/DialogFixture.h"

namespace vellora {
namespace {

class ShowProcessDialogTest : public test::DialogFixture {
protected:
    /// Does something once the dialog is up, then closes it with "OK".
    STATUS showAnd(int index, QObject* window, const std::function<void(QWidget&)>& act) {
        QTimer::singleShot(0, qApp, [act] {
            QPointer<QWidget> shown = QApplication::activeModalWidget();
            ASSERT_NE(shown, nullptr);
            act(*shown);
            if (shown != nullptr && shown->isVisible()) {
                shown->close();
            }
        });
        return document.ShowProcessDialog(index, window, test::kHostMessage);
    }
    static IplImage* render(_HNODE* node, int width, int height) {
        return GetOutImg(node, width, height, [](IplImage** out, int w, int h) {
            *out = cvCreateImage(cvSize(w, h), IPL_DEPTH_8U, 3);
        });
    }
    static bool lockIsFree() {
        bool free = false;
        std::thread([&free] {
            free = imageBufferLock().try_lock();
            if (free) {
                imageBufferLock().unlock();
            }
        }).join();
        return free;
    }
};

TEST_F(ShowProcessDialogTest, RefusesAnIndexWithoutPhoto) {
    EXPECT_EQ(document.ShowProcessDialog(3, &host, test::kHostMessage), E_FAIL);
    EXPECT_EQ(document.ShowProcessDialog(-1, &host, test::kHostMessage), E_FAIL);
    CDVDImage* const image = m_handles[0]->data->image;
    m_handles[0]->data->image = nullptr;
    EXPECT_EQ(document.ShowProcessDialog(0, &host, test::kHostMessage), E_FAIL);
    m_handles[0]->data->image = image;
}

TEST_F(ShowProcessDialogTest, HoldsTheLockAndBindsThePhoto) {
    photo(1).background = 0x00336699;
    EXPECT_EQ(showAnd(1, nullptr, [](QWidget&) { EXPECT_FALSE(lockIsFree()); }), S_OK);
    EXPECT_TRUE(lockIsFree());
    EXPECT_TRUE(document.GetImageFilePath().endsWith(QStringLiteral("photo1.png")));
    EXPECT_EQ(image(1).GetBackgroundColor(), 0x00336699U);
    EXPECT_EQ(image(1).GetProcessor()->GetWorking(), nullptr);
}

TEST_F(ShowProcessDialogTest, TheHostMayRenderAndReleaseMeanwhile) {
    const auto act = [this](QWidget& shown) {
        QWidget* canvas = controlWithId(shown, 3005);
        const QImage before = canvas->grab().toImage();
        IplImage* preview = render(m_handles[0], 1, 1);
        IplImage* full = render(m_handles[0], 0, 0);
        ASSERT_NE(preview, nullptr);
        ASSERT_NE(full, nullptr);
        EXPECT_EQ(full->width, 1200);
        EXPECT_EQ(preview->width, 600);
        cvReleaseImage(&preview);
        cvReleaseImage(&full);
        const QString file = folder.filePath(QStringLiteral("out.jpg"));
        EXPECT_EQ(document.SaveNodeToFile(file, 0, 0, 0, 90, 0, 0, 0), S_OK);
        EXPECT_EQ(QImage(file).width(), 1200);
        ReleaseImgBuf(m_handles[0]);
        EXPECT_NE(image(0).GetProcessor()->GetWorking(), nullptr);
        EXPECT_EQ(image(0).GetProcessor()->GetWidth(), 600);
        canvas->update();
        EXPECT_EQ(canvas->grab().toImage(), before);
    };
    EXPECT_EQ(showAnd(0, &host, act), S_OK);
    ReleaseImgBuf(m_handles[0]);
    EXPECT_EQ(image(0).GetProcessor()->GetWorking(), nullptr);
}

// A photo that is turned and then mirrored is another picture once it is built anew.
TEST_F(ShowProcessDialogTest, WhatTheHostRendersMeanwhileLeavesThePictureAndTheTextsAlone) {
    auto* text = new CDVDImageText(&image(1), QStringLiteral("."));
    text->SetText(QStringLiteral("$[p] of $[P]"));
    image(1).AddSprite(text, false);
    const auto act = [this, text](QWidget& shown) {
        auto& dialog = dynamic_cast<CImageProcessDialog&>(shown);
        dialog.OnToolCommand(ToolCommand::RotateRight);
        dialog.OnToolCommand(ToolCommand::FlipX);
        const CPhotoProcessor& processor = *image(1).GetProcessor();
        const cv::Mat before = cv::cvarrToMat(processor.GetWorking(), true);
        EXPECT_EQ(text->GetDisplayText(), QStringLiteral("2 of 3"));
        const auto expectUnchanged = [&] {
            EXPECT_TRUE(test::identical(cv::cvarrToMat(processor.GetWorking(), true), before));
            EXPECT_TRUE(processor.IsScaled());
            EXPECT_EQ(text->GetDisplayText(), QStringLiteral("2 of 3"));
        };
        IplImage* full = render(m_handles[1], 0, 0);
        ASSERT_NE(full, nullptr);
        cvReleaseImage(&full);
        expectUnchanged();
        const QString file = folder.filePath(QStringLiteral("out.jpg"));
        EXPECT_EQ(document.SaveNodeToFile(file, 1, 0, 0, 90, 0, 0, 0), S_OK);
        expectUnchanged();
        QFile::remove(hostText(photo(1).path));
        EXPECT_EQ(render(m_handles[1], 0, 0), nullptr);
        expectUnchanged();
    };
    EXPECT_EQ(showAnd(1, nullptr, act), S_OK);
}

TEST_F(ShowProcessDialogTest, ATextOfTheAlbumSurvivesRenderingAnotherPhoto) {
    auto* text = new CDVDImageText(document.GetAlbum(), QStringLiteral("."));
    text->SetText(QStringLiteral("$[p] of $[P]"));
    document.GetAlbum()->AddSprite(text, false);
    EXPECT_EQ(showAnd(2, nullptr,
                      [this, text](QWidget&) {
                          IplImage* other = render(m_handles[0], 1, 1);
                          cvReleaseImage(&other);
                          EXPECT_EQ(text->GetDisplayText(), QStringLiteral("3 of 3"));
                      }),
              S_OK);
}

TEST_F(ShowProcessDialogTest, AHostWindowThatGoesClosesTheDialog) {
    auto* window = new QWidget;
    window->show();
    photo(0).changed = 0;
    const STATUS status = showAnd(0, window, [window](QWidget& shown) {
        const QPointer<QWidget> dialog(&shown);
        delete window;
        ASSERT_NE(dialog, nullptr);
        EXPECT_FALSE(dialog->isVisible());
    });
    EXPECT_EQ(status, S_OK);
    EXPECT_EQ(photo(0).changed, 0);
    EXPECT_TRUE(lockIsFree());
}

TEST_F(ShowProcessDialogTest, MessagesReachTheHostWhileTheDialogIsOpen) {
    std::vector<int> seen;
    EXPECT_EQ(showAnd(0, &host,
                      [&](QWidget& shown) {
                          controlWithId<QPushButton>(shown, 3011)->click();
                          EXPECT_TRUE(host.indices.empty());
                          QCoreApplication::processEvents();
                          seen = host.indices;
                      }),
              S_OK);
    EXPECT_EQ(seen, std::vector<int>{0});
}

}  // namespace
}  // namespace vellora
