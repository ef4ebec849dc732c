#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>

#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>

#include "DesktopFixture.h"
#include "desktop/ExportDialog.h"
#include "desktop/ExportJob.h"
#include "desktop/ExportProgress.h"
#include "desktop/ShowDocument.h"

namespace vellora::desktop {
namespace {

/// What an export reported at its end.
struct Outcome {
    int exported = -1;
    QStringList failures;
    bool cancelled = false;
    QStringList damaged;
};

/// An export of a show as it is now.
struct Exporting {
    ExportJob job;
    QSignalSpy progressed{&job, &ExportJob::progressed};
    QSignalSpy finished{&job, &ExportJob::finished};

    Exporting(ShowDocument& document, const ExportOptions& options) : job(options) {
        QString error;
        EXPECT_TRUE(job.prepare(document, &error)) << qPrintable(error);
    }

    Outcome outcome() {
        if (!QTest::qWaitFor([this] { return finished.size() == 1; }, 60'000)) {
            ADD_FAILURE() << "the export does not end";
            return {};
        }
        return {finished[0][0].toInt(), finished[0][1].toStringList(), finished[0][2].toBool(),
                finished[0][3].toStringList()};
    }
};

struct ExportJobTest : DesktopTest {
    ShowDocument document;
    ExportOptions options;

    ExportJobTest() { options.folder = folder.filePath(QStringLiteral("out")); }

    void add(const QStringList& photos) {
        ASSERT_EQ(document.addFiles(photos, document.slides().count(), 0), QStringList());
    }

    void addLarge(int count) {
        for (int k = 0; k < count; ++k) {
            add({photo(QStringLiteral("large%1.png").arg(k), {900, 700})});
        }
    }

    Outcome exportAll() {
        Exporting run(document, options);
        run.job.start();
        return run.outcome();
    }

    /// A photo whose file ends in the middle.
    QString cutOff(const QString& name) {
        QImage noise(400, 300, QImage::Format_RGB32);
        for (int y = 0; y < 300; ++y) {
            for (int x = 0; x < 400; ++x) {
                noise.setPixel(x, y, qRgb(x * 7 % 256, y * 5 % 256, x * y % 256));
            }
        }
        const QString path = folder.filePath(name);
        EXPECT_TRUE(noise.save(path));
        QFile file(path);
        EXPECT_TRUE(file.resize(file.size() / 2));
        return path;
    }

    [[nodiscard]] QStringList results() const {
        return QDir(options.folder).entryList(QDir::Files | QDir::Hidden);
    }

