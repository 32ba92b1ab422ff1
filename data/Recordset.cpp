#include "data/Recordset.h"

#include "data/Connection.h"
#include "data/Criteria.h"
#include "data/RowReader.h"
#include "platform/RuntimeFailure.h"

#include <QCoreApplication>

#include <map>

namespace {

[[noreturn]] void fail(const char *text)
{
    throw RuntimeFailure(QCoreApplication::translate("Recordset", text));
}

constexpr const char *kNoRow = QT_TRANSLATE_NOOP("Recordset", "Det er ingen gjeldende rad");
constexpr const char *kConflict =
    QT_TRANSLATE_NOOP("Recordset", "Raden er endret eller slettet av en annen siden den ble lest");

} // namespace

struct Recordset::Private {
    using Step = RowReader::Step;
    enum class Place { Before, OnRow, Removed, Behind };

    Private(std::shared_ptr<Connection> connection, Query query)
        : reader(std::move(connection), std::move(query))
    {
    }

    RowReader reader;
    /// Stands on the first row, which is read when somebody asks for anything.
    bool unread = true;
    Place place = Place::Behind;
    RecordsetRow current; ///< as read; of a removed row the bookmark alone counts
    bool adding = false;
    std::map<int, QVariant> changed; ///< by place of the column, not yet written

    void settle()
    {
        if (unread && !adding) {
            toFirst();
        }
    }

    void drop()
    {
        adding = false;
        changed.clear();
    }

    /// Stands on the row that the step finds, else at the given end.
    void goTo(const Step &step, Place otherwise) { stand(reader.step(step), otherwise); }

    void stand(std::optional<RecordsetRow> row, Place otherwise)
    {
        drop();
        unread = false;
        place = row ? Place::OnRow : otherwise;
        if (row) {
            current = std::move(*row);
        }
    }

    void reread()
    {
        drop();
        reader.refresh();
        unread = true;
    }

    void toFirst() { goTo({}, Place::Behind); }

    /// Begin of a step that goes on from here: the current row, a removed one, or an end.
    Step from(Step::Direction direction, bool includingThis) const
    {
        Step step{.direction = direction};
        if (place == Place::OnRow || place == Place::Removed) {
            step.start = current.bookmark;
            step.startIncluded = includingThis && place == Place::OnRow;
        }
        return step;
    }

    bool find(Step step, const QStringList &columns, const QVariantList &values)
    {
        QStringList criteria;
        for (const QString &column : columns) {
            criteria += equals(reader.query().columns[reader.columnIndex(column)]);
        }
        step.values = values;
        step.criterion = criteria.join(QStringLiteral(" AND "));
        goTo(step, Place::Behind);
        return place == Place::OnRow;
    }

    bool hasRow() const { return adding || place == Place::OnRow; }

    QVariant value(int column) const
    {
        if (!hasRow()) {
            fail(kNoRow);
        }
        if (const auto change = changed.find(column); change != changed.end()) {
            return change->second;
        }
        return adding ? QVariant() : current.values[column];
    }

    /// SQL and values that name the current row as it was read.
    QString unchanged(QVariantList &values) const
    {
        const Query &query = reader.query();
        QString sql = QStringLiteral(" WHERE %1 = ?").arg(sqlName(query.key));
        values += current.bookmark;
        for (qsizetype i = 0; i < query.columns.size(); ++i) {
            // Binary, since a column's own comparison passes over case and trailing blanks.
            sql += QStringLiteral(" AND %1 COLLATE BINARY IS ?").arg(sqlName(query.columns[i]));
            values += current.values[i];
        }
        return sql;
    }

