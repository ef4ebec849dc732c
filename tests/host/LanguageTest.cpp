#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QStringEncoder>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/host/ImageObj.h>
#include <vellora/host/Language.h>

#include "base/IniFile.h"
#include "base/StringTable.h"

namespace vellora {
namespace {

QString assetPath(const QString& name) {
    return QStringLiteral(VELLORA_ASSETS_DIR "/lang/") + name;
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

class LanguageTest : public testing::Test {
protected:
    ~LanguageTest() override { CImageObj::SetLanguageString({}); }

    void use(const QByteArray& ini) {
        const QString path = m_folder.filePath("language.ini");
        writeFile(path, ini);
        CImageObj::SetLanguageString(path);
    }

    QTemporaryDir m_folder;
};

TEST_F(LanguageTest, WithoutAFileEverythingIsBuiltIn) {
    for (const char* path : {"", "/no/such/file.ini", "/"}) {
        CImageObj::SetLanguageString(path);
        EXPECT_EQ(LanguageString(3002), "Double click to edit");
        EXPECT_EQ(LanguageString(1126), "Photo title must not exceed 100 chars.");
        EXPECT_EQ(LanguageString(424242), "");
        EXPECT_EQ(LanguageText("STRING", "3002"), "");
        EXPECT_EQ(LanguageWord("Oil Paint"), "Oil Paint");
        EXPECT_EQ(LanguageControlText(3000, "title"), "");
        EXPECT_EQ(LanguageMenuText(32837), "");
        EXPECT_EQ(LanguageImage(5), nullptr);
    }
}

TEST_F(LanguageTest, EachLookupHasItsSectionAndItsEscapes) {
    use("[string]\n3002=a\\nb\\tc\n3020=\n[DIALOG_IDD_3009]\n3031=one\\ntwo\\tx\n"
        "TITLE=Ti\\ntle\n[MENU_DLL]\n32837=&Kopie\\n\n[DICTIONARY]\noil paint=\xC3\x96l %n %s <b>\n"
        "Black&White=SW\n[Mine]\nKey = \" a\\nb\\tc \" \n");
    EXPECT_EQ(LanguageString(3002), "a\\nb\\tc") << "a string keeps its backslashes";
    EXPECT_EQ(LanguageString(3020), "Red:") << "an empty entry is a missing one";
    EXPECT_EQ(LanguageControlText(3009, "3031"), "one\ntwo\\tx");
    EXPECT_EQ(LanguageControlText(3009, "title"), "Ti\ntle");
    EXPECT_EQ(LanguageMenuText(32837), "&Kopie\\n");
    EXPECT_EQ(LanguageWord("Oil Paint"), u"\u00D6l %n %s <b>");
    EXPECT_EQ(LanguageWord("Black&White"), "SW");
    EXPECT_EQ(LanguageText("Mine", "key"), " a\nb\tc ") << "quotes keep the blanks";
}

TEST_F(LanguageTest, ReadsEveryEncoding) {
    const QString ini = u"[STRING]\r\n3002=\u4E2D\u6587 \U0001F600 \u00E4\r\n"_qs;
    const QString expected = u"\u4E2D\u6587 \U0001F600 \u00E4"_qs;
    for (const auto encoding :
         {QStringConverter::Utf8, QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        for (const auto flag :
             {QStringConverter::Flag::Default, QStringConverter::Flag::WriteBom}) {
            QStringEncoder encode(encoding, flag);
            use(encode(ini));
            EXPECT_EQ(LanguageString(3002), expected) << "encoding " << encoding;
        }
    }
    use("[STRING]\n3002=Gr\xFCn\n");
    EXPECT_EQ(LanguageString(3002), u"Gr\u00FCn");
}

TEST_F(LanguageTest, AChangedFileIsReadWhenItIsNamedAgain) {
    use("[STRING]\n3002=first\n3002=again\n");
    EXPECT_EQ(LanguageString(3002), "first");
    writeFile(m_folder.filePath("language.ini"), "[STRING]\n3002=second\n");
    EXPECT_EQ(LanguageString(3002), "first");
    CImageObj::SetLanguageString(m_folder.filePath("language.ini"));
    EXPECT_EQ(LanguageString(3002), "second");
}

TEST_F(LanguageTest, HugeAndBrokenValuesStayHarmless) {
    use("[STRING]\n3002=" + QByteArray(50'000, 'x') +
        "\n3020=a\x01"
        "b\n]]][[[\n=\n[IMAGE]\n7=" +
        QByteArray(3'000, 'y') + "\n[DIALOG_IDD_3000\n1=no\n");
    EXPECT_EQ(LanguageString(3002).size(), 10'199);
    EXPECT_EQ(LanguageString(3020), "ab");
    ASSERT_NE(LanguageImage(7), nullptr);
    EXPECT_TRUE(LanguageImage(7)->isNull());
    EXPECT_EQ(LanguageControlText(3000, "1"), "");
}

TEST_F(LanguageTest, PicturesComeFromTheLangFolderOnly) {
    const QDir program(QCoreApplication::applicationDirPath());
    ASSERT_TRUE(program.mkpath("lang/sub"));
    QImage red(3, 2, QImage::Format_RGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(program.filePath("lang/sub/language-test.png")));
    ASSERT_TRUE(red.save(program.filePath("language-test.png")));
    use("[BITMAP]\n1=sub\\language-test.png\n2=..\\language-test.png\n3=nowhere.png\n[IMAGE]\n"
        "1=sub/language-test.png\n2=sub/../../"
        "language-test.png\n4=C:\\x.png\n-1=language-test.png\n5=" +
        program.filePath("language-test.png").toUtf8() + "\n");
    QImage blue(1, 1, QImage::Format_RGB32);
    blue.fill(Qt::blue);
    EXPECT_EQ(LanguageBitmap(1, blue).size(), QSize(3, 2));
    EXPECT_EQ(LanguageBitmap(2, blue), blue);
    EXPECT_EQ(LanguageBitmap(3, blue), blue);
    EXPECT_EQ(LanguageBitmap(4, blue), blue);
    ASSERT_NE(LanguageImage(1), nullptr);
    EXPECT_EQ(LanguageImage(1)->size(), QSize(3, 2));
    for (const int outside : {2, 4, 5}) {
        ASSERT_NE(LanguageImage(outside), nullptr);
        EXPECT_TRUE(LanguageImage(outside)->isNull()) << outside;
    }
    EXPECT_EQ(LanguageImage(3), nullptr);
    EXPECT_EQ(LanguageImage(-1), nullptr);
    EXPECT_TRUE(QDir(program.filePath("lang")).removeRecursively());
    EXPECT_TRUE(QFile::remove(program.filePath("language-test.png")));
}

TEST_F(LanguageTest, TranslatesADialogByControlId) {
    use("[DIALOG_IDD_3009]\n3032=Nichts\\nweiter\n3045=Zur\xC3\xBC"
        "ck\n");
    QObject page;
    QObject group(&page);
    QAction noChange("No Change", &group);
    noChange.setProperty(kControlIdProperty, 3032);
    QAction save("Save", &page);
    save.setProperty(kControlIdProperty, 3025);
    QAction unnumbered("Other", &page);
    TranslateDialog(page, 3009);
    EXPECT_EQ(noChange.text(), "Nichts\nweiter");
    EXPECT_EQ(save.text(), "Save");
    EXPECT_EQ(unnumbered.text(), "Other");
    TranslateDialog(page, 3000);
    EXPECT_EQ(noChange.text(), "Nichts\nweiter");
}

/// The wanted keys that are not among the keys.
std::string lacking(const QStringList& keys, QStringList wanted) {
    wanted.removeIf([&keys](const QString& key) { return keys.contains(key); });
    return wanted.join(", ").toStdString();
}

TEST(LanguageFiles, GermanIsCompleteAndEnglishIsTheBuiltInText) {
    const IniFile english = IniFile::fromFile(assetPath("english.ini"));
    const IniFile german = IniFile::fromFile(assetPath("german.ini"));
    ASSERT_GE(english.sections().size(), 9);
    EXPECT_EQ(english.sections(), german.sections());
    for (const QString& section : english.sections()) {
        SCOPED_TRACE(section.toStdString());
        EXPECT_EQ(lacking(german.keys(section), english.keys(section)), "") << "in german.ini";
        EXPECT_EQ(lacking(english.keys(section), german.keys(section)), "") << "in english.ini";
        for (const QString& key : english.keys(section)) {
            EXPECT_NE(english.value(section, key), "") << key.toStdString();
            EXPECT_NE(german.value(section, key), "") << key.toStdString();
        }
    }
    QStringList ids;
    for (const std::int32_t id : builtInStringIds()) {
        ids.append(QString::number(id));
        EXPECT_EQ(english.value("STRING", ids.last()).toStdString(),
                  QString::fromUtf16(builtInString(id)).toStdString())
            << "english.ini, STRING " << id;
    }
    EXPECT_EQ(lacking(ids, english.keys("STRING")), "") << "in the program";
    for (const COpencvFilterInterface* filter : GetFilterPrototypes()) {
        const QString name = QString::fromUtf16(filter->GetName());
        EXPECT_EQ(english.value("DICTIONARY", name).toStdString(), name.toStdString())
            << "english.ini, DICTIONARY";
    }
}

TEST(LanguageFiles, TranslationsKeepWhatIsFormatted) {
    const IniFile english = IniFile::fromFile(assetPath("english.ini"));
    const IniFile german = IniFile::fromFile(assetPath("german.ini"));
    for (const QString& key : english.keys("STRING")) {
        EXPECT_EQ(english.value("STRING", key).count("%d"), german.value("STRING", key).count("%d"))
            << key.toStdString();
    }
}

}  // namespace
}  // namespace vellora
