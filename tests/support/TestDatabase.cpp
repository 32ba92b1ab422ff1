#include "support/TestDatabase.h"

#include "data/Connection.h"
#include "data/CreateDatabase.h"
#include "data/DatabasePaths.h"
#include "data/Module1.h"

#include <QFile>

namespace {

/// Made once for each test program and copied: most of the making is deriving the key.
const QByteArray &delivered()
{
    static const QByteArray bytes = [] {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("levert.mdb"));
        createDatabase(path, {.name = QStringLiteral("Hovedoperatør"),
                              .password = QStringLiteral("hemmelig"),
                              .level = QStringLiteral("6")});
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }();
    return bytes;
}

} // namespace

TestDatabase::TestDatabase()
{
    QFile file(path());
    if (!file.open(QIODevice::WriteOnly) || file.write(delivered()) != delivered().size()) {
        qFatal("cannot write the test database");
    }
}

QString TestDatabase::path() const
{
    return filePath(QStringLiteral("Dorvik02.mdb"));
}

std::shared_ptr<Connection> TestDatabase::open() const
{
    return look_ ? look_->another() : Connection::open(connectionString(path()));
}

const std::shared_ptr<Connection> &TestDatabase::own()
{
    if (!look_) {
        look_ = open();
    }
    return look_;
}

void TestDatabase::letGo()
{
    if (look_) {
        look_->close();
        look_.reset();
    }
}

void TestDatabase::add(const QString &table, const QString &columns, const QVariantList &values)
{
    const QString names = QStringList(columns.split(u',')).join(QStringLiteral("], ["));
    const QString places = QStringList(values.size(), QStringLiteral("?")).join(u',');
    look().run(QStringLiteral("INSERT INTO [%1] ([%2]) VALUES (%3)").arg(table, names, places),
               values);
}

QString TestDatabase::single(const QString &sql, const QVariantList &values)
{
    return look().single(sql, values).toString();
}

QStringList TestDatabase::rows(const QString &sql)
{
    QStringList result;
    look().run(sql, {},
               [&](const QVariantList &row) { result += QVariant(row).toStringList().join(u'|'); });
    return result;
}

void TestDatabase::use(Module1 &module)
{
    module.DatabasePath = path();
    module.TempDatabasePath = tempDatabasePath(path());
    module.BackupDatabasePath = backupDatabasePath(path());
    module.ConnectionString = connectionString(path());
    module.SecurityLevel = QStringLiteral("6");
    module.DatabaseConnection = open();
}
