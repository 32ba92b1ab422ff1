#pragma once

#include <QString>

/// The first login of a new database.
struct FirstOperator {
    QString name; ///< not empty, without single quotes: the login looks it up by a criterion
    QString password;
    QString level; ///< one digit
};

/// What is wrong with a first login, in English, or nothing.
QString faultOf(const FirstOperator &person);

/// Makes a database as it is delivered: all tables and saved queries, the released modem, the
/// rows of TBLLanguage and one login.
/// @throws RuntimeFailure when the file exists already, cannot be made, or the login is faulty;
/// there is no file of this name then but the one that was there before.
void createDatabase(const QString &path, const FirstOperator &person);