    [[nodiscard]] QByteArray result(const QString& name) const {
        QFile file(QDir(options.folder).filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    [[nodiscard]] QSize sizeOf(const QString& name) const {
        return QImage::fromData(result(name)).size();
    }
};

TEST_F(ExportJobTest, GivesEveryPhotoANameOfItsOwnAndNamesFailures) {
    QDir(folder.path()).mkpath(QStringLiteral("b"));
    add({photo(QStringLiteral("s0.png"), {120, 80}), photo(QStringLiteral("s1.png")),
         photo(QStringLiteral("s2.png"), {120, 80}), photo(QStringLiteral("Grüße 日本 %1.png")),
         photo(QStringLiteral("b/s2.png"), {30, 20})});
    QFile::remove(document.slides().slide(1)->path());
    options.size = {60, 60};
    ASSERT_TRUE(QDir().mkpath(options.folder));
    QFile taken(options.folder + QStringLiteral("/1-s0.jpg"));
    ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
    taken.close();

    const Outcome numbered = exportAll();
    EXPECT_EQ(numbered.exported, 4);
    ASSERT_EQ(numbered.failures.size(), 1);
    EXPECT_TRUE(numbered.failures.first().startsWith(QStringLiteral("s1.png: ")));
    EXPECT_FALSE(numbered.cancelled);
    EXPECT_EQ(results(),
              (QStringList{QStringLiteral("1-s0-2.jpg"), QStringLiteral("1-s0.jpg"),
                           QStringLiteral("3-s2.jpg"), QStringLiteral("4-Grüße 日本 %1.jpg"),
                           QStringLiteral("5-s2.jpg")}));
    EXPECT_EQ(QFileInfo(taken).size(), 0) << "what was there stays";
    EXPECT_EQ(sizeOf(QStringLiteral("1-s0-2.jpg")), QSize(60, 40));

    options.numbered = false;
    options.folder = folder.filePath(QStringLiteral("plain"));
    EXPECT_EQ(exportAll().exported, 4);
    EXPECT_EQ(results(), (QStringList{QStringLiteral("Grüße 日本 %1.jpg"), QStringLiteral("s0.jpg"),
                                      QStringLiteral("s2-2.jpg"), QStringLiteral("s2.jpg")}));
}

TEST_F(ExportJobTest, ExportsTheShowAsItIsNow) {
    const QString clip = photo(QStringLiteral("clip.png"), {300, 200}, Qt::red);
    add({photo(QStringLiteral("one.png"), {120, 80}), photo(QStringLiteral("two.png"), {120, 80})});
    CDVDImage& edits = *document.slides().slide(1)->node()->data->image;
    auto* sprite = new CDVDImageProps(&edits, clip);
    sprite->SetPosition(0, 0);
    sprite->SetSize(300, 225);
    edits.AddSprite(sprite, false);
    document.slides().slide(0)->record().rotation = 90;
    document.slides().slide(0)->record().background = 0x00FF0000;
    options.size = {90, 90};
    options.fit = ExportOptions::Inside;

    Exporting run(document, options);
    // From here on the window may do with the show what it likes.
    document.startNew();
    run.job.start();
    EXPECT_EQ(run.outcome().exported, 2);
    const QImage turned = QImage::fromData(result(QStringLiteral("1-one.jpg")));
    ASSERT_EQ(turned.size(), QSize(90, 90));
    EXPECT_GT(turned.pixelColor(3, 45).blue(), 240) << "the background beside the turned photo";
    const QImage edited = QImage::fromData(result(QStringLiteral("2-two.jpg")));
    ASSERT_EQ(edited.size(), QSize(90, 90));
    EXPECT_GT(edited.pixelColor(10, 20).red(), 200) << "the clip";
}

TEST_F(ExportJobTest, NeverReplacesAnOriginal) {
    options.folder = folder.path();
    options.numbered = false;
    const QString original = photo(QStringLiteral("a.jpg"), {40, 30});
    add({original, photo(QStringLiteral("a.png"))});
    const QByteArray before = result(QStringLiteral("a.jpg"));
    EXPECT_EQ(exportAll().exported, 2);
    EXPECT_EQ(result(QStringLiteral("a.jpg")), before);
    EXPECT_EQ(sizeOf(QStringLiteral("a-2.jpg")), QSize(40, 30));
    EXPECT_EQ(sizeOf(QStringLiteral("a-3.jpg")), QSize(80, 60));
}

TEST_F(ExportJobTest, AnEmptyShowIsExportedAtOnce) {
    const Outcome outcome = exportAll();
    EXPECT_EQ(outcome.exported, 0);
    EXPECT_TRUE(outcome.failures.isEmpty());
    EXPECT_FALSE(outcome.cancelled);
}

TEST_F(ExportJobTest, APhotoThatGoesMeanwhileIsNamed) {
    addLarge(20);
    Exporting run(document, options);
    run.job.start();
    waitFor([&] { return !run.progressed.isEmpty(); }, "the first picture");
    QFile::remove(document.slides().slide(18)->path());
    QFile::remove(document.slides().slide(19)->path());
    const Outcome outcome = run.outcome();
    EXPECT_EQ(outcome.exported, 18);
    ASSERT_EQ(outcome.failures.size(), 2);
    EXPECT_TRUE(outcome.failures[0].startsWith(QStringLiteral("large18.png: ")));
    EXPECT_TRUE(outcome.failures[1].startsWith(QStringLiteral("large19.png: ")));
    EXPECT_EQ(results().size(), 18);
    EXPECT_EQ(run.progressed.size(), 20);
    EXPECT_EQ(run.progressed.last()[0].toInt(), 20);
}

TEST_F(ExportJobTest, ACancelledExportLeavesFinishedPicturesOnly) {
    addLarge(12);
    for (int round = 0; round < 25; ++round) {
        options.folder = folder.filePath(QStringLiteral("out%1").arg(round));
        Exporting run(document, options);
        run.job.start();
        QTest::qWait(round * 7);
        QElapsedTimer clock;
        clock.start();
        run.job.cancel();
        const Outcome outcome = run.outcome();
        EXPECT_LT(clock.elapsed(), 5000);
        EXPECT_EQ(outcome.cancelled, outcome.exported < 12);
        EXPECT_TRUE(outcome.failures.isEmpty());
        for (const QString& name : results()) {
            EXPECT_EQ(sizeOf(name), QSize(900, 700)) << qPrintable(name);
        }
        EXPECT_GE(results().size(), outcome.exported);
        EXPECT_EQ(QDir(options.folder).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot),
                  QStringList())
            << "round " << round;
    }
}

TEST_F(ExportJobTest, GoingAwayCancels) {
    addLarge(12);
    {
        Exporting run(document, options);
        run.job.start();
        QTest::qWait(120);
    }
    const QStringList left =
        QDir(options.folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString& name : left) {
        EXPECT_EQ(sizeOf(name), QSize(900, 700)) << qPrintable(name);
    }
}

TEST_F(ExportJobTest, AFolderThatTakesNothingIsToldForEveryPhoto) {
    add({photo(QStringLiteral("one.png")), photo(QStringLiteral("two.png"))});
    QFile file(options.folder);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    Outcome outcome = exportAll();
    EXPECT_EQ(outcome.exported, 0);
    EXPECT_EQ(outcome.failures.size(), 2);

    options.folder = folder.filePath(QStringLiteral("full"));
    SmallDisk disk(options.folder);
    if (!disk.isThere()) {
        GTEST_SKIP() << "no small disk can be made here";
    }
    QImage noise(800, 800, QImage::Format_RGB32);
    for (int y = 0; y < 800; ++y) {
        for (int x = 0; x < 800; ++x) {
            noise.setPixel(x, y, static_cast<uint>(x * 7919 + y * 104729) * 2654435761U >> 8U);
        }
    }
    const QString large = folder.filePath(QStringLiteral("large.png"));
    ASSERT_TRUE(noise.save(large));
    add({large});
    outcome = exportAll();
    EXPECT_EQ(outcome.exported, 2);
    ASSERT_EQ(outcome.failures.size(), 1);
    EXPECT_TRUE(outcome.failures[0].startsWith(QStringLiteral("large.png: ")));
    EXPECT_TRUE(outcome.failures[0].contains(options.folder));
    EXPECT_EQ(
        QDir(options.folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        (QStringList{QStringLiteral("1-one.jpg"), QStringLiteral("2-two.jpg")}));

    ASSERT_TRUE(disk.setReadOnly(true));
    EXPECT_EQ(exportAll().failures.size(), 3);
}

TEST_F(ExportJobTest, TheProgressWindowSumsUp) {
    add({photo(QStringLiteral("one.png")), photo(QStringLiteral("two.png")),
         cutOff(QStringLiteral("cut.jpg"))});
    QFile::remove(document.slides().slide(0)->path());
    Exporting run(document, options);
    ExportProgress window(run.job, nullptr);
    window.show();
    QSignalSpy closed(&window, &QDialog::finished);
    const Outcome outcome = run.outcome();
    EXPECT_EQ(outcome.exported, 2);
    EXPECT_EQ(outcome.damaged, QStringList{QStringLiteral("cut.jpg")});
    EXPECT_EQ(closed.size(), 0) << "the summary stays until it is read";
    const auto* list = window.findChild<QWidget*>(QStringLiteral("failures"));
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(list->property("plainText").toString().startsWith(QStringLiteral("one.png: ")));
    const auto* damaged = window.findChild<QWidget*>(QStringLiteral("damaged"));
    ASSERT_NE(damaged, nullptr);
    EXPECT_EQ(damaged->property("plainText").toString(), QStringLiteral("cut.jpg"));
    waitFor([&] { return list->isVisible() && damaged->isVisible(); }, "the lists");
    window.reject();
    EXPECT_EQ(closed.size(), 1);
}

TEST_F(ExportJobTest, TheDialogRefusesSizesThatNoPictureHas) {
    ExportDialog dialog(1, nullptr);
    dialog.findChild<QLineEdit*>()->setText(options.folder);
    const QList<QSpinBox*> sides = dialog.findChildren<QSpinBox*>().first(2);
    auto* ownSize = dialog.findChild<QCheckBox*>();
    ownSize->setChecked(false);
    QPushButton* start = nullptr;
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
        start = button->text() == u"E&xport" ? button : start;
    }
    ASSERT_NE(start, nullptr);
    const auto accepts = [&](int width, int height) {
        dialog.show();
        sides[0]->setValue(width);
        sides[1]->setValue(height);
        start->click();
        return !dialog.isVisible();
    };
    QString told;
    answerNext(QMessageBox::AcceptRole, [&](const QMessageBox& box) { told = box.text(); });
    EXPECT_FALSE(accepts(20'000, 10'001));
    EXPECT_EQ(told, u"20,000 by 10,001 pixels are too many. A picture has at most 200 million.");
    EXPECT_TRUE(accepts(20'000, 10'000));
    ownSize->setChecked(true);
    EXPECT_TRUE(accepts(30'000, 30'000)) << "the size does not count";

    // The bound is that of the program that renders.
    add({photo(QStringLiteral("one.png"))});
    options.size = {20'000, 10'001};
    EXPECT_EQ(exportAll().exported, 0);
    options.size = {20'000, 10'000};
    EXPECT_EQ(exportAll().exported, 1);
}

}  // namespace
}  // namespace vellora::desktop
