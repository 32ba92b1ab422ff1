#pragma once

#include <QString>

// The balance is a text that is read as a number wherever something depends on it. All of these
// throw a RuntimeFailure when it is none.

/// Whether a user is stored and sent as one with a balance: anything but 0.
bool hasBalance(const QString &saldo);
/// Whether the form is that of a user with a balance: above 0. The two tests differ on purpose: a
/// negative balance looks like a period and is sent as a balance.
bool showsBalance(const QString &saldo);
/// One more, without a limit.
QString oneMore(const QString &saldo);
/// One less, but only from above 0.
QString oneLess(const QString &saldo);
