#include "data/Connection.h"

#include "data/DatabasePaths.h"
#include "data/EngineFunctions.h"
#include "data/FileKey.h"
#include "data/FileUse.h"
#include "platform/Tries.h"

#include <QCache>
#include <QCoreApplication>
#include <QFileInfo>

#define SQLITE_HAS_CODEC
#include <sqlcipher/sqlite3.h>

#include <optional>

namespace {

constexpr int kPreparedStatements = 200;
constexpr int kSaltSize = 16; // bytes

QString translated(const char *text)
{
    return QCoreApplication::translate("Connection", text);
}

[[noreturn]] void fail(sqlite3 *database)
{
    switch (sqlite3_errcode(database)) {
    case SQLITE_BUSY:
        throw InOtherHands(translated("Databasen er låst av et annet program"));
    case SQLITE_FULL:
        throw RuntimeFailure(translated("Disken er full. Ingenting ble lagret."));
    case SQLITE_NOTADB:
        throw RuntimeFailure(
            translated("Filen er ikke en database, eller den har et annet passord"));
    case SQLITE_CONSTRAINT:
        if (sqlite3_extended_errcode(database) == SQLITE_CONSTRAINT_UNIQUE) {
            throw RuntimeFailure(translated("Det finnes allerede en rad med dette nummeret"));
        }
        [[fallthrough]];
    default:
        throw RuntimeFailure(QString::fromUtf8(sqlite3_errmsg(database)));
    }
}

/// Whether the machine failed, not the statement: then no other write of the same work may count. A
/// row that the file refuses is not meant, nor a statement that is none.
bool isOfMachine(sqlite3 *database)
{
    switch (sqlite3_errcode(database)) {
    case SQLITE_FULL:
    case SQLITE_IOERR:
    case SQLITE_NOMEM:
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return true;
    default:
        return false;
    }
}

void check(sqlite3 *database, int result)
{
    if (result != SQLITE_OK) {
        fail(database);
    }
}

/// Absolute, so that no name is special to the engine.
QString existingFile(const QString &path)
{
    const QFileInfo file(path);
    if (!file.isFile()) {
        throw RuntimeFailure(translated("Finner ikke databasefilen: %1").arg(path));
    }
    return file.absoluteFilePath();
}

/// The salt that the file begins with; nothing when it is too short to have one. It is read through
/// the engine: were the file opened and closed beside it, the system would take away all locks that
/// this program holds on it.
QByteArray saltOf(sqlite3 *database)
{
    sqlite3_file *file = nullptr;
    check(database, sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER,
                                         static_cast<void *>(&file)));
    QByteArray salt(kSaltSize, '\0');
    return file->pMethods->xRead(file, salt.data(), kSaltSize, 0) == SQLITE_OK ? salt
                                                                               : QByteArray();
}

/// A prepared statement.
class Statement {
public:
    Statement(sqlite3 *database, const QString &sql) : database_(database)
    {
        const QByteArray text = sql.toUtf8();
        check(database, sqlite3_prepare_v2(database, text.constData(),
                                           static_cast<int>(text.size()), &statement_, nullptr));
    }
    ~Statement() { sqlite3_finalize(statement_); }
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    void bind(const QVariantList &values)
    {
        if (sqlite3_bind_parameter_count(statement_) != values.size()) {
            throw RuntimeFailure(translated("Spørringen har et annet antall verdier"));
        }
        for (qsizetype i = 0; i < values.size(); ++i) {
            check(database_, bindOne(static_cast<int>(i) + 1, values[i]));
        }
    }

    /// False behind the last row.
    bool step()
    {
        const int result = sqlite3_step(statement_);
        if (result != SQLITE_ROW && result != SQLITE_DONE) {
            fail(database_);
        }
        return result == SQLITE_ROW;
    }

    /// Into a list that keeps its room from row to row.
    void readRow(QVariantList &values) const
    {
        values.clear();
        const int count = sqlite3_column_count(statement_);
        values.reserve(count);
        for (int i = 0; i < count; ++i) {
            values.append(column(i));
        }
    }

