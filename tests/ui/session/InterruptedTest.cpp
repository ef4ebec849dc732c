// The dialog closes, or what it shows goes, in the middle of something.

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTimer>
#include <QWidget>
#include <QtTest>

#include <gtest/gtest.h>

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageText.h>

#include "ui/canvas/PhotoEditShowWnd.h"
#include "ui/dialog/ImageProcessDialog.h"
#include "ui/dialog/PhotoList.h"
#include "ui/session/EditedShow.h"

namespace vellora {
namespace {

class InterruptedTest : public testing::Test {
protected:
    static void send(QWidget& target, QEvent::Type type, QPoint point, Qt::MouseButtons buttons) {
        QMouseEvent event(type, point, target.mapToGlobal(point), Qt::LeftButton, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(&target, &event);
    }
    static void press(QPoint point) {
        send(*test::openCanvas(), QEvent::MouseButtonPress, point, Qt::LeftButton);
    }
    static void drag(QPoint point) {
        send(*test::openCanvas(), QEvent::MouseMove, point, Qt::LeftButton);
    }
    static QPlainTextEdit* editor() {
        QPlainTextEdit* edit = nullptr;
        for (auto* child : test::openCanvas()->findChildren<QPlainTextEdit*>()) {
            edit = child->isVisible() ? child : edit;
        }
        return edit;
    }
    CDVDImageText* onlyText(int photo) {
        const CDVDImageSpriteArray& sprites = photoAt(m_show.document, photo).image->GetSprites();
        return sprites.GetSize() == 1 ? dynamic_cast<CDVDImageText*>(sprites.GetAt(0)) : nullptr;
    }
    /// A text at (50, 50), grabbed and on its way.
    static void beginDrag() {
        test::openCanvas()->AddText();
        press({60, 60});
        drag({160, 90});
    }
    /// The same text, typed over.
    static void beginTyping() {
        test::openCanvas()->AddText();
        QTest::keyClick(test::openCanvas(), Qt::Key_F2);
        QTest::keyClicks(editor(), QStringLiteral("Typed"));
    }

    test::EditedShow m_show{3};
    QObject m_host;
};

TEST_F(InterruptedTest, ClosingInTheMiddleOfADragKeepsWhatWasDragged) {
    EXPECT_EQ(m_show.edit(0, &m_host,
                          [] {
                              beginDrag();
                              test::openDialog()->close();
                          }),
              S_OK);
    EXPECT_EQ(test::openDialog(), nullptr);
    ASSERT_NE(onlyText(0), nullptr);
    EXPECT_EQ(onlyText(0)->GetPosition(), QPoint(150, 80));
}

TEST_F(InterruptedTest, ClosingWhileTypingCommitsTheText) {
    m_show.edit(1, &m_host, [] {
        beginTyping();
        test::openDialog()->close();
    });
    ASSERT_NE(onlyText(1), nullptr);
    EXPECT_EQ(onlyText(1)->GetText(), QStringLiteral("Typed"));
    EXPECT_EQ(m_show.photos[1]->changed, 1);
}

TEST_F(InterruptedTest, NavigatingWhileTypingCommitsTheTextToItsPhoto) {
    m_show.edit(0, &m_host, [] {
        beginTyping();
        QTest::keyClick(test::openDialog(), Qt::Key_PageDown, Qt::ControlModifier);
        test::openDialog()->OnToolCommand(ToolCommand::Next);
        test::openDialog()->close();
    });
    ASSERT_NE(onlyText(0), nullptr);
    EXPECT_EQ(onlyText(0)->GetText(), QStringLiteral("Typed"));
    EXPECT_EQ(onlyText(1), nullptr);
}

TEST_F(InterruptedTest, ClosingUnderAMessageBoxClosesBoth) {
    bool sawBox = false;
    m_show.edit(0, &m_host, [&] {
        QTimer::singleShot(0, [&] {
            sawBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr;
            test::openDialog()->close();
            if (QWidget* box = QApplication::activeModalWidget(); box != nullptr) {
                box->close();
            }
        });
        test::openDialog()->findChild<QLineEdit*>()->setText(QString(150, u'x'));
    });
    EXPECT_TRUE(sawBox);
    EXPECT_EQ(test::openDialog(), nullptr);
}

TEST_F(InterruptedTest, TheHostWindowMayGoAtAnyTime) {
    const auto ends = [this](const std::function<void()>& user) {
        auto window = std::make_unique<QWidget>();
        window->show();
        EXPECT_EQ(m_show.edit(0, window.get(),
                              [&] {
                                  QTimer::singleShot(0, [&] { window.reset(); });
                                  user();
                              }),
                  S_OK);
        EXPECT_EQ(test::openDialog(), nullptr);
    };
    ends(beginDrag);
    ends(beginTyping);
    ends([] { test::openDialog()->findChild<QLineEdit*>()->setText(QString(150, u'x')); });
    ends([] {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {60, 60},
                                test::openCanvas()->mapToGlobal(QPoint(60, 60)));
        QApplication::sendEvent(test::openCanvas(), &event);
    });
}

TEST_F(InterruptedTest, AFilterOfTheDialogGoesWithTheHostWindow) {
    _HNODE* element = nullptr;
    ASSERT_EQ(m_show.document.GetNodeData(0, &element), S_OK);
    const CPhotoProcessor& processor =
        *reinterpret_cast<_HNODE_DATA*>(element)->image->GetProcessor();
    auto window = std::make_unique<QWidget>();
    window->show();
    m_show.edit(0, window.get(), [&] {
        for (QListWidget* list : test::openDialog()->findChildren<QListWidget*>()) {
            if (list->property("controlId").toInt() == 3037) {
                list->setCurrentRow(2);
            }
        }
        EXPECT_NE(processor.GetCurrentFilter(), nullptr);
        QTimer::singleShot(0, [&] { window.reset(); });
    });
    EXPECT_EQ(processor.GetCurrentFilter(), nullptr) << "the page that owned it is gone";
    EXPECT_EQ(processor.GetWorking(), nullptr) << "the host gets the photo as it is committed";
}

TEST_F(InterruptedTest, PhotosMayComeAndGoWhileTheDialogIsOpen) {
    m_show.edit(1, &m_host, [this] {
        m_show.addPhoto();
        beginDrag();
        m_show.removePhoto(0);
        drag({200, 200});
        m_show.removePhoto(0);  // the one that is shown
        drag({250, 200});
        send(*test::openCanvas(), QEvent::MouseButtonRelease, {250, 200}, Qt::NoButton);
        QTest::keyClick(test::openCanvas(), Qt::Key_Left);
        QTest::keyClick(test::openCanvas(), Qt::Key_Delete);
        test::openCanvas()->Command(33927);
        test::openCanvas()->SetCropMode(1);
        test::openCanvas()->Redraw();
        test::openCanvas()->repaint();
        test::openDialog()->OnToolCommand(ToolCommand::FlipX);
        test::openDialog()->OnToolCommand(ToolCommand::Previous);
        test::openDialog()->OnToolCommand(ToolCommand::Next);
        test::openDialog()->close();
    });
    EXPECT_EQ(m_show.count(), 2);
}

TEST_F(InterruptedTest, ATextWhosePhotoGoesWhileItIsTypedIsDropped) {
    m_show.edit(1, &m_host, [this] {
        beginTyping();
        m_show.removePhoto(1);
        QTest::keyClick(editor(), Qt::Key_Return);
        test::openCanvas()->AddText();
        test::openDialog()->close();
    });
    EXPECT_TRUE(photoAt(m_show.document, 0).image->GetSprites().IsEmpty());
    EXPECT_TRUE(photoAt(m_show.document, 1).image->GetSprites().IsEmpty());
}

TEST_F(InterruptedTest, TheAlbumMayBeEmptiedWhileItsSpriteIsDragged) {
    m_show.edit(0, &m_host, [this] {
        test::openCanvas()->AddText();
        test::openCanvas()->Command(33927);
        press({60, 60});
        drag({100, 100});
        m_show.document.RemoveAllAlbumSprites();
        drag({200, 100});
        test::openCanvas()->repaint();
        send(*test::openCanvas(), QEvent::MouseButtonRelease, {200, 100}, Qt::NoButton);
        test::openDialog()->close();
    });
    EXPECT_TRUE(m_show.document.GetAlbum()->GetSprites().IsEmpty());
}

}  // namespace
}  // namespace vellora
