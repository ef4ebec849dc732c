#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "xml/LORXMLNodeWrite.h"
#include "xml/XMLParse.h"

namespace vellora {
namespace {

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
    const QByteArray forms[] = {
        document.toUtf8(),
        QByteArray("\xEF\xBB\xBF") + document.toUtf8(),
        QStringEncoder(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom)(document),
        QStringEncoder(QStringEncoder::Utf16BE, QStringEncoder::Flag::WriteBom)(document),
    };
    for (const QByteArray& form : forms) {
        CXMLParse xml;
        ASSERT_EQ(xml.OpenText(form), 1);
        QString text;
        EXPECT_EQ(xml.GetNodeText("//a", text), 0);
        EXPECT_EQ(text, u"x<y>\u00E4inz");
        EXPECT_EQ(xml.Select("//a").LeadingText(), u"x<y>\u00E4");
        EXPECT_EQ(xml.Select("//a").Attribute("v"), "\"");
    }
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
    for (const auto encoding :
         {QStringConverter::Utf8, QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        for (const auto mark :
             {QStringConverter::Flag::Default, QStringConverter::Flag::WriteBom}) {
            QStringEncoder encode(encoding, mark);
            const QByteArray bytes = encode(document);
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

TEST(XmlReader, NumbersChildrenByTheirId) {
    CXMLParse xml;
    ASSERT_EQ(xml.OpenText("<a><s id='2' v='c'/><s id='0' v='a'/><t id='1'/><s id='02'/><s id='2' "
                           "v='late'/><s/><s id='-1'/><s id='9'/><s id='x'/></a>"),
              1);
    const auto children = numberedChildren({xml.Select("/a")}, "s", 9);
    ASSERT_EQ(children.size(), 2U);
    EXPECT_EQ(children[0].id, 0);
    EXPECT_EQ(children[1].id, 2);
    EXPECT_EQ(children[1].node.Attribute("v"), "c");
    EXPECT_EQ(
        numberedChildren({xml.Select("/a")}, "s", std::numeric_limits<std::int32_t>::max()).size(),
        3U);
    EXPECT_TRUE(numberedChildren({xml.Select("/a")}, "s", 0).empty());
}

}  // namespace
}  // namespace vellora
