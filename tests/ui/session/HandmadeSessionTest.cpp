// A show edited by hand, from bare photos to a project file, and what comes out of it.

#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QUrl>
#include <algorithm>

#include <opencv2/core/core_c.h>

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/NodeHandle.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageText.h>

#include "support/TestPhotos.h"
#include "ui/canvas/FilterMarker.h"
#include "ui/canvas/PhotoEditShowWnd.h"
#include "ui/dialog/DialogFixture.h"

namespace vellora {
namespace {

constexpr int kPhotos = 2;

/// The project, read into a show with copies of the same host records.
class LoadedShow {
public:
    LoadedShow(const QString& project, const QString& baseFolder,
               const std::vector<_PHOTO_LIST_NODE>& photos)
        : m_photos(photos) {
        m_document.SetTextEffectBaseFolder(baseFolder);
        for (_PHOTO_LIST_NODE& photo : m_photos) {
            m_document.AddPhotoListNode(&photo, &m_handles.emplace_back());
        }
        EXPECT_EQ(m_document.LoadFromXMLFile(project), S_OK);
    }
    ~LoadedShow() {
        for (_HNODE* handle : m_handles) {
            ReleaseNode(handle);
        }
    }

    CImageObj& document() { return m_document; }
    _HNODE* handle(int index) { return m_handles[static_cast<std::size_t>(index)]; }

private:
    CImageObj m_document;
    std::vector<_PHOTO_LIST_NODE> m_photos;
    std::vector<_HNODE*> m_handles;
};

/// The finished picture of a photo, at its full size.
cv::Mat output(_HNODE* handle) {
    ImagePtr picture;
    GetOutImg(handle, 0, 0, [&](IplImage** out, int width, int height) {
        picture.reset(cvCreateImage(cvSize(width, height), IPL_DEPTH_8U, 3));
        *out = picture.get();
    });
    ReleaseImgBuf(handle);
    return picture != nullptr ? cv::cvarrToMat(picture.get(), true) : cv::Mat();
}

/// The stage as it is drawn from the records alone.
QImage preview(_HNODE* handle) {
    CDVDImage& image = *handle->data->image;
    image.SetBackgroundColor(handle->data->photo->background);
    image.GetProcessor()->ReleaseImages();
    image.GetProcessor()->Rebuild(true);
    image.SetCanvasSize(600, 450);
    QImage picture = image.Compose(600, 450, 0).convertToFormat(QImage::Format_RGB32);
    image.GetProcessor()->ReleaseImages();
    return picture;
}

/// The largest difference of a channel, inside or outside of a rectangle.
int difference(const QImage& a, const QImage& b, const QRect& rect, bool inside) {
    EXPECT_EQ(a.size(), b.size());
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (rect.contains(x, y) == inside) {
                const QColor one = a.pixelColor(x, y);
                const QColor other = b.pixelColor(x, y);
                largest = std::max({largest, std::abs(one.red() - other.red()),
                                    std::abs(one.green() - other.green()),
                                    std::abs(one.blue() - other.blue())});
            }
        }
    }
    return largest;
}

class HandmadeSessionTest : public test::DialogFixture {
protected:
    HandmadeSessionTest() : test::DialogFixture(kPhotos) {
        document.SetTextEffectBaseFolder(QStringLiteral(VELLORA_ASSETS_DIR));
    }

