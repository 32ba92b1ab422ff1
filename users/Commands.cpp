#include "users/Commands.h"

#include "data/Dates.h"
#include "platform/RuntimeFailure.h"
#include "users/Balance.h"
#include "users/Numbers.h"

#include <QCoreApplication>

namespace {

QString word(QChar letter, const QString &number, const QString &countryCode)
{
    return QString(isHomeNumber(number, countryCode) ? letter.toUpper() : letter.toLower()) + u' ';
}

QString sixDigits(const QDate &day)
{
    if (!day.isValid()) {
        throw RuntimeFailure(
            QCoreApplication::translate("Commands", "Perioden mangler en gyldig dato"));
    }
    return commandDate(day);
}

} // namespace

QString registerCommand(const UserEntry &user, const QString &countryCode)
{
    const QString start = word(u'I', user.number, countryCode) + shortNumber(user.number);
    if (hasBalance(user.saldo)) {
        return start + u'*' + user.saldo;
    }
    return start + u'>' + sixDigits(user.from) + user.fraTid + u'<' + sixDigits(user.to) +
           user.tilTid;
}

QString deleteCommand(const QString &number, const QString &countryCode)
{
    return word(u'U', number, countryCode) + numberToEnd(number);
}

QString bareRegisterCommand(const QString &number, const QString &countryCode)
{
    return word(u'I', number, countryCode) + numberToEnd(number);
}
