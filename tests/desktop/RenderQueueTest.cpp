#include <QPainter>
#include <algorithm>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>

#include "DesktopFixture.h"
#include "common/Picture.h"
#include "common/ReducedPicture.h"
#include "desktop/RenderQueue.h"
#include "desktop/ShowDocument.h"

namespace vellora::desktop {
namespace {

struct RenderQueueTest : DesktopTest {
    ShowDocument document;

    SlidePtr add(const QString& path) {
        EXPECT_EQ(document.addFiles({path}, document.slides().count(), 0), QStringList());
        return document.slides().slides().back();
    }

    /// A photo whose corners differ.
    QString corners(const QString& name, QSize size) {
        QImage picture(size, QImage::Format_RGB32);
        QPainter painter(&picture);
        const int x = size.width() / 2;
        const int y = size.height() / 2;
        painter.fillRect(0, 0, x, y, Qt::red);
        painter.fillRect(x, 0, x, y, Qt::green);
        painter.fillRect(0, y, x, y, Qt::blue);
        painter.fillRect(x, y, x, y, Qt::white);
        painter.end();
        const QString path = folder.filePath(name);
        EXPECT_TRUE(picture.save(path, nullptr, 95));
        return path;
    }

    static bool alike(const QColor& a, const QColor& b) {
        return std::abs(a.red() - b.red()) < 12 && std::abs(a.green() - b.green()) < 12 &&
               std::abs(a.blue() - b.blue()) < 12;
    }
};

TEST_F(RenderQueueTest, AReducedPictureShowsWhatTheFinishedOneShows) {
    const SlidePtr slide = add(corners(QStringLiteral("wide.jpg"), {1200, 800}));
    _PHOTO_LIST_NODE& photo = slide->record();
    for (int placement = 0; placement < 16; ++placement) {
        photo.rotation = placement / 4 * 90;
        photo.flip_x = placement & 1;
        photo.flip_y = placement / 2 & 1;
        const QImage reduced = hostkit::reducedPicture(*slide->node(), {200, 150});
        const QImage finished =
            hostkit::finishedPicture(slide->node(), hostkit::Detail::Preview)
                .scaled({200, 150}, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        ReleaseImgBuf(slide->node());
        ASSERT_EQ(reduced.size(), finished.size());
        for (const double x : {0.2, 0.8}) {
            for (const double y : {0.2, 0.8}) {
                const QPoint at(static_cast<int>(x * reduced.width()),
                                static_cast<int>(y * reduced.height()));
                EXPECT_TRUE(alike(reduced.pixelColor(at), finished.pixelColor(at)))
                    << "placement " << placement << " at " << x << ", " << y;
            }
        }
    }
}

TEST_F(RenderQueueTest, OnlyPlainPhotosAreReduced) {
    const SlidePtr slide = add(corners(QStringLiteral("photo.jpg"), {600, 450}));
    const auto isReduced = [&slide] {
        return !hostkit::reducedPicture(*slide->node(), {200, 150}).isNull();
    };
    EXPECT_TRUE(isReduced());
    CDVDImage& image = *slide->node()->data->image;
    image.AddSprite(new CDVDImageProps(&image, QStringLiteral("clip.png")), false);
    EXPECT_FALSE(isReduced());
    slide->record().suppress_sprites = 1;
    EXPECT_TRUE(isReduced());
    slide->record().suppress_sprites = 0;
    image.ClearSprites(true);
    CDVDAlbumImage& album = *document.slides().document().GetAlbum();
    album.AddSprite(new CDVDImageProps(&album, QStringLiteral("clip.png")), false);
    EXPECT_FALSE(isReduced());
    album.ClearSprites(true);
    image.GetProcessor()->AddCropRecord({0, 0, 50, 50, false, false, 0});
    EXPECT_FALSE(isReduced());
    const SlidePtr filtered = add(slide->path());
    filtered->node()->data->image->GetProcessor()->AddFilterToChain(CreateFilterByName(u"Grey"));
    EXPECT_TRUE(hostkit::reducedPicture(*filtered->node(), {200, 150}).isNull());

    EXPECT_TRUE(
        hostkit::reducedPicture(*add(photo(QStringLiteral("a.png")))->node(), {20, 20}).isNull());
    QFile::remove(slide->path());
    EXPECT_TRUE(hostkit::reducedPicture(*slide->node(), {20, 20}).isNull());
    const SlidePtr sliver = add(corners(QStringLiteral("sliver.jpg"), {2000, 2}));
    EXPECT_EQ(hostkit::reducedPicture(*sliver->node(), {20, 20}).size(), QSize(20, 1));
}

TEST_F(RenderQueueTest, RendersInOrderAndForgetsWhatIsNotWanted) {
    std::vector<SlidePtr> slides;
    for (int k = 0; k < 6; ++k) {
        slides.push_back(add(photo(QStringLiteral("p%1.png").arg(k))));
    }
    RenderQueue queue(1);
    QList<quint64> order;
    QObject::connect(&queue, &RenderQueue::rendered, &document,
                     [&order](quint64 id) { order.append(id); });
    {
        const RenderQueue::Pause pause(queue);
        for (const int k : {4, 2, 5, 0, 2}) {
            queue.request({slides[static_cast<std::size_t>(k)], {20, 20}, false});
        }
        queue.keepOnly({slides[4]->id(), slides[2]->id(), slides[0]->id(), slides[1]->id()});
    }
    waitFor([&] { return order.size() >= 3; }, "the pictures");
    QTest::qWait(30);
    EXPECT_EQ(order, (QList<quint64>{slides[4]->id(), slides[2]->id(), slides[0]->id()}));
}

TEST_F(RenderQueueTest, ManyThreadsGiveThePicturesOfASlideInOrder) {
    const SlidePtr slide = add(photo(QStringLiteral("p.png"), {400, 300}));
    const SlidePtr other = add(photo(QStringLiteral("q.png"), {400, 300}));
    RenderQueue queue(3);
    QList<QSize> sizes;
    QObject::connect(&queue, &RenderQueue::rendered, &document,
                     [&](quint64 id, const QImage& picture) {
                         if (id == slide->id()) {
                             sizes.append(picture.size());
                         }
                     });
    for (int side = 10; side < 30; ++side) {
        queue.request({slide, {4 * side, 3 * side}, false});
        queue.request({other, {20, 20}, false});
        QTest::qWait(side % 4);
    }
    const QSize last(4 * 29, 3 * 29);
    waitFor([&] { return !sizes.isEmpty() && sizes.last() == last; }, "the last picture");
    EXPECT_TRUE(std::is_sorted(sizes.cbegin(), sizes.cend(),
                               [](QSize a, QSize b) { return a.width() < b.width(); }));
}

}  // namespace
}  // namespace vellora::desktop