    void choose(const QString& filter) {
        auto& list = control<QListWidget>(3037);
        QListWidgetItem* item = list.findItems(filter, Qt::MatchExactly).value(0);
        ASSERT_NE(item, nullptr) << filter.toStdString();
        list.scrollToItem(item);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(item).center());
    }
    /// Moves a slider of the crop page with the keys.
    void slide(int id, Qt::Key key, int times) {
        auto& slider = control<QSlider>(id);
        slider.setFocus();
        for (int step = 0; step < times; ++step) {
            QTest::keyClick(&slider, key);
        }
    }
    void save() {
        auto& button = control<QPushButton>(3025);
        ASSERT_TRUE(button.isEnabled());
        click(button);
    }
    void doubleClickRow(int row) {
        auto& list = control<QListWidget>(1021);
        list.scrollToItem(list.item(row));
        const QPoint at = list.visualItemRect(list.item(row)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
    }
    void clickRow(int row) {
        auto& list = control<QListWidget>(1021);
        list.scrollToItem(list.item(row));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                          list.visualItemRect(list.item(row)).center());
    }
    void dragOnCanvas(QPoint from, QPoint to) { drag(canvas(), from, to); }
    void doubleClickCanvas(QPoint at) {
        QTest::mouseClick(&canvas(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(&canvas(), Qt::LeftButton, {}, at);
    }
    /// Types into the open editor and commits.
    void type(const QString& text) {
        auto* editor = canvas().findChild<QPlainTextEdit*>();
        ASSERT_NE(editor, nullptr);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        ASSERT_FALSE(canvas().IsEditorOpen());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void dropFile(const QString& file, QPoint at) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(file)});
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&canvas(), &enter);
        QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&canvas(), &drop);
    }
    /// What the canvas shows, without marks of selection and focus.
    QImage shown() {
        canvas().Select(nullptr);
        canvas().clearFocus();
        return canvas().grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    void giveTheFacts();
    void cropAndFilter();
    void turnAndCropAgain();
    void writeTexts();
    void placeClips();

    std::vector<_PHOTO_LIST_NODE> hostRecords() {
        std::vector<_PHOTO_LIST_NODE> copies;
        for (int index = 0; index < kPhotos; ++index) {
            copies.push_back(photo(index));
        }
        return copies;
    }
    QByteArray jpeg(CImageObj& show, int index) {
        const QString path = folder.filePath(QStringLiteral("out.jpg"));
        QFile::remove(path);
        EXPECT_EQ(show.SaveNodeToFile(path, index, 900, 700, 90, 0, 0, 0x203040), S_OK);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    QRect m_vectorClip;
};

void HandmadeSessionTest::giveTheFacts() {
    auto& title = control<QLineEdit>(3010);
    QTest::mouseClick(&title, Qt::LeftButton);
    QTest::keyClicks(&title, QStringLiteral("A day out"));
}

void HandmadeSessionTest::cropAndFilter() {
    showTab(6);
    click(control<QRadioButton>(3035));
    dragOnCanvas({0, 0}, {61, 47});
    dragOnCanvas({600, 450}, {541, 403});
    choose(QStringLiteral("Brightness Contrast"));
    slide(3039, Qt::Key_PageUp, 1);
    slide(3040, Qt::Key_Right, 7);
    save();
    choose(QStringLiteral("HSL"));
    slide(3039, Qt::Key_Right, 9);
    slide(3040, Qt::Key_Left, 5);
    save();
    choose(QStringLiteral("Red Eye Removal"));
    auto* marker = canvas().findChild<FilterMarker*>();
    ASSERT_TRUE(marker->isVisible());
    drag(*marker, {10, 10}, {-110, -70});
    save();
    click(control<QPushButton>(3053));
    choose(QStringLiteral("Embossment"));
    save();
    EXPECT_EQ(image(0).GetProcessor()->GetFilterCount(), 4);
    EXPECT_EQ(image(0).GetProcessor()->GetCropCount(), 1);
}

void HandmadeSessionTest::turnAndCropAgain() {
    clickTool(ToolCommand::FlipY);
    clickTool(ToolCommand::RotateRight);
    click(control<QRadioButton>(3033));
    const Rect frame = canvas().GetCropFrame();
    dragOnCanvas({frame.left, frame.top}, {frame.left + 40, frame.top + 30});
    click(control<QPushButton>(3052));
    choose(QStringLiteral("Sharpen"));
    slide(3039, Qt::Key_Right, 2);
    save();
    clickTool(ToolCommand::FlipX);
    EXPECT_EQ(image(0).GetProcessor()->GetCropCount(), 2);
}

void HandmadeSessionTest::writeTexts() {
    showTab(2);
    click(control<QPushButton>(1258));
    auto* text = dynamic_cast<CDVDImageText*>(canvas().GetSelected());
    ASSERT_NE(text, nullptr);
    doubleClickCanvas(text->GetPosition() + QPoint(8, 8));
    type(QStringLiteral("  Tea & <$[t]>"));
    EXPECT_EQ(text->GetText(), QStringLiteral("  Tea & <$[t]>"));
    clickRow(7);
    auto& size = control<QSpinBox>(1228);
    size.selectAll();
    QTest::keyClicks(&size, QStringLiteral("37"));
    click(control<QPushButton>(1230));
    dragOnCanvas(text->GetPosition() + QPoint(20, 20), {200, 260});
    QTest::keyClick(&canvas(), Qt::Key_Right, Qt::ShiftModifier);
    doubleClickRow(20);
    click(control<QPushButton>(1358));
    EXPECT_EQ(document.GetAlbum()->GetSprites().GetSize(), 1);
}

void HandmadeSessionTest::placeClips() {
    showTab(4);
    control<QComboBox>(1243).setCurrentIndex(1);
    doubleClickRow(2);
    CDVDImageSprite* clip = canvas().GetSelected();
    ASSERT_NE(clip, nullptr);
    dragOnCanvas(QRect(clip->GetPosition(), clip->GetSize()).center(), {400, 180});
    const Rect rect = clip->GetRect();
    dragOnCanvas({rect.right, rect.bottom}, {rect.right + 60, rect.bottom + 40});
    EXPECT_GT(clip->GetSize().width(), rect.width());
    m_vectorClip = QRect(clip->GetPosition(), clip->GetSize());
    dropFile(test::writePng(folder, QStringLiteral("clip.png"), test::gradient(90, 70)),
             {120, 330});
    canvas().Command(32843);
    EXPECT_EQ(image(0).GetSprites().GetSize(), 3);
}

TEST_F(HandmadeSessionTest, LooksTheSameOnTheCanvasInTheOutputAndAfterLoading) {
    open(0);
    dialog().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog()));
    giveTheFacts();
    cropAndFilter();
    turnAndCropAgain();
    writeTexts();
    placeClips();
    const QImage edited = shown();
    clickTool(ToolCommand::Next);
    clickTool(ToolCommand::RotateLeft);
    showTab(2);
    doubleClickRow(11);
    const QImage second = shown();
    QTest::keyClick(&dialog(), Qt::Key_PageUp, Qt::ControlModifier);
    const QImage again = shown();
    clickTool(ToolCommand::Close);
    close();

    const QString project = folder.filePath(QStringLiteral("show.xml"));
    ASSERT_EQ(document.SaveToXMLFile(project), S_OK);
    LoadedShow loaded(project, document.GetTextEffectBaseFolder(), hostRecords());
    EXPECT_EQ(again, edited) << "made anew from the record";
    // A vector clip is a layer of its own on the canvas, where its edges are rounded once more.
    const QImage fresh = preview(loaded.handle(0));
    EXPECT_EQ(difference(again, fresh, m_vectorClip, false), 0);
    EXPECT_LE(difference(again, fresh, m_vectorClip, true), 1);
    EXPECT_EQ(second, preview(loaded.handle(1)));
    for (int index = 0; index < kPhotos; ++index) {
        const cv::Mat live = output(m_handles[static_cast<std::size_t>(index)]);
        EXPECT_FALSE(live.empty());
        EXPECT_TRUE(test::identical(live, output(loaded.handle(index)))) << index;
        EXPECT_EQ(jpeg(document, index), jpeg(loaded.document(), index)) << index;
    }
}

}  // namespace
}  // namespace vellora
