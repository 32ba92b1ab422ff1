#pragma once

#include <QString>
#include <QTemporaryDir>
#include <QVariant>

#include <memory>

class Connection;
struct Module1;

/// A fresh database as delivered, in a folder of its own that goes with the object: all tables,
/// the released modem, the rows of TBLLanguage, and one login "Hovedoperatør" with password
/// "hemmelig" and level "6".
class TestDatabase {
public:
    TestDatabase();

    QString path() const;
    QString filePath(const QString &name) const { return folder_.filePath(name); }
    /// A new connection, as another PC would make one.
    std::shared_ptr<Connection> open() const;
    /// The connection of this object, for looking at the file and for filling it.
    const std::shared_ptr<Connection> &own();
    Connection &look() { return *own(); }
    /// Closes it, so that others can have the file alone; the next use opens it again.
    void letGo();
    /// Writes a row: the table, its columns joined by ",", and their values.
    void add(const QString &table, const QString &columns, const QVariantList &values);
    /// First column of the first row, as text.
    QString single(const QString &sql, const QVariantList &values = {});
    /// All rows, their columns joined by "|".
    QStringList rows(const QString &sql);

    /// Sets the paths of the module, opens its connection and gives it level "6".
    void use(Module1 &module);

private:
    QTemporaryDir folder_;
    std::shared_ptr<Connection> look_;
};
