#include "metafile/SymbolText.h"

#include <QStringDecoder>
#include <string_view>

namespace vellora::metafile {
namespace {

constexpr std::uint8_t kSymbolCharSet = 2;

/// Signs from 0x20 to 0x7E of a font of Greek letters and mathematics; a blank where another font
/// has none.
constexpr char16_t kGreek[] =
    u" !∀#∃%&∋()∗+,−./0123456789:;<=>?"
    u"≅ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ[∴]⊥_"
    u" αβχδεφγηιϕκλμνοπθρστυϖωξψζ{|}∼";
constexpr char16_t kGreekHigh[] =
    u"€ϒ′≤⁄∞ƒ♣♦♥♠↔←↑→↓°±″≥×∝∂•÷≠≡≈…⏐⎯↵"
    u"ℵℑℜ℘⊗⊕∅∩∪⊃⊇⊄⊂⊆∈∉∠∇®©™∏√⋅¬∧∨⇔⇐⇑⇒⇓"
    u"◊〈®©™∑⎛⎜⎝⎡⎢⎣⎧⎨⎩⎪ 〉∫⌠⎮⌡⎞⎟⎠⎤⎥⎦⎫⎬⎭ ";
/// Runs of neighbouring signs of a font of pictures; the other places have no character
/// of their own.
struct PictureRun {
    unsigned first;
    const char16_t* signs;
};

constexpr PictureRun kPictures[] = {
    {0x21, u"✏✂✁"},      {0x28, u"☎✆✉"},
    {0x36, u"⌛⌨"},       {0x3E, u"✇✍"},
    {0x41, u"✌"},        {0x45, u"☜☞☝☟"},
    {0x4A, u"☺"},        {0x4C, u"☹"},
    {0x4E, u"☠⚐"},       {0x51, u"✈☼"},
    {0x54, u"❄"},        {0x56, u"✞"},
    {0x58, u"✠✡☪☯"},     {0x5D, u"☸♈♉♊♋♌♍♎♏♐♑♒♓&&●❍■□□❑❒⬧⧫◆❖⬥⌧"},
    {0x7A, u"⌘❀✿❝❞"},    {0x80, u"⓪①②③④⑤⑥⑦⑧⑨⑩⓿❶❷❸❹❺❻❼❽❾❿"},
    {0x9E, u"·•"},       {0xA1, u"○"},
    {0xA4, u"◉"},        {0xA7, u"▪◻"},
    {0xAA, u"✦★✶✴✹✵"},   {0xB5, u"✪✰"},
    {0xD5, u"⌫⌦"},       {0xD8, u"➢"},
    {0xDF, u"←→↑↓↖↗↙↘"}, {0xE8, u"➔"},
    {0xEF, u"⇦⇨⇧⇩⬄"},    {0xFB, u"✗✓☒☑"},
};

template <std::size_t Size>
char16_t lookUp(const char16_t (&table)[Size], unsigned first, unsigned code, char16_t otherwise) {
    return code >= first && code - first < Size - 1 ? table[code - first] : otherwise;
}

char16_t greek(unsigned code) {
    return code < 0x7F ? lookUp(kGreek, 0x20, code, u' ') : lookUp(kGreekHigh, 0xA0, code, u' ');
}

char16_t picture(unsigned code) {
    for (const PictureRun& run : kPictures) {
        const std::u16string_view signs(run.signs);
        if (code >= run.first && code - run.first < signs.size())
            return signs[code - run.first];
    }
    return u' ';
}

const char* encodingOf(std::uint8_t charSet) {
    switch (charSet) {
        case 128:
            return "Shift_JIS";
        case 129:
            return "EUC-KR";
        case 134:
            return "GB18030";
        case 136:
            return "Big5";
        case 161:
            return "windows-1253";
        case 162:
            return "windows-1254";
        case 163:
            return "windows-1258";
        case 177:
            return "windows-1255";
        case 178:
            return "windows-1256";
        case 186:
            return "windows-1257";
        case 204:
            return "windows-1251";
        case 222:
            return "windows-874";
        case 238:
            return "windows-1250";
        default:
            return "windows-1252";
    }
}

bool holdsPictures(const FontObject& font) {
    return font.face.contains(QLatin1String("dings"), Qt::CaseInsensitive);
}

bool holdsGreek(const FontObject& font) {
    return font.face.compare(QLatin1String("Symbol"), Qt::CaseInsensitive) == 0;
}

}  // namespace

bool holdsSigns(const FontObject& font) {
    return holdsGreek(font) || holdsPictures(font);
}

QString decodeBytes(const FontObject& font, const QByteArray& bytes) {
    if (font.charSet == kSymbolCharSet || holdsSigns(font))
        return QString::fromLatin1(bytes);
    QStringDecoder decoder(encodingOf(font.charSet));
    if (!decoder.isValid())
        return QString::fromLatin1(bytes);
    return decoder.decode(bytes);
}

QString symbolsToUnicode(const FontObject& font, const QString& text) {
    const bool greekFont = holdsGreek(font);
    const bool pictureFont = holdsPictures(font);
    if (!greekFont && !pictureFont && font.charSet != kSymbolCharSet)
        return text;
    QString result = text;
    for (QChar& c : result) {
        const unsigned code =
            c.unicode() >= 0xF000 && c.unicode() <= 0xF0FF ? c.unicode() - 0xF000u : c.unicode();
        if (code > 0xFF || (!greekFont && !pictureFont))
            c = QChar(static_cast<char16_t>(code));
        else
            c = QChar(greekFont ? greek(code) : picture(code));
    }
    return result;
}

}  // namespace vellora::metafile
