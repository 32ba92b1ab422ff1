#include "data/EngineFunctions.h"

#include "data/Dates.h"

#include <QChar>
#include <QStringView>

#include <sqlcipher/sqlite3.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <string_view>

namespace {

constexpr int kSortedCharacters = 100;

/// Takes the next character off a UTF-8 text. A broken byte counts as a character of its own.
char32_t takeCharacter(std::string_view &text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t character = lead;
    if (length > 1 && length <= text.size()) {
        character &= 0xFFU >> (length + 1);
        for (std::size_t i = 1; i < length; ++i) {
            character = (character << 6) | (static_cast<unsigned char>(text[i]) & 0x3FU);
        }
        if (character <= QChar::LastValidCodePoint) {
            text.remove_prefix(length);
            return character;
        }
    }
    text.remove_prefix(1);
    return lead;
}

/// Place of a character in the order of the alphabet, the same for a capital and its small letter.
char32_t weight(char32_t character)
{
    if (character < 0x80) {
        return character >= U'A' && character <= U'Z' ? character + 0x20 : character;
    }
    constexpr std::u32string_view kBehindZ = U"æäøöå";
    const char32_t letter = QChar::toLower(character);
    const auto place = kBehindZ.find(letter);
    if (place != std::u32string_view::npos) {
        return 0x100 + static_cast<char32_t>(place);
    }
    return letter < 0x100 ? letter : letter + static_cast<char32_t>(kBehindZ.size());
}

std::string_view withoutTrailingBlanks(const void *bytes, int size)
{
    std::string_view text(static_cast<const char *>(bytes), static_cast<std::size_t>(size));
    while (!text.empty() && text.back() == ' ') {
        text.remove_suffix(1);
    }
    return text;
}

int compareNoCase(void *, int leftSize, const void *leftBytes, int rightSize,
                  const void *rightBytes)
{
    std::string_view left = withoutTrailingBlanks(leftBytes, leftSize);
    std::string_view right = withoutTrailingBlanks(rightBytes, rightSize);
    while (!left.empty() && !right.empty()) {
        const char32_t a = weight(takeCharacter(left));
        const char32_t b = weight(takeCharacter(right));
        if (a != b) {
            return a < b ? -1 : 1;
        }
    }
    return left.empty() ? (right.empty() ? 0 : -1) : 1;
}

void dato(sqlite3_context *context, int, sqlite3_value **arguments)
{
    const auto *const text = reinterpret_cast<const char *>(sqlite3_value_text(arguments[0]));
    const int size = sqlite3_value_bytes(arguments[0]);
    if (const auto day = readStoredDay(QString::fromUtf8(text, size))) {
        sqlite3_result_int64(context, day->toJulianDay());
    } else {
        sqlite3_result_text(context, text == nullptr ? "" : text, size, SQLITE_TRANSIENT);
    }
}

/// Bytes in a buffer that holds the longest key of all.
class SortKey {
public:
    enum Kind : unsigned char { Nothing, Number, Text, Bytes };
    explicit SortKey(Kind kind) { add(kind); }