    void insertRow()
    {
        QStringList columns;
        QStringList places;
        QVariantList values;
        for (const auto &[column, value] : changed) {
            columns += sqlName(reader.query().columns[column]);
            places += QStringLiteral("?");
            values += value;
        }
        const QString comma = QStringLiteral(", ");
        const QString sql = QStringLiteral("INSERT INTO ") + sqlName(reader.query().source);
        reader.connection().run(columns.isEmpty()
                                    ? sql + QStringLiteral(" DEFAULT VALUES")
                                    : sql + QStringLiteral(" (%1) VALUES (%2)")
                                                .arg(columns.join(comma), places.join(comma)),
                                values);
    }

    void changeRow()
    {
        QStringList assignments;
        QVariantList values;
        for (const auto &[column, value] : changed) {
            assignments += sqlName(reader.query().columns[column]) + QStringLiteral(" = ?");
            values += value;
        }
        const QString condition = unchanged(values);
        runOnRow(
            QStringLiteral("UPDATE %1 SET %2")
                    .arg(sqlName(reader.query().source), assignments.join(QStringLiteral(", "))) +
                condition,
            values);
    }

    void runOnRow(const QString &sql, const QVariantList &values)
    {
        reader.connection().run(sql, values);
        if (reader.connection().changes() != 1) {
            fail(kConflict);
        }
    }
};

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset &&) noexcept = default;
Recordset &Recordset::operator=(Recordset &&) noexcept = default;

void Recordset::open(std::shared_ptr<Connection> connection, Query query)
{
    // Each tick opens the same sets again, which need no new statements then.
    std::unique_ptr<Private> opening = std::move(d);
    if (opening && opening->reader.reads(connection.get(), query)) {
        opening->reread();
    } else {
        opening = std::make_unique<Private>(std::move(connection), std::move(query));
    }
    opening->settle();
    d = std::move(opening);
}

void Recordset::close()
{
    d.reset();
}

bool Recordset::isOpen() const
{
    return d != nullptr;
}

Recordset::Private &Recordset::opened() const
{
    if (!d) {
        fail(QT_TRANSLATE_NOOP("Recordset", "Tabellen er ikke åpnet"));
    }
    return *d;
}

Recordset::Private &Recordset::settled() const
{
    Private &set = opened();
    set.settle();
    return set;
}

/// To move on from: a new row that was begun in an unread set is given up.
Recordset::Private &Recordset::onItsPlace() const
{
    Private &set = opened();
    if (set.unread) {
        set.toFirst();
    }
    return set;
}

void Recordset::requery()
{
    opened().reread();
}

void Recordset::sort(const QString &column)
{
    opened().reader.sort(column);
    requery();
}

void Recordset::search(const QString &text)
{
    opened().reader.search(text);
    requery();
}

bool Recordset::bof() const
{
    const Private &set = settled();
    return !set.adding && (set.place == Private::Place::Before ||
                           (set.place == Private::Place::Behind && isEmpty()));
}

bool Recordset::eof() const
{
    const Private &set = settled();
    return !set.adding && (set.place == Private::Place::Behind ||
                           (set.place == Private::Place::Before && isEmpty()));
}

bool Recordset::isEmpty() const
{
    return !opened().reader.step({}).has_value();
}

int Recordset::recordCount() const
{
    return opened().reader.count();
}

int Recordset::position() const
{
    const qint64 current = bookmark();
    return current == 0 ? 0 : d->reader.position(current);
}

void Recordset::moveFirst()
{
    opened().toFirst();
}

void Recordset::moveLast()
{
    opened().goTo({.direction = Private::Step::Backward}, Private::Place::Behind);
}

void Recordset::moveNext()
{
    Private &set = onItsPlace();
    if (set.place == Private::Place::Behind) {
        fail(kNoRow);
    }
    set.goTo(set.from(Private::Step::Forward, false), Private::Place::Behind);
}

void Recordset::movePrevious()
{
    Private &set = onItsPlace();
    if (bof()) {
        fail(kNoRow);
    }
    set.goTo(set.from(Private::Step::Backward, false), Private::Place::Before);
}

