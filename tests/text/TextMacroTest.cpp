#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <vellora/base/HostText.h>
#include <vellora/model/DVDImage.h>
#include <vellora/text/TextMacro.h>

#include "support/TestPhotos.h"
#include "text/PhotoFacts.h"

namespace vellora {
namespace {

struct TextMacroTest : testing::Test {
    std::unique_ptr<_PHOTO_LIST_NODE> photo = test::record("C:\\Photos\\Trip\\beach.day.jpg");
    CDVDImage record;
    CTextMacro macro;

    void SetUp() override {
        setHostText(photo->title, QStringLiteral("At $[F] sea"));
        setHostText(photo->description, QStringLiteral("Long\nday"));
        bindTo("C:\\Photos\\Trip\\beach.day.jpg");
    }
    void TearDown() override { setMacroDate({}); }

    void bindTo(const QString& path) {
        setHostText(photo->path, path);
        record.BindNode(photo.get(), nullptr);
        macro.Bind(&record);
    }
    std::string expanded(const QString& source) {
        QString result = "left over";
        EXPECT_EQ(macro.Expand(source, result), 1);
        return result.toStdString();
    }
};

TEST_F(TextMacroTest, TellsTheFactsOfAPhoto) {
    setMacroDate(QDate(2026, 11, 5));
    macro.SetSlideIndex(2);
    macro.SetSlideCount(10);
    EXPECT_EQ(expanded("$[F]|$[f]|$[e]|$[o]"), "beach.day.jpg|beach.day|jpg|Trip");
    EXPECT_EQ(expanded("$[D]"), "C:\\Photos\\Trip\\beach.day.jpg");
    EXPECT_EQ(expanded("$[d]"), "Long\nday");
    EXPECT_EQ(expanded("$[T]"), "2026:11:05");
    EXPECT_EQ(expanded("Day $[p] of $[P]"), "Day 3 of 10");
    EXPECT_EQ(expanded("$[t]!"), "At $[F] sea!") << "a value is not expanded again";
}

TEST_F(TextMacroTest, TakesTheDateWhenItExpands) {
    setMacroDate(QDate(1999, 12, 31));
    EXPECT_EQ(expanded("$[T]"), "1999:12:31");
    setMacroDate(QDate(2000, 1, 1));
    EXPECT_EQ(expanded("$[T]"), "2000:01:01");
    setMacroDate({});
    EXPECT_EQ(expanded("$[T]"), QDate::currentDate().toString("yyyy:MM:dd").toStdString());
}

TEST_F(TextMacroTest, CutsPathsOfEitherFamily) {
    bindTo("/home/anna/my.trips/beach");
    EXPECT_EQ(expanded("$[F]|$[f]|$[e]|$[o]"), "beach|beach||my.trips");
    bindTo("C:\\Photos/Trip\\a.b/c.tif");
    EXPECT_EQ(expanded("$[F]|$[e]|$[o]"), "c.tif|tif|a.b");
    bindTo("beach.jpg");
    EXPECT_EQ(expanded("$[F]$[f]$[e]$[o]|$[D]"), "|beach.jpg") << "no separator, no names";
    bindTo("C:\\beach.jpg");
    EXPECT_EQ(expanded("$[F]|$[o]"), "beach.jpg|");
    bindTo("/photos/.hidden");
    EXPECT_EQ(expanded("$[F]|$[f]|$[e]"), ".hidden||hidden");
}

TEST_F(TextMacroTest, ScansTokensAndEscapes) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"plain $ [text] $", "plain $ [text] $"},
        {"a$[x]b", "ab"},
        {"$[FF]", ""},
        {"$[f]$[f]", "beach.daybeach.day"},
        {"$[F", "$[F"},
        {"x $[F] $[F", "x beach.day.jpg $[F"},
        {"$$[F]", "$[F]"},
        {"Cost $$[x] now", "Cost $[x] now"},
        {"$[abc$[F]", "$[abcbeach.day.jpg"},
        {"$$[a$[e]", "$[ajpg"},
        {"$$[a$$[e]", "$[a$$[e]"},
        {"$[]", ""},
        {"]$[e]]", "]jpg]"},
        {"$$[", "$["},
        {"$$$[e]", "$$[e]"},
    };
    for (const auto& [source, expected] : cases) {
        EXPECT_EQ(expanded(source), expected) << source;
    }
}

TEST_F(TextMacroTest, KnowsNothingWithoutAPhoto) {
    for (CDVDImage unbound; const CDVDImage* none : {&unbound, static_cast<CDVDImage*>(nullptr)}) {
        macro.Bind(none);
        EXPECT_EQ(macro.GetPath(), QString());
        EXPECT_EQ(expanded("<$[F]$[t]$[d]$[D]$[o]>$[p]$[P]"), "<>10");
    }
}

TEST_F(TextMacroTest, StaysLinearAndBounded) {
    QElapsedTimer timer;
    timer.start();
    // Unclosed starts, and a start far from the only end, would be searched again and again.
    expanded(QStringLiteral("$[").repeated(300'000));
    expanded(QStringLiteral("$[x").repeated(200'000) + "]");
    expanded(QStringLiteral("$$[").repeated(200'000));
    QString result;
    macro.Expand(QStringLiteral("$[D]").repeated(1'000'000), result);
    EXPECT_LT(result.size(), 1'100'000);
    EXPECT_LT(timer.elapsed(), 3000);
}

}  // namespace
}  // namespace vellora
