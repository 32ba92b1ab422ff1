#include "data/Dates.h"

#include <QList>
#include <QRegularExpression>

#include <array>

namespace {

/// Years of two digits: 00 to 29 lie in this century, 30 to 99 in the last.
int fullYear(const QString &digits)
{
    const int year = digits.toInt();
    return digits.size() > 2 ? year : year + (year < 30 ? 2000 : 1900);
}

/// Reads the parts in an order such as "dMy".
std::optional<QDate> dayFromParts(const std::array<QString, 3> &parts, const QString &order)
{
    const auto part = [&](QChar letter) { return parts[order.indexOf(letter)]; };
    const QDate day(fullYear(part(u'y')), part(u'M').toInt(), part(u'd').toInt());
    return day.isValid() ? std::optional(day) : std::nullopt;
}

/// The letters d, M and y in the order of a date format.
QString orderOf(const QString &dateFormat)
{
    QString order;
    for (const QChar letter : dateFormat) {
        if (QStringView(u"dMy").contains(letter) && !order.contains(letter)) {
            order += letter;
        }
    }
    return order;
}

} // namespace

QString dayText(const QDate &day)
{
    return day.toString(QStringLiteral("d'/'M'/'yyyy"));
}

QString commandDate(const QDate &day)
{
    return day.toString(QStringLiteral("yyMMdd"));
}

qint64 dayNumber(const QDate &day)
{
    return QDate(1899, 12, 30).daysTo(day);
}

QString storedDate(const QDate &day)
{
    return day.toString(QStringLiteral("yyyy-MM-dd"));
}

std::optional<QDate> readDay(const QString &text, const QString &dateFormat)
{
    static const QRegularExpression kThreeParts(
        QStringLiteral("\\A\\s*(\\d{1,4})[/.-](\\d{1,4})[/.-](\\d{1,4})\\s*\\z"));
    static const QRegularExpression kFromDoor(
        QStringLiteral("\\A\\s*(\\d{1,2})\\s*& DATOSKILLETEGN &\\s*(\\d{1,2})\\s*"
                       "& DATOSKILLETEGN &\\s*(\\d{1,4})\\s*\\z"));
    const auto asTyped = kThreeParts.match(text);
    const auto match = asTyped.hasMatch() ? asTyped : kFromDoor.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const std::array parts = {match.captured(1), match.captured(2), match.captured(3)};
    if (!asTyped.hasMatch()) {
        return dayFromParts(parts, QStringLiteral("dMy"));
    }
    for (const QString &order :
         {orderOf(dateFormat), QStringLiteral("dMy"), QStringLiteral("Mdy")}) {
        if (order.size() == 3) {
            if (const auto day = dayFromParts(parts, order)) {
                return day;
            }
        }
    }
    return std::nullopt;
}

std::optional<QDate> readStoredDay(const QString &text)
{
    return readDay(text, QStringLiteral("d/M/yyyy"));
}

QString shownDay(const QString &text, const QString &dateFormat)
{
    const std::optional<QDate> day = readStoredDay(text);
    return day ? day->toString(dateFormat) : text;
}
