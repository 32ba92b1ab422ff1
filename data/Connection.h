#pragma once

#include <QString>
#include <QVariant>

#include <chrono>
#include <functional>
#include <memory>

class FileKey;
class FileUse;

/// One open database file. The engine stands wholly behind this class: no other header of the
/// program names it.
///
/// Every page of the file is encrypted with the password of the connection string. Other programs
/// and PCs may hold the file at the same time; a transaction waits up to 5 s for them.
///
/// Values go in and come out as text, whole numbers, floating numbers, bytes or nothing (an
/// invalid QVariant). A truth value is stored as the tables hold flags: 0 false, -1 true.
class Connection {
public:
    static constexpr std::chrono::milliseconds kLongestWait{5000};

    /// Opens an existing file; it never creates one. The string has the form
    /// "PROVIDER=…;Data Source=<path>;JET OLEDB:Database Password=<password>".
    /// @throws RuntimeFailure when the file is missing, no database, locked, or the password is
    /// not its own.
    static std::shared_ptr<Connection> open(const QString &connectionString);
    /// The same for one who has said already how the file is used.
    static std::shared_ptr<Connection> open(const QString &connectionString,
                                            std::shared_ptr<FileUse> use);
    /// A further connection to the same file, with a share of its own in it. It costs little: the
    /// key is not derived again, unless another file has come into the place of this one. The
    /// patience counts from its opening on.
    /// @throws RuntimeFailure as open() does, and when this connection is closed.
    std::shared_ptr<Connection> another(std::chrono::milliseconds patience = kLongestWait) const;
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// How long a statement outside a transaction waits for others; kLongestWait at first.
    /// Behind that it fails with InOtherHands.
    void setPatience(std::chrono::milliseconds patience);

    /// Lets go of the file, whoever still holds this object; every later use fails.
    void close();

    /// Runs a statement; each row goes to the reader, if there is one. Values are bound.
    /// @throws RuntimeFailure with the engine's words.
    void run(const QString &sql, const QVariantList &values = {},
             const std::function<void(const QVariantList &)> &reader = {});
    /// Prepares a statement and keeps it for run(): fails as run() would on what it names.
    void prepare(const QString &sql);
    /// First column of the first row, or an invalid value.
    QVariant single(const QString &sql, const QVariantList &values = {});
    /// Rows changed by the last statement.
    int changes() const;
    qint64 lastInsertRowId() const;
    /// Runs the work in one transaction, rolled back when it throws. Inside another one it is a
    /// part of that. Where the engine gives it up by itself (a full disk, an unreadable one), every
    /// further statement of the work fails, and so does the whole, whatever the work has caught.
    /// The patience counts until it has begun, and for its end.
    void transaction(const std::function<void()> &work,
                     std::chrono::milliseconds patience = kLongestWait);
    /// Runs reads that see one state of the file, and take its lock once for all of them. The work
    /// must not wait for anything: others cannot write meanwhile.
    void readTogether(const std::function<void()> &work);

private:
    struct Private;
    static std::shared_ptr<Connection> open(const QString &path, FileKey key,
                                            std::shared_ptr<FileUse> use,
                                            std::chrono::milliseconds patience);
    explicit Connection(std::unique_ptr<Private> p);
    void between(const QString &begin, const std::function<void()> &work);
    std::unique_ptr<Private> d;
};
