#include "data/CreateDatabase.h"

#include "data/Connection.h"
#include "data/DatabasePaths.h"
#include "data/LanguageRows.h"
#include "data/NewFile.h"
#include "data/Schema.h"
#include "platform/RuntimeFailure.h"
#include "platform/Text.h"

namespace {

void fill(Connection &connection, const FirstOperator &person)
{
    // The words of a modem that was released by a clean exit.
    connection.run(QStringLiteral("INSERT INTO Modem (IMEICODE, ModemManufacturer, ModemName,"
                                  " ModemOwner, ModemStatus) VALUES ('0', ' ', ' ', '?', 0)"));
    for (const LanguageRow &row : languageRows()) {
        connection.run(
            QStringLiteral("INSERT INTO TBLLanguage (Norsk, Dansk, Svensk) VALUES (?, ?, ?)"),
            {row.norsk, row.dansk, row.svensk});
    }
    connection.run(
        QStringLiteral("INSERT INTO Passwords (USER_ID, Password, SecurityLevel) VALUES (?, ?, ?)"),
        {toWindows1252(person.name), toWindows1252(person.password), person.level});
}

} // namespace

QString faultOf(const FirstOperator &person)
{
    if (person.name.trimmed().isEmpty()) {
        return QStringLiteral("The operator's name is empty.");
    }
    if (person.name.contains(u'\'')) {
        return QStringLiteral("The operator's name must not hold a single quote.");
    }
    if (person.level.size() != 1 || person.level < QStringLiteral("0") ||
        person.level > QStringLiteral("9")) {
        return QStringLiteral("The level must be one digit, 0 to 9.");
    }
    return {};
}

void createDatabase(const QString &path, const FirstOperator &person)
{
    if (const QString fault = faultOf(person); !fault.isEmpty()) {
        throw RuntimeFailure(fault);
    }
    NewFile file(path);
    // An empty file opens as a database without tables, and takes the password.
    const auto connection = Connection::open(connectionString(path));
    connection->transaction([&] {
        createSchema(*connection);
        fill(*connection, person);
    });
    file.keep();
}
