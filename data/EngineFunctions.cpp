#include "data/EngineFunctions.h"

#include "data/Dates.h"

#include <QChar>
#include <QStringView>

#include <sqlcipher/sqlite3.h>

#include <string_view>

namespace {

/// Takes the next character off a UTF-8 text. A broken byte counts as a character of its own.
char32_t takeCharacter(std::string_view &text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length == 1 || length > text.size()) {
        text.remove_prefix(1);
        return lead;
    }
    char32_t character = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        character = (character << 6) | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
    text.remove_prefix(length);
    return character;
}

/// Place of a character in the order of the alphabet, the same for a capital and its small letter.
char32_t weight(char32_t character)
{
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

} // namespace

void addEngineFunctions(sqlite3 *database)
{
    sqlite3_create_collation(database, "NOCASE", SQLITE_UTF8, nullptr, compareNoCase);
    sqlite3_create_function(database, "dato", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, dato,
                            nullptr, nullptr);
}
