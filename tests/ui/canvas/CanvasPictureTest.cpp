#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QThread>
#include <QUrl>
#include <QtTest>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>

#include "ui/canvas/CanvasFixture.h"
#include "ui/canvas/FilterMarker.h"

namespace vellora {
namespace {

using CanvasPictureTest = test::CanvasFixture;

/// An effect that takes its time and notes what the user sees meanwhile.
class SlowFilter : public COpencvFilterInterface {
public:
    SlowFilter() { is_art_effect = 1; }

    bool Apply(IplImage** /*image*/) override {
        ++applied;
        sawWaitCursor = QApplication::overrideCursor() != nullptr &&
                        QApplication::overrideCursor()->shape() == Qt::WaitCursor;
        QThread::msleep(milliseconds);
        return true;
    }
    [[nodiscard]] COpencvFilterInterface* Clone() const override { return new SlowFilter; }
    [[nodiscard]] const char16_t* GetName() const override { return u"Slow"; }

    unsigned long milliseconds = 260;
    int applied = 0;
    bool sawWaitCursor = false;
};

TEST_F(CanvasPictureTest, TheCropFrameFollowsItsModeAndDrags) {
    m_canvas.SetCropMode(1);
    EXPECT_EQ(m_canvas.GetCropFrame(), (Rect{0, 0, 600, 450}));
    drag({1, 1}, {120, 0});
    EXPECT_EQ(m_canvas.GetCropFrame(), (Rect{120, 90, 600, 450}));
    m_canvas.SetCropMode(1);
    EXPECT_EQ(m_canvas.GetCropFrame(), (Rect{120, 90, 600, 450}));
    // Outside is darkened, inside is not.
    EXPECT_LT(shownAt({60, 300}).red(), 120);
    EXPECT_EQ(shownAt({200, 300}), QColor(200, 200, 200));
    move({300, 300}, Qt::NoButton);
    EXPECT_EQ(m_canvas.cursor().shape(), Qt::SizeAllCursor);
    move({360, 90}, Qt::NoButton);
    EXPECT_EQ(m_canvas.cursor().shape(), Qt::SizeVerCursor);
    m_canvas.PictureCommitted();
    EXPECT_TRUE(m_canvas.GetCropFrame().isEmpty());
}

TEST_F(CanvasPictureTest, EscapeDropsTheCropFrame) {
    int dropped = 0;
    QObject::connect(&m_canvas, &CPhotoEditShowWnd::CropFrameDropped, [&] { ++dropped; });
    key(Qt::Key_Escape);
    EXPECT_EQ(dropped, 0);
    m_canvas.SetCropMode(2);
    key(Qt::Key_Escape);
    EXPECT_EQ(dropped, 1);
    EXPECT_TRUE(m_canvas.GetCropFrame().isEmpty());
    EXPECT_EQ(m_canvas.GetCropMode(), 3);
}

TEST_F(CanvasPictureTest, CommittingCutsWhatTheFrameShows) {
    m_canvas.SetCropMode(0);
    drag({600, 450}, {300, 150});
    EXPECT_TRUE(m_session.commitPicture(m_canvas.GetCropFrame()));
    m_canvas.PictureCommitted();
    const CPhotoProcessor& processor = *m_record->GetProcessor();
    ASSERT_EQ(processor.GetCropCount(), 1);
    EXPECT_EQ(*processor.GetCrop(0), (CropRecord{0, 0, 300, 150, false, false, 0}));
    EXPECT_EQ(m_session.placedPhoto(), (Rect{150, 150, 450, 300}));
    EXPECT_EQ(m_node->changed, 1);
    EXPECT_EQ(shownAt({140, 200}), QColor(Qt::black));
    EXPECT_EQ(shownAt({160, 200}), QColor(200, 200, 200));
    m_session.restoreOriginal();
    EXPECT_EQ(m_session.placedPhoto(), (Rect{0, 0, 600, 450}));
    EXPECT_EQ(shownAt({140, 200}), QColor(200, 200, 200));
}

TEST_F(CanvasPictureTest, TheLiveFilterIsShownButNotRecorded) {
    shown();
    const std::unique_ptr<COpencvFilterInterface> inverse(CreateFilterByName(u"Inverse"));
    m_record->GetProcessor()->SetCurrentFilter(inverse.get());
    EXPECT_EQ(shownAt({300, 200}).red(), 200) << "kept until 9030";
    m_canvas.Redraw();
    EXPECT_EQ(shownAt({300, 200}), QColor(55, 55, 55));
    EXPECT_EQ(m_record->GetProcessor()->GetFilterCount(), 0);
    EXPECT_TRUE(m_session.commitPicture({}));
    EXPECT_EQ(m_record->GetProcessor()->GetFilterCount(), 1);
    m_record->GetProcessor()->SetCurrentFilter(nullptr);
    m_canvas.PictureCommitted();
    EXPECT_EQ(shownAt({300, 200}), QColor(55, 55, 55));
}

TEST_F(CanvasPictureTest, IntermediateSliderPositionsAreSkipped) {
    QCoreApplication::processEvents();
    SlowFilter filter;
    filter.milliseconds = 1;
    m_record->GetProcessor()->SetCurrentFilter(&filter);
    for (int position = 0; position < 20; ++position) {
        m_canvas.Redraw();
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return filter.applied > 0; }, 2000));
    QTest::qWait(20);
    EXPECT_EQ(filter.applied, 1);
    // Moving a sprite does not apply it again.
    addClip({100, 100, 100, 100});
    drag({150, 150}, {300, 300});
    shown();
    EXPECT_EQ(filter.applied, 1);
    m_record->GetProcessor()->SetCurrentFilter(nullptr);
}

