#include "users/Numbers.h"

#include "platform/Text.h"

bool isHomeNumber(const QString &number, const QString &countryCode)
{
    return holds(number, u'+' + countryCode);
}

QString shortNumber(const QString &number)
{
    return mid(number, 4, 9);
}

QString numberToEnd(const QString &number)
{
    return mid(number, 4);
}