    void reset()
    {
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
    }

private:
    int bindOne(int place, const QVariant &value)
    {
        if (!value.isValid() || value.isNull()) {
            return sqlite3_bind_null(statement_, place);
        }
        switch (value.typeId()) {
        case QMetaType::Bool:
            return sqlite3_bind_int64(statement_, place, value.toBool() ? -1 : 0);
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::UChar:
            return sqlite3_bind_int64(statement_, place, value.toLongLong());
        case QMetaType::Double:
            return sqlite3_bind_double(statement_, place, value.toDouble());
        case QMetaType::QByteArray: {
            const QByteArray bytes = value.toByteArray();
            return sqlite3_bind_blob(statement_, place, bytes.constData(),
                                     static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
        }
        default: {
            const QByteArray text = value.toString().toUtf8();
            return sqlite3_bind_text(statement_, place, text.constData(),
                                     static_cast<int>(text.size()), SQLITE_TRANSIENT);
        }
        }
    }

    QVariant column(int place) const
    {
        switch (sqlite3_column_type(statement_, place)) {
        case SQLITE_INTEGER:
            return qlonglong{sqlite3_column_int64(statement_, place)};
        case SQLITE_FLOAT:
            return sqlite3_column_double(statement_, place);
        case SQLITE_TEXT: {
            const auto *const text =
                reinterpret_cast<const char *>(sqlite3_column_text(statement_, place));
            return QString::fromUtf8(text, sqlite3_column_bytes(statement_, place));
        }
        case SQLITE_BLOB: {
            const auto *const bytes =
                static_cast<const char *>(sqlite3_column_blob(statement_, place));
            return QByteArray(bytes, sqlite3_column_bytes(statement_, place));
        }
        default:
            return {};
        }
    }

    sqlite3 *database_;
    sqlite3_stmt *statement_ = nullptr;
};

} // namespace

struct Connection::Private {
    Private(QString file, FileKey fileKey, std::shared_ptr<FileUse> fileUse)
        : path(std::move(file)), key(std::move(fileKey)), use(std::move(fileUse))
    {
    }
    ~Private() { close(); }

    void close()
    {
        idle.clear();
        sqlite3_close_v2(database);
        database = nullptr;
        use.reset();
    }

    sqlite3 *opened() const
    {
        if (database == nullptr) {
            throw RuntimeFailure(translated("Forbindelsen til databasen er lukket"));
        }
        return database;
    }

    std::unique_ptr<Statement> take(const QString &sql)
    {
        opened();
        std::unique_ptr<Statement> statement(idle.take(sql));
        return statement ? std::move(statement) : std::make_unique<Statement>(database, sql);
    }

    void putBack(const QString &sql, std::unique_ptr<Statement> statement)
    {
        statement->reset();
        if (database != nullptr) {
            idle.insert(sql, statement.release());
        }
    }

    const QString path; ///< absolute
    FileKey key;
    std::shared_ptr<FileUse> use;
    void wait(std::chrono::milliseconds atMost) const
    {
        if (database != nullptr) {
            sqlite3_busy_timeout(database, static_cast<int>(atMost.count()));
        }
    }

    /// @throws RuntimeFailure when the engine has given the transaction up by itself, as on a full
    /// disk: whatever is still to follow must not be written piece by piece. A file that takes no
    /// write, or a folder that takes no journal, leaves the transaction standing: nothing of it
    /// would be written, and its end would succeed.
    void failIfGivenUp() const
    {
        if (inTransaction && (machineFailed || sqlite3_get_autocommit(opened()) != 0)) {
            throw RuntimeFailure(givenUpBecause);
        }
    }

    std::chrono::milliseconds patience = kLongestWait;
    sqlite3 *database = nullptr;
    bool inTransaction = false;
    bool machineFailed = false; ///< in a statement of the transaction
    QString givenUpBecause;     ///< in the engine's words
    /// Prepared statements by their text. One at work is not here, so that its reader may run the
    /// same text again.
    QCache<QString, Statement> idle{kPreparedStatements};
};

Connection::Connection(std::unique_ptr<Private> p) : d(std::move(p)) {}

Connection::~Connection() = default;

std::shared_ptr<Connection> Connection::open(const QString &connectionString)
{
    const QString path = existingFile(connectionParts(connectionString).path);
    return open(connectionString, FileUse::shared(path));
}

std::shared_ptr<Connection> Connection::open(const QString &connectionString,
                                             std::shared_ptr<FileUse> use)
{
    const auto [path, password] = connectionParts(connectionString);
    return open(existingFile(path), FileKey(password.toUtf8()), std::move(use), kLongestWait);
}

std::shared_ptr<Connection> Connection::another(std::chrono::milliseconds patience) const
{
    d->opened();
    const QString path = existingFile(d->path);
    return open(path, d->key, FileUse::shared(path), patience);
}