bool Recordset::find(const QString &column, const QString &value)
{
    Private &set = onItsPlace();
    if (set.place == Private::Place::Behind) {
        criterionValue(value);
        set.drop();
        return false;
    }
    return set.find(set.from(Private::Step::Forward, true), {column}, {criterionValue(value)});
}

bool Recordset::findFirst(const QString &column, const QString &value)
{
    return opened().find({}, {column}, {criterionValue(value)});
}

bool Recordset::findFirst(const QString &column, const QString &value,
                          const std::vector<std::pair<QString, QString>> &compared)
{
    QStringList columns{column};
    QVariantList values{criterionValue(value)};
    for (const auto &[comparedColumn, comparedValue] : compared) {
        columns += comparedColumn;
        values += comparedValue;
    }
    return opened().find({}, columns, values);
}

QString Recordset::text(const QString &column) const
{
    return value(column).toString();
}

QVariant Recordset::value(const QString &column) const
{
    const Private &set = settled();
    return set.value(set.reader.columnIndex(column));
}

std::optional<RecordsetRow> Recordset::row() const
{
    const Private &set = settled();
    if (!set.hasRow()) {
        return std::nullopt;
    }
    RecordsetRow result{.bookmark = bookmark()};
    for (int i = 0; i < columns().size(); ++i) {
        result.values += set.value(i);
    }
    return result;
}

std::vector<RecordsetRow> Recordset::rows() const
{
    return opened().reader.rows();
}

std::vector<RecordsetRow> Recordset::rows(const std::vector<qint64> &bookmarks) const
{
    return opened().reader.rows(bookmarks);
}

std::shared_ptr<RowList> Recordset::list() const
{
    return opened().reader.list();
}

const Query &Recordset::query() const
{
    return opened().reader.query();
}

void Recordset::addNew()
{
    Private &set = opened(); // nothing is read for it: the file may be in other hands just now
    set.drop();
    set.adding = true;
}

void Recordset::setValue(const QString &column, const QVariant &value)
{
    Private &set = settled();
    const int index = set.reader.columnIndex(column);
    if (!set.hasRow()) {
        fail(kNoRow);
    }
    set.changed[index] = value;
}

void Recordset::update()
{
    Private &set = settled();
    if (!set.adding && set.changed.empty()) {
        return;
    }
    Connection &connection = set.reader.connection();
    std::optional<RecordsetRow> written;
    connection.transaction([&] {
        if (set.adding) {
            set.insertRow();
            set.reader.append(connection.lastInsertRowId());
        } else {
            set.changeRow();
        }
        written = set.reader.row(set.adding ? connection.lastInsertRowId() : set.current.bookmark);
    });
    set.stand(std::move(written), Private::Place::Behind);
}

void Recordset::cancelUpdate()
{
    settled().drop();
}

void Recordset::remove()
{
    Private &set = settled();
    if (set.adding || set.place != Private::Place::OnRow) {
        fail(kNoRow);
    }
    QVariantList values;
    const QString condition = set.unchanged(values);
    set.reader.connection().transaction([&] {
        set.runOnRow(QStringLiteral("DELETE FROM %1").arg(sqlName(set.reader.query().source)) +
                         condition,
                     values);
    });
    set.drop();
    set.place = Private::Place::Removed;
}

qint64 Recordset::bookmark() const
{
    const Private &set = settled();
    return !set.adding && set.place == Private::Place::OnRow ? set.current.bookmark : 0;
}

void Recordset::setBookmark(qint64 bookmark)
{
    Private &set = opened();
    set.stand(set.reader.row(bookmark), Private::Place::Behind);
}

void Recordset::standOn(const RecordsetRow &row)
{
    Private &set = opened(); // a set that is unread stands nowhere yet, and need not
    if (!set.unread && !set.adding && set.place == Private::Place::OnRow &&
        set.current.bookmark == row.bookmark) {
        return;
    }
    if (row.values.isEmpty()) {
        setBookmark(row.bookmark);
    } else {
        set.stand(row, Private::Place::Behind);
    }
}
