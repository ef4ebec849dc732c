#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <random>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <vellora/base/HostText.h>

#include "common/ShowFile.h"

namespace vellora::hostkit {
namespace {

struct ShowFileTest : testing::Test {
    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("show.vshow"));
    QStringList warnings;
    QString error;

    std::optional<Show> read(const QByteArray& text) {
        QFile target(file);
        EXPECT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(text);
        target.close();
        warnings.clear();
        error.clear();
        return readShow(file, &warnings, &error);
    }
};

const char* const kFull = R"({
  "format": "vellora-show", "version": 1, "project": "edits/my.xml", "made by": "us",
  "photos": [
    {"path": "a b.jpg", "rotation": 270, "flipX": true, "flipY": true, "title": "T\u00e4",
     "description": "two\nlines", "link": "https://example.org", "background": "#102030",
     "suppressSprites": true, "duration": 5, "transition": 1, "rating": 4},
    {"path": "/abs/c.png"}
  ]
})";

TEST_F(ShowFileTest, ReadsEveryFieldAndWritesTheSameAgain) {
    const auto show = read(kFull);
    ASSERT_TRUE(show) << qPrintable(error);
    EXPECT_TRUE(warnings.isEmpty()) << qPrintable(warnings.join(QLatin1Char('\n')));
    EXPECT_EQ(show->projectPath, folder.filePath(QStringLiteral("edits/my.xml")));
    ASSERT_EQ(show->photos.size(), 2U);
    const ShowPhoto& photo = show->photos[0];
    EXPECT_EQ(photo.path, folder.filePath(QStringLiteral("a b.jpg")));
    EXPECT_EQ(photo.rotation, 270);
    EXPECT_EQ(photo.title, QStringLiteral("T\u00e4"));
    EXPECT_EQ(photo.background, makeColorRef(0x10, 0x20, 0x30));
    EXPECT_TRUE(photo.flipX && photo.flipY && photo.suppressSprites);
    EXPECT_EQ(photo.firstDuration, 5);
    EXPECT_EQ(photo.secondDuration, 1);
    EXPECT_EQ(show->photos[1].path, QStringLiteral("/abs/c.png"));
    EXPECT_EQ(show->photos[1].firstDuration, 2);

    ASSERT_TRUE(writeShow(file, *show, &error));
    QFile first(file);
    ASSERT_TRUE(first.open(QIODevice::ReadOnly));
    const QByteArray text = first.readAll();
    EXPECT_TRUE(text.contains("\"rating\": 4")) << "keys of other programs stay";
    EXPECT_TRUE(text.contains("\"made by\": \"us\""));
    EXPECT_TRUE(text.contains("\"a b.jpg\""));
    const auto again = read(text);
    ASSERT_TRUE(again);
    ASSERT_TRUE(writeShow(file, *again, &error));
    QFile second(file);
    ASSERT_TRUE(second.open(QIODevice::ReadOnly));
    EXPECT_EQ(second.readAll(), text);
}

TEST_F(ShowFileTest, GoesThroughTheHostRecord) {
    const auto show = read(kFull);
    ASSERT_TRUE(show);
    _PHOTO_LIST_NODE record{};
    ASSERT_TRUE(toRecord(show->photos[0], record));
    EXPECT_EQ(hostText(record.title), QStringLiteral("T\u00e4"));
    ShowPhoto back;
    fromRecord(record, back);
    EXPECT_EQ(back.path, show->photos[0].path);
    EXPECT_EQ(back.description, QStringLiteral("two\nlines"));
    EXPECT_EQ(back.rotation, 270);
    EXPECT_EQ(back.background, show->photos[0].background);

    ShowPhoto tooLong;
    tooLong.path = QString(510, QLatin1Char('x'));
    record = {};
    EXPECT_FALSE(toRecord(tooLong, record));
    EXPECT_EQ(record.path[0], u'\0');
    tooLong.path.chop(1);
    EXPECT_TRUE(toRecord(tooLong, record));
}

TEST_F(ShowFileTest, APhotoOfALongPathKeepsItsFields) {
    const QString path = QStringLiteral("/") + QString(600, QLatin1Char('p'));
    const auto show = read(R"({"format": "vellora-show", "photos": [{"title": "Lake", "path": ")" +
                           path.toUtf8() + R"("}]})");
    ASSERT_TRUE(show);
    EXPECT_EQ(warnings.size(), 1);
    _PHOTO_LIST_NODE record{};
    EXPECT_FALSE(toRecord(show->photos[0], record));
    EXPECT_EQ(hostText(record.title), QStringLiteral("Lake"));
    EXPECT_EQ(hostText(record.path), QString());
}

TEST_F(ShowFileTest, TellsOfTextsThatTheRecordCannotHold) {
    ASSERT_TRUE(read(R"({"format": "vellora-show", "photos": [{"path": "a", "title": ")" +
                     QByteArray(150, 't') + R"("}, {"path": "b", "title": ")" +
                     QByteArray(20, 't') + R"("}]})"));
    EXPECT_EQ(warnings.size(), 1);
}

TEST_F(ShowFileTest, TakesAColonInFrontForPartOfTheName) {
    Show show;
    show.photos.resize(1);
    show.photos[0].path = folder.filePath(QStringLiteral("x/:a.png"));
    show.photos[0].path.remove(QStringLiteral("x/"));
    ASSERT_TRUE(writeShow(file, show, &error));
    EXPECT_EQ(readShow(file, &warnings, &error)->photos[0].path, show.photos[0].path);
    const auto typed = read(R"({"format": "vellora-show", "photos": [{"path": ":a.png"}]})");
    EXPECT_EQ(typed->photos[0].path, show.photos[0].path);
}

