#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <unistd.h>

#include "base/SafeFile.h"
#include "support/ShortMemory.h"
#include "xml/LORXMLNodeWrite.h"

namespace vellora {
namespace {

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

QString documentOf(const std::function<void()>& write) {
    EXPECT_EQ(BeginXMLDocument(), 1);
    write();
    return XMLBuffer();
}

TEST(XmlWriter, WritesNestedElementsAndTexts) {
    const QString document = documentOf([] {
        WriteXMLHeader();
        CLORXMLNodeWrite root(0, u"root");
        root.AddAttribute(u"version", u"1.00");
        root.AddAttribute(u"least", std::numeric_limits<std::int32_t>::min());
        root.Flush();
        {
            CLORXMLNodeWrite text(1, u"name", true);
            text.SetText(u"a");
            text.SetText(u"b");
            text.Flush();
        }
        {
            CLORXMLNodeWrite box(1, u"box");
            box.AddAttribute(u"count", 0);
            box.Flush();
        }
        {
            CLORXMLNodeWrite colour(1, u"color", true);
            colour.AddColorAttribute(u"raw", 0x336699);
            colour.AddRGBColorAttribute(u"rgb", 0x336699);
            colour.AddColorAttribute(u"small", 0xF);
            colour.AddColorAttribute(u"wide", 0xFF336699);
            colour.Flush();
        }
        { CLORXMLNodeWrite neverFlushed(1, u"bare"); }
    });
    EXPECT_EQ(
        document,
        u"<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
        "<root version=\"1.00\" least=\"-2147483648\">\n"
        "    <name>ab</name>\n"
        "    <box count=\"0\">\n"
        "    </box>\n"
        "    <color raw=\"0x336699\" rgb=\"0x996633\" small=\"0x00000f\" wide=\"0xff336699\"/>\n"
        "    <bare/>\n"
        "</root>\n");
}

TEST(XmlWriter, EscapesFiveCharactersAndNothingElse) {
    const QString document = documentOf([] {
        CLORXMLNodeWrite node(0, u"a", true);
        node.AddAttribute(u"v", u"<&\"'");
        node.SetText(u"x>y \u00E4\n\t]]>");
        node.Flush();
    });
    EXPECT_EQ(document, u"<a v=\"&lt;&amp;&quot;&apos;\">x&gt;y \u00E4\n\t]]&gt;</a>\n");
}

TEST(XmlWriter, TextAfterASecondFlushCompletesTheStartTag) {
    const QString document = documentOf([] {
        CLORXMLNodeWrite node(0, u"a", true);
        node.AddAttribute(u"v", 1);
        node.Flush();
        node.SetText(u"late");
        node.Flush();
        node.Close();
        node.Close();
    });
    EXPECT_EQ(document, u"<a v=\"1\">late</a>\n");
}

TEST(XmlWriter, RefusesANewDocumentWhileAnElementIsAlive) {
    ASSERT_EQ(BeginXMLDocument(), 1);
    {
        const CLORXMLNodeWrite node(0, u"a");
        EXPECT_EQ(BeginXMLDocument(), 0);
        EXPECT_EQ(XMLBuffer(), u"<a");
    }
    EXPECT_EQ(BeginXMLDocument(), 1);
    EXPECT_TRUE(XMLBuffer().isEmpty());
}

TEST(XmlWriter, WritesUtf8OnceAndReportsFailure) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("out.xml");
    documentOf([] { CLORXMLNodeWrite node(0, u"\u00E4\U0001F600"); });
    EXPECT_EQ(WriteXMLBuffer(), 0) << "no target";

    documentOf([] { CLORXMLNodeWrite node(0, u"\u00E4\U0001F600"); });
    SafeFile file(path);
    ASSERT_TRUE(file.Open());
    SetXMLTarget(&file);
    EXPECT_EQ(WriteXMLBuffer(), 1);
    EXPECT_TRUE(XMLBuffer().isEmpty());
    EXPECT_EQ(WriteXMLBuffer(), 1) << "nothing left to write";
    SetXMLTarget(nullptr);
    EXPECT_TRUE(file.Commit());
    EXPECT_EQ(readFile(path), "<\xC3\xA4\xF0\x9F\x98\x80/>\n");
}

/// Elements whose start tag fills the buffer as far as it was made for it.
struct XmlWriterWithoutMemoryTest : testing::Test {
    QTemporaryDir folder;
    SafeFile file{folder.filePath("out.xml")};
    const QString name{5006, QChar('n')};

