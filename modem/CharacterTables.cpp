#include "modem/CharacterTables.h"

#include "platform/RuntimeFailure.h"

#include <QCoreApplication>

namespace {

struct Pair {
    quint8 character; ///< Windows-1252
    quint8 gsm;
};

// What stands at another place in the two alphabets.
constexpr Pair kMoved[] = {
    {36, 2},    // $
    {95, 17},   // _
    {161, 64},  // ¡
    {163, 1},   // £
    {164, 36},  // ¤
    {165, 3},   // ¥
    {167, 95},  // §
    {191, 96},  // ¿
    {196, 91},  // Ä
    {197, 14},  // Å
    {198, 28},  // Æ
    {201, 31},  // É
    {209, 93},  // Ñ
    {214, 92},  // Ö
    {216, 11},  // Ø
    {220, 94},  // Ü
    {223, 30},  // ß
    {224, 127}, // à
    {228, 123}, // ä
    {229, 15},  // å
    {230, 29},  // æ
    {231, 9},   // ç: the published alphabet has the capital here; the capital goes out as 0
    {232, 4},   // è
    {233, 5},   // é
    {236, 7},   // ì
    {241, 125}, // ñ
    {242, 8},   // ò
    {246, 124}, // ö
    {248, 12},  // ø
    {249, 6},   // ù
    {252, 126}, // ü
};

// Runs of codes that are the same in both.
struct Run {
    quint8 first;
    quint8 last;
};
constexpr Run kSame[] = {{10, 10}, {32, 35}, {37, 63}, {65, 90}, {97, 122}};

template <std::size_t size> quint8 at(const std::array<quint8, size> &table, int code)
{
    if (code < 0 || code >= static_cast<int>(size)) {
        throw RuntimeFailure(
            QCoreApplication::translate("CharacterTables", "Tegnet finnes ikke i tegntabellen"));
    }
    return table[static_cast<std::size_t>(code)];
}

} // namespace

void CharacterTables::BuildCharacterTables()
{
    for (const Run &run : kSame) {
        for (quint8 code = run.first; code <= run.last; ++code) {
            OutCharTable[code] = code;
            InCharTable[code] = code;
        }
    }
    for (const Pair &pair : kMoved) {
        OutCharTable[pair.character] = pair.gsm;
        InCharTable[pair.gsm] = pair.character;
    }
    // A line break of two characters goes out as two line feeds.
    OutCharTable[13] = 10;
    InCharTable[13] = 13;
    // "@" has code 0 there, so it goes out right by having no place in the outgoing table.
    InCharTable[0] = 64;
}

quint8 CharacterTables::out(int code) const
{
    return at(OutCharTable, code);
}

quint8 CharacterTables::in(int code) const
{
    return at(InCharTable, code);
}
