#include "simulator/GsmAlphabet.h"

#include <string_view>

using namespace std::string_view_literals;

namespace {

constexpr char kEscape = 27;

// Sixteen codes in a row, laid out as the standard's table read by columns. The place of the
// escape holds a NUL, which no text has.
constexpr std::u16string_view kTable = u"@£$¥èéùìòÇ\nØø\rÅå"
                                       u"Δ_ΦΓΛΩΠΨΣΘΞ\0ÆæßÉ"
                                       u" !\"#¤%&'()*+,-./"
                                       u"0123456789:;<=>?"
                                       u"¡ABCDEFGHIJKLMNO"
                                       u"PQRSTUVWXYZÄÖÑÜ§"
                                       u"¿abcdefghijklmno"
                                       u"pqrstuvwxyzäöñüà"sv;
static_assert(kTable.size() == 128);

struct Extension {
    char code;
    char16_t character;
};
constexpr Extension kExtensions[] = {{10, u'\f'}, {20, u'^'}, {40, u'{'}, {41, u'}'}, {47, u'\\'},
                                     {60, u'['},  {61, u'~'}, {62, u']'}, {64, u'|'}, {101, u'€'}};

void appendGsm(QByteArray &codes, char16_t character)
{
    const auto place = character == 0 ? std::u16string_view::npos : kTable.find(character);
    if (place != std::u16string_view::npos) {
        codes += static_cast<char>(place);
        return;
    }
    for (const Extension &extension : kExtensions) {
        if (extension.character == character) {
            codes += kEscape;
            codes += extension.code;
            return;
        }
    }
    codes += '?';
}

char16_t extended(char code)
{
    for (const Extension &extension : kExtensions) {
        if (extension.code == code) {
            return extension.character;
        }
    }
    return u'?';
}

} // namespace

QByteArray toGsm(const QString &text)
{
    QByteArray codes;
    for (const QChar character : text) {
        appendGsm(codes, character.unicode());
    }
    return codes;
}

QString fromGsm(const QByteArray &codes)
{
    QString text;
    for (qsizetype i = 0; i < codes.size(); ++i) {
        const auto code = static_cast<unsigned char>(codes[i]);
        if (code >= kTable.size()) {
            text += u'?';
        } else if (code != kEscape) {
            text += QChar(kTable[code]);
        } else {
            text += QChar(i + 1 < codes.size() ? extended(codes[++i]) : u'?');
        }
    }
    return text;
}