    void SetUp() override {
        if (!test::ShortMemory::isPossible()) {
            GTEST_SKIP();
        }
        WriteXMLBuffer();  // frees what an earlier document took
        ASSERT_EQ(BeginXMLDocument(), 1);
        ASSERT_TRUE(file.Open());
        SetXMLTarget(&file);
    }
    void TearDown() override { SetXMLTarget(nullptr); }

    static void ExpectThatOnlyTheNextOneIsWritten() {
        EXPECT_EQ(WriteXMLBuffer(), 0);
        EXPECT_EQ(BeginXMLDocument(), 1);
        EXPECT_EQ(WriteXMLBuffer(), 1);
    }
};

TEST_F(XmlWriterWithoutMemoryTest, AnEndTagIsMissing) {
    auto node = std::make_unique<CLORXMLNodeWrite>(0, name);
    {
        const test::ShortMemory memory(100);
        node.reset();
    }
    ExpectThatOnlyTheNextOneIsWritten();
}

TEST_F(XmlWriterWithoutMemoryTest, AStartTagIsMissing) {
    {
        const CLORXMLNodeWrite outer(0, name);
        const test::ShortMemory memory(6000);  // enough for the name
        EXPECT_THROW(CLORXMLNodeWrite(1, name), std::bad_alloc);
    }
    ExpectThatOnlyTheNextOneIsWritten();
}

class SafeFileTest : public testing::Test {
protected:
    void SetUp() override { writeFile(m_path, "old"); }

    void ExpectUntouched() const {
        EXPECT_EQ(readFile(m_path), "old");
        EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath("show.xml");
};

TEST_F(SafeFileTest, ReplacesOnCommitOnly) {
    {
        SafeFile file(m_path);
        ASSERT_TRUE(file.Open());
        ASSERT_TRUE(file.Write("new"));
        EXPECT_EQ(readFile(m_path), "old");
    }
    ExpectUntouched();
    SafeFile file(m_path);
    ASSERT_TRUE(file.Open() && file.Write("new") && file.Commit());
    EXPECT_EQ(readFile(m_path), "new");
}

TEST_F(SafeFileTest, RefusesAMissingFolderAndAFolderAsTarget) {
    SafeFile missing(m_folder.filePath("gone/show.xml"));
    EXPECT_FALSE(missing.Open());
    EXPECT_TRUE(missing.Diagnosis().startsWith("Create project file "));
    EXPECT_FALSE(QFile::exists(m_folder.filePath("gone")));
    SafeFile folder(m_folder.path());
    EXPECT_FALSE(folder.Open());
    ExpectUntouched();
}

TEST_F(SafeFileTest, AFullDiskLeavesTheOldFile) {
    // A limit on the size of written files fails as a full disk does.
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{1000, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    bool written = true;
    QString diagnosis;
    {
        SafeFile file(m_path);
        written = file.Open() && file.Write(QByteArray(100000, 'x')) && file.Commit();
        diagnosis = file.Diagnosis();
    }
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(written);
    EXPECT_TRUE(diagnosis.startsWith("Write project file ")) << diagnosis.toStdString();
    ExpectUntouched();
}

TEST_F(SafeFileTest, WaitsForALockAndGivesUp) {
    const int holder = open(QFile::encodeName(m_path).constData(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(holder, LOCK_EX), 0);
    QElapsedTimer timer;
    timer.start();
    SafeFile file(m_path);
    EXPECT_FALSE(file.Open());
    EXPECT_GE(timer.elapsed(), 4 * 250);
    EXPECT_LT(timer.elapsed(), 4 * 250 + 900);
    ExpectUntouched();
    close(holder);
    EXPECT_TRUE(file.Open());
}

}  // namespace
}  // namespace vellora