TEST_F(CanvasPictureTest, SlowEffectsShowTheWaitCursor) {
    SlowFilter filter;
    m_record->GetProcessor()->SetCurrentFilter(&filter);
    const auto sawWaitCursorIn = [&](unsigned long milliseconds) {
        filter.milliseconds = milliseconds;
        m_canvas.Redraw();
        shown();
        return filter.sawWaitCursor;
    };
    EXPECT_TRUE(sawWaitCursorIn(260)) << "an effect that is not known yet";
    EXPECT_TRUE(sawWaitCursorIn(1)) << "it was slow the last time";
    EXPECT_FALSE(sawWaitCursorIn(1));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    m_record->GetProcessor()->SetCurrentFilter(nullptr);
}

TEST_F(CanvasPictureTest, TheMarkerPlacesTheRegionOfAFilter) {
    open(QColor(200, 40, 40));
    const std::unique_ptr<COpencvFilterInterface> redEye(CreateFilterByName(u"Red Eye Removal"));
    CPhotoProcessor& processor = *m_record->GetProcessor();
    processor.SetCurrentFilter(redEye.get());
    m_canvas.ShowFilterMarker(true);
    m_canvas.Redraw();
    auto* marker = m_canvas.findChild<FilterMarker*>();
    ASSERT_TRUE(marker->isVisible());
    EXPECT_EQ(marker->geometry(), QRect(290, 215, 20, 20));
    EXPECT_EQ(shownAt({301, 226}), QColor(40, 40, 40)) << "red eyes are painted away";
    EXPECT_EQ(shownAt({150, 120}), QColor(200, 40, 40));
    // Dragged to another place, with the mouse on the marker and then with the keys.
    const auto send = [&](QEvent::Type type, QPoint point, Qt::MouseButtons buttons) {
        QMouseEvent event(type, point, marker->mapToGlobal(point), Qt::LeftButton, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(marker, &event);
    };
    send(QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton);
    send(QEvent::MouseMove, {-140, -100}, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, {10, 10}, Qt::NoButton);
    EXPECT_EQ(marker->pos(), QPoint(140, 105));
    EXPECT_EQ(shownAt({151, 116}), QColor(40, 40, 40));
    EXPECT_EQ(shownAt({301, 226}), QColor(200, 40, 40));
    QTest::keyClick(marker, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(marker->pos(), QPoint(130, 105));
    send(QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton);
    send(QEvent::MouseMove, {9000, 9000}, Qt::LeftButton);
    EXPECT_EQ(marker->pos(), QPoint(580, 430)) << "it stays on the photo";
    m_canvas.ShowFilterMarker(false);
    EXPECT_FALSE(marker->isVisible());
    processor.SetCurrentFilter(nullptr);
}

TEST_F(CanvasPictureTest, TheMarkersRegionSurvivesTheDecimalsOfAFile) {
    constexpr Rect kPlaced{60, 47, 541, 404};
    FilterMarker marker(&m_canvas);
    float left = -1;
    float width = -1;
    QObject::connect(&marker, &FilterMarker::regionChanged, [&](float x, float, float cx, float) {
        left = x;
        width = cx;
    });
    marker.showOn(kPlaced);
    for (int step = 0; step < kPlaced.width() / 2; ++step) {
        QTest::keyClick(&marker, Qt::Key_Left);
        EXPECT_EQ(QString::number(static_cast<double>(left), 'f', 6).toFloat(), left);
        EXPECT_EQ(static_cast<int>(left * kPlaced.width()), marker.x() - kPlaced.left);
        EXPECT_EQ(static_cast<int>(width * kPlaced.width()), marker.width());
    }
}

TEST_F(CanvasPictureTest, SpritesAreDrawnAlbumFirstAndAboveThePhoto) {
    addAlbumClip({100, 100, 100, 100}, Qt::blue);
    addClip({150, 100, 100, 100}, Qt::red);
    EXPECT_EQ(shownAt({120, 150}), QColor(Qt::blue));
    EXPECT_EQ(shownAt({170, 150}), QColor(Qt::red));
    drag({230, 130}, {430, 130});
    m_canvas.Select(nullptr);
    EXPECT_EQ(shownAt({170, 150}), QColor(Qt::blue));
    EXPECT_EQ(shownAt({400, 150}), QColor(Qt::red));
}

TEST_F(CanvasPictureTest, AClipThatChangesOnDiskIsReadAgain) {
    CDVDImageProps* clip = addClip({150, 100, 100, 100}, Qt::red);
    EXPECT_EQ(shownAt({200, 150}), QColor(Qt::red));
    QImage other(70, 70, QImage::Format_RGB32);
    other.fill(Qt::green);
    ASSERT_TRUE(other.save(clip->GetFile()));
    m_canvas.Redraw();
    EXPECT_EQ(shownAt({200, 150}), QColor(Qt::green));
}

TEST_F(CanvasPictureTest, SelectionMarksShowOnLightAndDark) {
    for (const QColor ground : {QColor(Qt::white), QColor(Qt::black), QColor(0, 120, 0)}) {
        open(ground);
        m_canvas.Select(addClip({100, 100, 200, 100}, ground));
        const QImage image = shown();
        int different = 0;
        for (int x = 110; x < 290; ++x) {
            const QColor mark = image.pixelColor(x, 100);
            different += std::abs(mark.green() - ground.green()) > 60 ||
                                 std::abs(mark.red() - ground.red()) > 60
                             ? 1
                             : 0;
        }
        EXPECT_GT(different, 30) << ground.name().toStdString();
        EXPECT_NE(image.pixelColor(300, 200), ground);
    }
}

TEST_F(CanvasPictureTest, AMissingPhotoSaysSoAndIsHarmless) {
    openFile(m_folder.filePath(QStringLiteral("gone.jpg")));
    const QImage image = shown();
    int written = 0;
    for (int x = 0; x < 600; ++x) {
        for (int y = 160; y < 260; ++y) {
            written += image.pixelColor(x, y) != QColor(Qt::black) ? 1 : 0;
        }
    }
    EXPECT_GT(written, 300);
    m_canvas.SetCropMode(0);
    EXPECT_TRUE(m_canvas.GetCropFrame().isEmpty());
    EXPECT_FALSE(m_session.commitPicture({0, 0, 100, 100}));
    m_session.flipX();
    m_session.rotateLeft();
    m_session.restoreOriginal();
    drag({10, 10}, {100, 100});
    shown();
}

TEST_F(CanvasPictureTest, ImageFilesAreDroppedAsClips) {
    const QString file = picture(QStringLiteral("drop.png"), Qt::green, 100, 60);
    QFile broken(m_folder.filePath(QStringLiteral("broken.png")));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no picture");
    broken.close();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file), QUrl::fromLocalFile(broken.fileName()),
                  QUrl(QStringLiteral("https://example.org/a.png"))});
    QDragEnterEvent enter({200, 200}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_canvas, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(200, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_canvas, &drop);
    ASSERT_EQ(m_record->GetSprites().GetSize(), 1);
    const CDVDImageSprite* clip = m_record->GetSprites().GetAt(0);
    EXPECT_EQ(clip->GetPosition(), QPoint(150, 170));
    EXPECT_EQ(clip->GetSize(), QSize(100, 60));
    EXPECT_EQ(m_canvas.GetSelected(), clip);

    QMimeData text;
    text.setText(QStringLiteral("words"));
    QDragEnterEvent other({200, 200}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    other.setAccepted(false);
    QCoreApplication::sendEvent(&m_canvas, &other);
    EXPECT_FALSE(other.isAccepted());
}

}  // namespace
}  // namespace vellora
