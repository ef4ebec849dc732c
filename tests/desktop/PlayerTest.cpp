#include <QPointer>
#include <cstdlib>
#include <limits>

#include "DesktopFixture.h"
#include "desktop/Player.h"
#include "desktop/ShowDocument.h"

namespace vellora::desktop {
namespace {

struct PlayerTest : DesktopTest {
    ShowDocument document;

    std::vector<SlidePtr> slides(int count, QSize size = {120, 80}) {
        QStringList paths;
        for (int k = 0; k < count; ++k) {
            paths.append(photo(QStringLiteral("s%1.png").arg(k), size,
                               QColor::fromHsv(k * 120 % 360, 255, 200)));
        }
        document.addFiles(paths, 0, 0);
        return document.slides().slides();
    }

    static QPointer<Player> play(const std::vector<SlidePtr>& slides) {
        auto* player = new Player(slides, 0, nullptr);
        player->resize(300, 200);
        player->show();
        return player;
    }

    /// Its thread renders the show, which goes with the test.
    static void end(const QPointer<Player>& player) {
        player->close();
        waitFor([&] { return player.isNull(); }, "the end");
    }

    static QColor middle(Player& player) { return player.grab().toImage().pixelColor(150, 100); }
};

TEST_F(PlayerTest, ThePlayerFollowsTheKeys) {
    const QPointer<Player> player = play(slides(3));
    QTest::keyClick(player, Qt::Key_Right);
    EXPECT_EQ(player->current(), 1);
    QTest::keyClick(player, Qt::Key_End);
    QTest::keyClick(player, Qt::Key_Right);
    EXPECT_EQ(player->current(), 2) << "there is none behind the last";
    QTest::keyClick(player, Qt::Key_Space);
    EXPECT_TRUE(player->isHalted());
    QTest::keyClick(player, Qt::Key_Home);
    EXPECT_EQ(player->current(), 0);
    waitFor([&] { return middle(*player).saturation() > 150; }, "the photo on the screen");
    QTest::keyClick(player, Qt::Key_Escape);
    waitFor([&] { return player.isNull(); }, "the end");
}

// Window managers give the window its size when it is on the screen already.
TEST_F(PlayerTest, ThePhotoFillsAWindowThatGrows) {
    const QPointer<Player> player = play(slides(1, {800, 600}));
    player->resize(40, 30);
    QTest::keyClick(player, Qt::Key_Space);
    waitFor([&] { return player->grab().toImage().pixelColor(1, 1).value() > 150; }, "the photo");
    EXPECT_GT(player->grab().toImage().pixelColor(38, 28).value(), 150) << "all of it is shown";
    player->resize(400, 300);
    EXPECT_GT(player->grab().toImage().pixelColor(4, 4).value(), 150);
    end(player);
}

TEST_F(PlayerTest, GoesOnByItselfAndEndsBehindTheLastPhoto) {
    const auto all = slides(2);
    for (const SlidePtr& slide : all) {
        // Durations of a record that no program of ours wrote.
        slide->record().first_duration = 1;
        slide->record().second_duration = 1;
    }
    const QPointer<Player> player = play(all);
    QElapsedTimer clock;
    clock.start();
    waitFor([&] { return player.isNull() || player->current() == 1; }, "the second photo");
    EXPECT_GT(clock.elapsed(), 1000);
    ASSERT_FALSE(player.isNull());
    QTest::keyClick(player, Qt::Key_Space);
    QTest::qWait(50);
    ASSERT_FALSE(player.isNull());
    QTest::keyClick(player, Qt::Key_Space);
    waitFor([&] { return player.isNull(); }, "the end");
}

TEST_F(PlayerTest, StrangeDurationsDoNoHarm) {
    const auto all = slides(3);
    all[0]->record().first_duration = 0;
    all[0]->record().second_duration = 0;
    all[1]->record().first_duration = std::numeric_limits<std::int32_t>::min();
    all[1]->record().second_duration = -5;
    all[2]->record().first_duration = std::numeric_limits<std::int32_t>::max();
    all[2]->record().second_duration = std::numeric_limits<std::int32_t>::max();
    const QPointer<Player> player = play(all);
    for (int index = 0; index < 3; ++index) {
        waitFor([&] { return middle(*player).value() > 150; }, "the photo on the screen");
        EXPECT_EQ(player->current(), index);
        QTest::keyClick(player, Qt::Key_Right);
    }
    EXPECT_EQ(player->current(), 2);
    end(player);
}

TEST_F(PlayerTest, ThePhotoThatGoesTellsHowLongTheChangeTakes) {
    const auto all = slides(3);
    all[0]->record().second_duration = 4;
    all[1]->record().second_duration = 1;
    all[2]->record().second_duration = 9;
    const QPointer<Player> player = play(all);
    QTest::keyClick(player, Qt::Key_Space);
    const auto shows = [&player](QRgb colour) {
        const QColor seen = middle(*player);
        return std::abs(seen.red() - qRed(colour)) < 8 &&
               std::abs(seen.green() - qGreen(colour)) < 8 &&
               std::abs(seen.blue() - qBlue(colour)) < 8;
    };
    const auto changeTakes = [&](QRgb colour) {
        QElapsedTimer clock;
        clock.start();
        QTest::keyClick(player, Qt::Key_Right);
        waitFor([&] { return shows(colour); }, "the next photo alone");
        return clock.elapsed();
    };
    waitFor([&] { return shows(qRgb(200, 0, 0)); }, "the first photo");
    EXPECT_GT(changeTakes(qRgb(0, 200, 0)), 3500);
    EXPECT_LT(changeTakes(qRgb(0, 0, 200)), 3500);
    end(player);
}

/// Pictures that were made do not reach the player that it watches.
class Withholding : public QObject {
public:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        return event->type() == QEvent::MetaCall;
    }
};

TEST_F(PlayerTest, APhotoThatIsStillBeingMadeIsNotPassedBy) {
    const QPointer<Player> player = play(slides(3));
    Withholding withholding;
    player->installEventFilter(&withholding);
    for (int press = 0; press < 2; ++press) {
        QTest::keyClick(player, Qt::Key_Space);
    }
    EXPECT_FALSE(player->isHalted());
    QTest::qWait(1300);
    EXPECT_EQ(player->current(), 0);
    end(player);
}

TEST_F(PlayerTest, APhotoThatIsMissingIsNamedAndPassedBy) {
    const auto all = slides(2);
    QFile::remove(all[0]->path());
    const QPointer<Player> player = play(all);
    const auto hasWriting = [&player] {
        const QImage picture = player->grab().toImage().convertToFormat(QImage::Format_Grayscale8);
        int lit = 0;
        for (int x = 0; x < picture.width(); ++x) {
            lit += qGray(picture.pixel(x, picture.height() / 2)) > 60 ? 1 : 0;
        }
        return lit > 5;
    };
    waitFor(hasWriting, "its name");
    EXPECT_TRUE(all[0]->isMissing());
    QTest::keyClick(player, Qt::Key_Right);
    waitFor([&] { return middle(*player).saturation() > 150; }, "the photo behind it");
    end(player);
}

TEST_F(PlayerTest, EndsWhileAPhotoIsRendered) {
    const auto all = slides(2, {1600, 1200});
    for (int round = 0; round < 8; ++round) {
        const QPointer<Player> player = play(all);
        QTest::qWait(round * 6);
        QTest::keyClick(player, Qt::Key_Right);
        QTest::keyClick(player, Qt::Key_Escape);
        waitFor([&] { return player.isNull(); }, "the end");
    }
}

}  // namespace
}  // namespace vellora::desktop
