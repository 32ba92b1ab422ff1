#include "users/Balance.h"

#include "platform/Text.h"

namespace {

QString asText(double balance)
{
    return QString::number(balance, 'g', 15); // not as 1e+06
}

} // namespace

bool hasBalance(const QString &saldo)
{
    return toNumber(saldo) != 0;
}

bool showsBalance(const QString &saldo)
{
    return toNumber(saldo) > 0;
}

QString oneMore(const QString &saldo)
{
    return asText(toNumber(saldo) + 1);
}

QString oneLess(const QString &saldo)
{
    const double balance = toNumber(saldo);
    return balance > 0 ? asText(balance - 1) : saldo;
}