    void addNumber(double value)
    {
        // The bits of a double order as those of a whole number do, but for the negative ones,
        // which order backwards. 0.0 makes one of both zeros.
        auto bits = std::bit_cast<quint64>(value + 0.0);
        bits ^= bits >> 63 != 0 ? ~quint64{0} : quint64{1} << 63;
        for (int shift = 56; shift >= 0; shift -= 8) {
            add(static_cast<unsigned char>(bits >> shift));
        }
    }
    /// In the way of UTF-8, whose bytes order as their characters do.
    void addWeight(char32_t weight)
    {
        constexpr unsigned char kLeads[] = {0x00, 0xC0, 0xE0, 0xF0};
        const int following = weight < 0x80 ? 0 : weight < 0x800 ? 1 : weight < 0x10000 ? 2 : 3;
        add(static_cast<unsigned char>(kLeads[following] | weight >> 6 * following));
        for (int shift = 6 * (following - 1); shift >= 0; shift -= 6) {
            add(static_cast<unsigned char>(0x80U | (weight >> shift & 0x3FU)));
        }
    }
    void add(unsigned char byte) { bytes_[size_++] = byte; }
    void handTo(sqlite3_context *context) const
    {
        sqlite3_result_blob(context, bytes_.data(), size_, SQLITE_TRANSIENT);
    }

private:
    std::array<unsigned char, 1 + 4 * kSortedCharacters> bytes_;
    int size_ = 0;
};

/// A whole number as the next double at or below it, and how far that is away: at most 1024.
void addWhole(SortKey &key, qint64 value)
{
    auto below = static_cast<double>(value);
    if (below >= 0x1p63 || static_cast<qint64>(below) > value) {
        below = std::nextafter(below, -HUGE_VAL);
    }
    const qint64 rest = value - static_cast<qint64>(below);
    key.addNumber(below);
    key.add(static_cast<unsigned char>(rest >> 8));
    key.add(static_cast<unsigned char>(rest));
}

void sortkey(sqlite3_context *context, int, sqlite3_value **arguments)
{
    sqlite3_value *const value = arguments[0];
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        SortKey(SortKey::Nothing).handTo(context);
        return;
    case SQLITE_INTEGER: {
        SortKey key(SortKey::Number);
        addWhole(key, sqlite3_value_int64(value));
        key.handTo(context);
        return;
    }
    case SQLITE_FLOAT: {
        SortKey key(SortKey::Number);
        key.addNumber(sqlite3_value_double(value));
        key.add(0);
        key.add(0);
        key.handTo(context);
        return;
    }
    case SQLITE_TEXT: {
        const auto *const bytes = sqlite3_value_text(value);
        std::string_view text = withoutTrailingBlanks(bytes, sqlite3_value_bytes(value));
        SortKey key(SortKey::Text);
        for (int i = 0; i < kSortedCharacters && !text.empty(); ++i) {
            key.addWeight(weight(takeCharacter(text)));
        }
        key.handTo(context);
        return;
    }
    default: {
        const auto *const bytes = static_cast<const unsigned char *>(sqlite3_value_blob(value));
        SortKey key(SortKey::Bytes);
        for (int i = 0; i < std::min(kSortedCharacters, sqlite3_value_bytes(value)); ++i) {
            key.add(bytes[i]);
        }
        key.handTo(context);
    }
    }
}

/// Without case: A to Z, the capitals of Latin-1, which are the bytes 0x80 to 0x9E behind a 0xC3
/// (0x97, the sign of multiplication, is no letter), and the three that Windows-1252 has beside
/// them, Œ, Š and Ž, whose small letters follow them behind a 0xC5. The length stays as it is.
constexpr char folded(char byte, char before)
{
    const auto code = static_cast<unsigned char>(byte);
    if (before == '\xC5') {
        return static_cast<char>(code == 0x92 || code == 0xA0 || code == 0xBD ? code + 1 : code);
    }
    const bool capital = before == '\xC3' ? code >= 0x80 && code <= 0x9E && code != 0x97
                                          : code >= 'A' && code <= 'Z';
    return static_cast<char>(capital ? code + 0x20 : code);
}

/// Both begin with the same letter.
bool beginsWith(const char *text, std::string_view needle)
{
    for (std::size_t i = 1; i < needle.size(); ++i) {
        if (folded(text[i], text[i - 1]) != folded(needle[i], needle[i - 1])) {
            return false;
        }
    }
    return true;
}

bool holds(std::string_view text, std::string_view needle)
{
    if (text.size() < needle.size()) {
        return false;
    }
    const char small = folded(needle.front(), 0);
    const char capital = small >= 'a' && small <= 'z' ? static_cast<char>(small - 0x20) : small;
    const char *const last = text.data() + (text.size() - needle.size());
    for (const char *at = text.data(); at <= last; ++at) {
        if ((*at == small || *at == capital) && beginsWith(at, needle)) {
            return true;
        }
    }
    return false;
}

std::string_view textOf(sqlite3_value *value)
{
    const auto *const text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return {text, text == nullptr ? 0 : static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void containsText(sqlite3_context *context, int count, sqlite3_value **arguments)
{
    const std::string_view needle = count > 0 ? textOf(arguments[0]) : std::string_view();
    bool found = needle.empty();
    for (int i = 1; i < count && !found; ++i) {
        found = holds(textOf(arguments[i]), needle);
    }
    sqlite3_result_int(context, found ? 1 : 0);
}

} // namespace

void addEngineFunctions(sqlite3 *database)
{
    sqlite3_create_collation(database, "NOCASE", SQLITE_UTF8, nullptr, compareNoCase);
    const auto add = [&](const char *name, int arguments, auto function) {
        sqlite3_create_function(database, name, arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                nullptr, function, nullptr, nullptr);
    };
    add("dato", 1, dato);
    add("sortkey", 1, sortkey);
    add("contains_text", -1, containsText);
}
