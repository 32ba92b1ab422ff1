#include "platform/Text.h"

#include "platform/RuntimeFailure.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// Windows-1252, codes 80 to 9F hexadecimal (the "best fit" table of Microsoft's code page file:
// 81, 8D, 8F, 90 and 9D have no character and stand for themselves).
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString translated(const char *text)
{
    return QCoreApplication::translate("Text", text);
}

[[noreturn]] void failCut()
{
    throw RuntimeFailure(translated("Ugyldig argument"));
}

} // namespace

int inStr(int start, const QString &text, const QString &needle)
{
    if (start < 1) {
        failCut();
    }
    return static_cast<int>(text.indexOf(needle, start - 1, Qt::CaseInsensitive)) + 1;
}

QString mid(const QString &text, int start, int length)
{
    if (start < 1 || length < 0) {
        failCut();
    }
    return text.mid(start - 1, length);
}

QString mid(const QString &text, int start)
{
    if (start < 1) {
        failCut();
    }
    return text.mid(start - 1);
}

QString left(const QString &text, int length)
{
    if (length < 0) {
        failCut();
    }
    return text.left(length);
}

bool same(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

double toNumber(const QString &text)
{
    bool ok = false;
    const double number = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(number)) {
        throw RuntimeFailure(translated("Teksten er ikke et tall"));
    }
    return number;
}

quint8 toByte(const QString &text)
{
    const double number = toNumber(text);
    if (number < -0.5 || number >= 255.5) {
        throw RuntimeFailure(translated("Tallet er for stort"));
    }
    return static_cast<quint8>(std::lrint(number));
}

quint8 byteOf(int value)
{
    if (value < 0 || value > 255) {
        throw RuntimeFailure(translated("Tallet er for stort"));
    }
    return static_cast<quint8>(value);
}

int windows1252Code(QChar character)
{
    const char16_t unit = character.unicode();
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) {
        return unit;
    }
    const auto *const found = std::find(kHighControls.begin(), kHighControls.end(), unit);
    return found == kHighControls.end() ? -1
                                        : 0x80 + static_cast<int>(found - kHighControls.begin());
}

QChar windows1252Character(int code)
{
    if (code >= 0x80 && code < 0xA0) {
        return QChar(kHighControls[static_cast<std::size_t>(code - 0x80)]);
    }
    return QChar(static_cast<char16_t>(code));
}

QString toWindows1252(const QString &text)
{
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        // A pair of surrogates is one character to the person who typed it.
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            ++i;
            result += u'?';
        } else {
            result += windows1252Code(text[i]) < 0 ? QChar(u'?') : text[i];
        }
    }
    return result;
}

QString fromLineBytes(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes);
}

QByteArray toLineBytes(const QString &text)
{
    return text.toLatin1();
}
