#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <vector>

#include <gtest/gtest.h>

#include "xml/LORXMLNodeWrite.h"
#include "xml/XMLParse.h"

namespace vellora {
namespace {

/// The document in each encoding, with and without a byte order mark.
std::vector<QByteArray> encoded(const QString& document) {
    using Coding = QStringConverter;
    std::vector<QByteArray> forms;
    for (const auto encoding :
         {Coding::Utf8, Coding::Utf16LE, Coding::Utf16BE, Coding::Utf32LE, Coding::Utf32BE}) {
        for (const auto mark : {Coding::Flag::Default, Coding::Flag::WriteBom}) {
            forms.push_back(QStringEncoder(encoding, mark)(document));
        }
    }
    return forms;
}

/// As an editor or a version-control system leaves it.
QString withCrLf(QString document) {
    return document.replace("\n", "\r\n");
}

TEST(XmlReader, TellsMissingNodeFromMissingAttribute) {
    CXMLParse xml;
    ASSERT_EQ(xml.OpenText("<a><b i='12' h='0xFF' c='0x996633' t='x'/><b i='13'/></a>"), 1);
    QString text = "before";
    EXPECT_EQ(xml.GetAttribute("//a/b", "t", text), 0);
    EXPECT_EQ(text, "x");
    EXPECT_EQ(xml.GetAttribute("//a/c", "t", text), 1);
    EXPECT_EQ(text, "");
    text = "before";
    EXPECT_EQ(xml.GetAttribute("//a/b", "z", text), -1);
    EXPECT_EQ(text, "");

    std::int32_t number = 7;
    EXPECT_EQ(xml.GetIntAttribute("//a/b", "i", number), 0);
    EXPECT_EQ(number, 12) << "the first match counts";
    EXPECT_EQ(xml.GetIntAttribute("//a/b[@i=\"13\"]", "i", number), 0);
    EXPECT_EQ(number, 13);
    EXPECT_EQ(xml.GetIntAttribute("//a/b", "z", number), -1);
    EXPECT_EQ(xml.GetIntAttribute("//z", "i", number), 1);
    EXPECT_EQ(number, 13);
    std::uint32_t hex = 0;
    EXPECT_EQ(xml.GetHexAttribute("//a/b", "h", hex), 0);
    EXPECT_EQ(hex, 0xFFU);
    COLORREF colour = 0;
    EXPECT_EQ(xml.GetColorAttribute("//a/b", "c", colour), 0);
    EXPECT_EQ(colour, 0x336699U);
    EXPECT_EQ(xml.GetColorAttribute("//a/z", "c", colour), 1);
    EXPECT_EQ(xml.GetNodeText("//z", text), -1);
    EXPECT_EQ(xml.GetIntAttribute("//[broken", "i", number), 1);
}

TEST(XmlReader, ScansNumbersAsFormattedInputDoes) {
    const auto intOf = [](const char* value) {
        CXMLParse xml;
        xml.OpenText(QByteArray("<a v='") + value + "'/>");
        std::int32_t number = 77;
        EXPECT_EQ(xml.GetIntAttribute("/a", "v", number), 0);
        return number;
    };
    EXPECT_EQ(intOf(" \t-5abc"), -5);
    EXPECT_EQ(intOf("+5.9"), 5);
    EXPECT_EQ(intOf("abc"), 77);
    EXPECT_EQ(intOf(""), 77);
    EXPECT_EQ(intOf("0x10"), 0);
    EXPECT_EQ(intOf("99999999999999999999999"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(intOf("-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(intOf("-99999999999"), std::numeric_limits<std::int32_t>::min());
    const auto hexOf = [](const char* value) {
        CXMLParse xml;
        xml.OpenText(QByteArray("<a v='") + value + "'/>");
        std::uint32_t number = 77;
        xml.GetHexAttribute("/a", "v", number);
        return number;
    };
    EXPECT_EQ(hexOf("0X1f"), 0x1FU);
    EXPECT_EQ(hexOf("1fg"), 0x1FU);
    EXPECT_EQ(hexOf("ffffffff"), 0xFFFFFFFFU);
    EXPECT_EQ(hexOf("fffffffff"), 0xFFFFFFFFU);
    EXPECT_EQ(hexOf("-1"), 0xFFFFFFFFU);
}

TEST(XmlReader, ReadsBackWhatTheWriterWrote) {
    const QString values[] = {
        " lead and trail  ", "\t\t",       "a\nb\r\nc\rd", "]]>", "&lt;&#65;&foo;", "<b a=\"'\">",
        "\u05D0\U0001F600",  "<!-- x -->", "   ",          "\n"};
    for (const QString& value : values) {
        ASSERT_EQ(BeginXMLDocument(), 1);
        WriteXMLHeader();
        {
            CLORXMLNodeWrite node(0, u"a", true);
            node.AddAttribute(u"v", value);
            node.SetText(value);
            node.Flush();
        }
        CXMLParse xml;
        ASSERT_EQ(xml.OpenText(XMLBuffer().toUtf8()), 1);
        QString read;
        EXPECT_EQ(xml.GetAttribute("/a", "v", read), 0);
        EXPECT_EQ(read, value);
        EXPECT_EQ(xml.GetNodeText("/a", read), 0);
        EXPECT_EQ(read, value);
    }
}

TEST(XmlReader, ReadsForeignFormsAndEncodings) {
    const QString document =
        "<?xml version='1.0'?><!-- c --><a v='\"'>x<![CDATA[<y>]]><!-- c -->"
        "\u00E4<b>in</b>z</a>";
    for (const QByteArray& form : encoded(document)) {
        CXMLParse xml;
        ASSERT_EQ(xml.OpenText(form), 1);
        QString text;
        EXPECT_EQ(xml.GetNodeText("//a", text), 0);
        EXPECT_EQ(text, u"x<y>\u00E4inz");
        EXPECT_EQ(xml.Select("//a").LeadingText(), u"x<y>\u00E4");
        EXPECT_EQ(xml.Select("//a").Attribute("v"), "\"");
    }
}

TEST(XmlReader, TakesBackNewLineEndsOfTheWholeFile) {
    const QString document = "<?xml version='1.0'?>\n<a v='\n\t'>x\n\ny\r\n</a>";
    for (const QByteArray& form : encoded(withCrLf(document))) {
        CXMLParse xml;
        ASSERT_EQ(xml.OpenText(form), 1);
        EXPECT_EQ(xml.Select("/a").Text(), "x\n\ny\r\n") << "its own carriage return stays";
        EXPECT_EQ(xml.Select("/a").Attribute("v"), "\n\t");
    }
    const QString mixed = "<?xml version='1.0'?>\n<a v='\r\n'>\r\n</a>\r\n";
    for (const QByteArray& form : encoded(mixed)) {
        CXMLParse xml;
        ASSERT_EQ(xml.OpenText(form), 1);
        EXPECT_EQ(xml.Select("/a").Text(), "\r\n") << "the first line is what tells";
        EXPECT_EQ(xml.Select("/a").Attribute("v"), "\r\n");
    }
}

TEST(XmlReader, LooksForOneEncodingOnly) {
    CXMLParse xml;
    const QString document = u"<?xml version='1.0' encoding='latin1'?><a>\u00E4</a>"_qs;
    const std::vector<QByteArray> forms = encoded(document);
    for (std::size_t i = 1; i < forms.size(); ++i) {
        ASSERT_EQ(xml.OpenText(forms[i]), 1);
        EXPECT_EQ(xml.Select("/a").Text(), u"\u00E4") << "the bytes are stronger than the word";
    }
    EXPECT_EQ(xml.OpenText(document.toLatin1()), 1);
    EXPECT_EQ(xml.Select("/a").Text(), u"\u00E4");
    const QByteArray inner = QStringEncoder(QStringConverter::Utf16LE)(QString("<a/>"));
    EXPECT_EQ(xml.OpenText("\xEF\xBB\xBF" + inner), 0);
}

TEST(XmlReader, DropsCharactersThatNoFileMayHold) {
    CXMLParse xml;
    ASSERT_EQ(xml.OpenText("<a v='x&#1;y&#xFFFE;z&#9;'>\x02t&#xB;</a>"), 1);
    EXPECT_EQ(xml.Select("/a").Attribute("v"), "xyz\t");
    EXPECT_EQ(xml.Select("/a").Text(), "t");
}

TEST(XmlReader, RefusesWhatIsNoDocument) {
    const QTemporaryDir folder;
    for (const QByteArray& bad :
         {QByteArray(), QByteArray("no xml"), QByteArray("<a><b></a>"), QByteArray("<a><b i='1'/>"),
          QByteArray("<a/><b/>"), QByteArray("<a\0b", 4)}) {
        CXMLParse xml;
        EXPECT_EQ(xml.OpenText(bad), 0) << bad.constData();
        EXPECT_FALSE(xml.Select("//a")) << "nothing half-read";
        EXPECT_FALSE(xml.Error().message.isEmpty());
    }
    CXMLParse xml;
    EXPECT_EQ(xml.Open(folder.filePath("missing.xml")), 0);
    EXPECT_EQ(xml.Open(folder.path()), 0);
    EXPECT_EQ(xml.OpenText("<a>\n  <b></c>\n</a>"), 0);
    EXPECT_EQ(xml.Error().line, 2);
    EXPECT_EQ(xml.OpenText("<a/>"), 1);
    EXPECT_TRUE(xml.Error().message.isEmpty());
}

TEST(XmlReader, TellsThePlaceOfAFaultInAnyEncoding) {
    const QTemporaryDir folder;
    const QString document = u"<a v='&lt;&amp;\n\n'>\n  <\u00E4>\U0001F600</b>\n</a>"_qs;
    for (const QString& form : {document, withCrLf(document)}) {
        for (const QByteArray& bytes : encoded(form)) {
            QFile file(folder.filePath("broken.xml"));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            ASSERT_EQ(file.write(bytes), bytes.size());
            file.close();
            CXMLParse xml;
            EXPECT_EQ(xml.Open(file.fileName()), 0);
            EXPECT_EQ(xml.Error().Text(), "line 4, column 9: Start-end tags mismatch");
            EXPECT_EQ(xml.OpenText(bytes), 0);
            EXPECT_EQ(xml.Error().line, 4);
            EXPECT_EQ(xml.Error().column, 9);
        }
    }
}

TEST(XmlReader, AnswersWithinAnElement) {
    CXMLParse xml;
    ASSERT_EQ(xml.OpenText("<a><s n='1'><t>x</t></s><s n='2'><t>y</t><u><t>z</t></u></s></a>"), 1);
    xml.SetContext(xml.Select("/a/s[@n='2']"));
    QString text;
    EXPECT_EQ(xml.GetNodeText("t", text), 0);
    EXPECT_EQ(text, "y");
    EXPECT_EQ(xml.GetNodeText("u/t", text), 0);
    EXPECT_EQ(text, "z");
    EXPECT_EQ(xml.GetNodeText("//s/t", text), 0);
    EXPECT_EQ(text, "x");
    EXPECT_EQ(xml.GetNodeText("a", text), -1);
    xml.SetContext({});
    EXPECT_TRUE(xml.Select("a"));
}

TEST(XmlReader, ExpandsNoEntityOfTheDocument) {
    CXMLParse xml;
    ASSERT_EQ(xml.OpenText("<!DOCTYPE a [<!ENTITY e 'boom'><!ENTITY f SYSTEM "
                           "'file:///etc/passwd'>]><a>&e;&f;</a>"),
              1);
    EXPECT_EQ(xml.Select("/a").Text(), "&e;&f;");
}

TEST(XmlReader, RefusesDeepNesting) {
    const auto nested = [](const QByteArray& start, int depth) {
        return start.repeated(depth) + QByteArray("</a>").repeated(depth);
    };
    // Among them tags that look like others at first sight.
    for (const char* start :
         {"<a>", "<a b=\"c\">", "<a b='c'>", "<a b=\"/>\">", "<a b='/>'>", "<a b=\"<x/>\">",
          "<a b=\"x>\" c=\"</a>\">", "<a b=\"'\" c='</a>'>", "<a><!-- </a> -->",
          "<a><![CDATA[</a>]]>", "<a>>/>", "<a><?x </a>?>"}) {
        CXMLParse xml;
        EXPECT_EQ(xml.OpenText(nested(start, 250)), 1) << start;
        EXPECT_EQ(xml.OpenText(nested(start, 258)), 0) << start;
        EXPECT_EQ(xml.OpenText(nested(start, 100000)), 0) << start;
        EXPECT_FALSE(xml.Select("//a")) << start;
    }
    CXMLParse xml;
    EXPECT_EQ(xml.OpenText(nested("<a>", 256)), 1);
    EXPECT_EQ(xml.OpenText(nested("<a>", 257)), 0);
    EXPECT_EQ(xml.OpenText("<r>" + QByteArray("<a b=\"c\"/>\n").repeated(1000) + "</r>"), 1);
}

TEST(XmlReader, RefusesDeepNestingInAnyEncoding) {
    // Texts that have the bytes of an end tag, in one or the other order.
    for (const QString& start : {u"<a>"_qs, u"<a>\u2F3C\u203E"_qs, u"<a>\u3C2F\u3E20"_qs}) {
        const auto nested = [&](int depth) {
            return encoded(start.repeated(depth) + QString("</a>").repeated(depth));
        };
        CXMLParse xml;
        for (const QByteArray& form : nested(256)) {
            EXPECT_EQ(xml.OpenText(form), 1);
        }
        for (const QByteArray& form : nested(257)) {
            EXPECT_EQ(xml.OpenText(form), 0);
        }
    }
}

TEST(XmlReader, NumbersChildrenByTheirId) {
    CXMLParse xml;
    ASSERT_EQ(xml.OpenText("<a><s id='-0' v='no'/><s id='2' v='c'/><s id='0' v='a'/><t id='1'/>"
                           "<s id='02'/><s id='2' v='late'/><s/><s id='-1'/><s id='9'/>"
                           "<s id='x'/><s id='1 '/><s id='+1'/></a>"),
              1);
    const auto children = numberedChildren({xml.Select("/a")}, "s", 9);
    ASSERT_EQ(children.size(), 2U);
    EXPECT_EQ(children[0].id, 0);
    EXPECT_EQ(children[0].node.Attribute("v"), "a");
    EXPECT_EQ(children[1].id, 2);
    EXPECT_EQ(children[1].node.Attribute("v"), "c");
    EXPECT_EQ(
        numberedChildren({xml.Select("/a")}, "s", std::numeric_limits<std::int32_t>::max()).size(),
        3U);
    EXPECT_TRUE(numberedChildren({xml.Select("/a")}, "s", 0).empty());
}

}  // namespace
}  // namespace vellora