TEST_F(ShowFileTest, BelongsWhereTheFileIsAndNotTheLinkToIt) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("links")));
    const QString link = folder.filePath(QStringLiteral("links/other.vshow"));
    ASSERT_TRUE(read(kFull));
    ASSERT_TRUE(QFile::link(file, link));
    const auto show = readShow(link, &warnings, &error);
    EXPECT_EQ(show->photos[0].path, folder.filePath(QStringLiteral("a b.jpg")));
    EXPECT_EQ(defaultProjectPath(link), folder.filePath(QStringLiteral("show.xml")));
    ASSERT_TRUE(writeShow(link, *show, &error));
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(readShow(file, &warnings, &error)->photos[0].path, show->photos[0].path);
}

TEST_F(ShowFileTest, NamesTheLineOfBadJson) {
    EXPECT_FALSE(read("{\n \"format\": \"vellora-show\",\n  oops }"));
    EXPECT_TRUE(error.contains(QStringLiteral("line 3, column"))) << qPrintable(error);
    for (const char* text : {"", "[]", "{}", "{\"format\": 3}",
                             "{\"format\":\"vellora-show\","
                             "\"version\": 99}"}) {
        EXPECT_FALSE(read(text)) << text;
        EXPECT_FALSE(error.isEmpty());
    }
    EXPECT_FALSE(readShow(folder.path(), &warnings, &error));
    EXPECT_FALSE(readShow(folder.filePath(QStringLiteral("no.vshow")), &warnings, &error));
}

TEST_F(ShowFileTest, WarnsOfValuesOfTheWrongKindAndKeepsThePlaces) {
    const auto show = read(R"({"format": "vellora-show", "photos": [
        7,
        {"path": "a.jpg", "rotation": 45, "flipX": "yes", "title": [], "background": "red",
         "duration": 0, "transition": 1e300},
        {"rotation": 90}, {"path": "b.jpg", "rotation": 180}]})");
    ASSERT_TRUE(show);
    ASSERT_EQ(show->photos.size(), 4U) << "edits are matched by position";
    EXPECT_EQ(show->photos[1].rotation, 0);
    EXPECT_EQ(show->photos[1].secondDuration, 2);
    EXPECT_EQ(show->photos[3].rotation, 180);
    EXPECT_EQ(warnings.size(), 8) << qPrintable(warnings.join(QLatin1Char('\n')));
    EXPECT_TRUE(
        warnings.contains(QStringLiteral("photos[1].rotation: expected 0, 90, 180 or 270")));
}

TEST_F(ShowFileTest, BoundsWhatASmallFileCanAskFor) {
    const QByteArray start = R"({"format": "vellora-show", "photos": [)";
    EXPECT_FALSE(read(start + QByteArray("{},").repeated(100'000) + "{}]}"));
    EXPECT_TRUE(error.contains(QStringLiteral("100000 photos"))) << qPrintable(error);
    EXPECT_FALSE(read(start + QByteArray("[").repeated(1'000'000)));
    EXPECT_FALSE(read(R"({"a":)" + QByteArray(R"({"a":)").repeated(100'000)));
    const auto show = read(start + R"({"path": "a.jpg", "duration": 1e9, "rotation": -1e308,
        "background": "#1234567", "x": [[[[1e308]]]]}], "version": 1.0})");
    ASSERT_TRUE(show) << qPrintable(error);
    EXPECT_EQ(show->photos[0].rotation, 0);
    EXPECT_EQ(show->photos[0].background, 0U);
}

TEST_F(ShowFileTest, AFailedWriteLeavesTheOldFile) {
    const auto show = read(kFull);
    ASSERT_TRUE(show);
    EXPECT_FALSE(writeShow(folder.filePath(QStringLiteral("no/dir.vshow")), *show, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_TRUE(QFile::exists(file));
}

// The last part of a file is written when it is closed.
TEST_F(ShowFileTest, AFullDiskLeavesTheOldFile) {
    auto show = read(kFull);
    ASSERT_TRUE(show);
    show->photos.resize(20, show->photos[0]);
    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{1024, limit.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const bool written = writeShow(file, *show, &error);
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(written);
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(readShow(file, &warnings, &error)->photos.size(), 2U);
}

TEST_F(ShowFileTest, SurvivesMutatedFiles) {
    std::mt19937 engine(7);
    const auto random = [&engine] { return static_cast<unsigned>(engine()); };
    const QByteArray base(kFull);
    int accepted = 0;
    for (int round = 0; round < 2000; ++round) {
        QByteArray text = base;
        for (unsigned change = random() % 6; change-- > 0 && !text.isEmpty();) {
            const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(text.size()));
            switch (random() % 4) {
                case 0:
                    text[at] = static_cast<char>(random());
                    break;
                case 1:
                    text.remove(at, static_cast<qsizetype>(random() % 20));
                    break;
                case 2:
                    text.insert(at, text.mid(at / 2, 30));
                    break;
                default:
                    text[at] = "{}[]\",:0"[random() % 8];
                    break;
            }
        }
        const auto show = read(text);
        EXPECT_NE(show.has_value(), !error.isEmpty());
        if (show) {
            ++accepted;
            for (const ShowPhoto& photo : show->photos) {
                _PHOTO_LIST_NODE record{};
                toRecord(photo, record);
            }
        }
    }
    EXPECT_GT(accepted, 100);
}

}  // namespace
}  // namespace vellora::hostkit