std::shared_ptr<Connection> Connection::open(const QString &path, FileKey key,
                                             std::shared_ptr<FileUse> use,
                                             std::chrono::milliseconds patience)
{
    auto state = std::make_unique<Private>(path, std::move(key), std::move(use));
    const int opened = sqlite3_open_v2(path.toUtf8().constData(), &state->database,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    check(state->database, opened);
    const QByteArray engineKey = state->key.forSalt(saltOf(state->database));
    if (!engineKey.isEmpty()) {
        check(state->database, sqlite3_key(state->database, engineKey.constData(),
                                           static_cast<int>(engineKey.size())));
    }
    state->patience = patience;
    state->wait(patience);
    addEngineFunctions(state->database);
    std::shared_ptr<Connection> connection(new Connection(std::move(state)));
    // Newer engines write another format by default, which older ones cannot read; those don't
    // know the two settings and pass over them.
    connection->run(QStringLiteral("PRAGMA cipher_compatibility = 3"));
    connection->run(QStringLiteral("PRAGMA cipher_default_compatibility = 3"));
    connection->single(QStringLiteral("SELECT count(*) FROM sqlite_master")); // the password's test
    connection->run(QStringLiteral("PRAGMA journal_mode = DELETE"));
    connection->run(QStringLiteral("PRAGMA synchronous = FULL"));
    return connection;
}

void Connection::setPatience(std::chrono::milliseconds patience)
{
    d->patience = patience;
    d->wait(d->patience);
}

void Connection::close()
{
    d->close();
}

void Connection::run(const QString &sql, const QVariantList &values,
                     const std::function<void(const QVariantList &)> &reader)
{
    struct Loan {
        Private &owner;
        const QString &sql;
        std::unique_ptr<Statement> statement;
        ~Loan() { owner.putBack(sql, std::move(statement)); }
    };
    d->failIfGivenUp();
    const auto noted = [&](const auto &act) {
        try {
            return act();
        } catch (const RuntimeFailure &failure) {
            d->givenUpBecause = failure.description();
            d->machineFailed = d->database != nullptr && isOfMachine(d->database);
            throw;
        }
    };
    const Loan loan{*d, sql, noted([&] { return d->take(sql); })};
    noted([&] { loan.statement->bind(values); });
    QVariantList row;
    while (noted([&] { return loan.statement->step(); })) {
        if (reader) {
            loan.statement->readRow(row);
            reader(row);
        }
    }
}

void Connection::prepare(const QString &sql)
{
    d->putBack(sql, d->take(sql));
}

QVariant Connection::single(const QString &sql, const QVariantList &values)
{
    std::optional<QVariant> result;
    run(sql, values, [&](const QVariantList &row) {
        if (!result) {
            result = row.value(0);
        }
    });
    return result.value_or(QVariant());
}

int Connection::changes() const
{
    return sqlite3_changes(d->opened());
}

qint64 Connection::lastInsertRowId() const
{
    return sqlite3_last_insert_rowid(d->opened());
}

void Connection::transaction(const std::function<void()> &work, std::chrono::milliseconds patience)
{
    struct Waits {
        Private &owner;
        Waits(Private &p, std::chrono::milliseconds atMost) : owner(p) { owner.wait(atMost); }
        ~Waits() { owner.wait(owner.patience); }
    };
    const Waits waits(*d, patience);
    // Immediate: to read first and ask for the write lock later may fail without a wait.
    between(QStringLiteral("BEGIN IMMEDIATE"), work);
}

void Connection::readTogether(const std::function<void()> &work)
{
    between(QStringLiteral("BEGIN"), work);
}

void Connection::between(const QString &begin, const std::function<void()> &work)
{
    if (d->inTransaction || sqlite3_get_autocommit(d->opened()) == 0) {
        work();
        return;
    }
    struct Rollback {
        Private &owner;
        ~Rollback()
        {
            owner.inTransaction = false;
            if (owner.database != nullptr && sqlite3_get_autocommit(owner.database) == 0) {
                sqlite3_exec(owner.database, "ROLLBACK", nullptr, nullptr, nullptr);
            }
        }
    };
    run(begin);
    const Rollback unlessCommitted{*d};
    d->inTransaction = true;
    d->machineFailed = false;
    work();
    run(QStringLiteral("COMMIT"));
}
