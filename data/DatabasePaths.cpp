#include "data/DatabasePaths.h"

namespace {

const QString kSource = QStringLiteral("Data Source=");
const QString kPassword = QStringLiteral(";Jet OLEDB:Database Password=");

} // namespace

QString databasePassword()
{
    return QStringLiteral("kaLmir");
}

QString connectionString(const QString &path)
{
    return QStringLiteral("PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=") + path +
           QStringLiteral(";JET OLEDB:Database Password=") + databasePassword();
}

QString compactionString(const QString &path)
{
    return QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=") + path + kPassword +
           databasePassword();
}

QString chosenString(const QString &path)
{
    return QStringLiteral("PROVIDER=Microsoft.Jet.OLEDB.3.51;Data Source=") + path + u';';
}

QString tempDatabasePath(const QString &path)
{
    return path.chopped(qMin<qsizetype>(4, path.size())) + QStringLiteral("TMP.mdb");
}

QString backupDatabasePath(const QString &path)
{
    return path.chopped(qMin<qsizetype>(4, path.size())) + QStringLiteral("BAK.mdb");
}

ConnectionParts connectionParts(const QString &connectionString)
{
    ConnectionParts parts;
    QString rest = connectionString;
    // From behind: a semicolon may stand in the path.
    const qsizetype password = rest.lastIndexOf(kPassword, -1, Qt::CaseInsensitive);
    if (password >= 0) {
        parts.password = rest.mid(password + kPassword.size());
        rest.truncate(password);
    } else if (rest.endsWith(u';')) {
        rest.chop(1);
    }
    const qsizetype source = rest.indexOf(kSource, 0, Qt::CaseInsensitive);
    if (source >= 0) {
        parts.path = rest.mid(source + kSource.size());
    }
    return parts;
}
