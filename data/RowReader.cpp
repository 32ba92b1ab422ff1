#include "data/RowReader.h"

#include "data/Connection.h"
#include "data/Criteria.h"
#include "platform/RuntimeFailure.h"
#include "platform/Text.h"

#include <QCoreApplication>
#include <QSet>

namespace {

bool isDate(const QString &column)
{
    const QString name = sqlName(column);
    return same(name, QStringLiteral("[Gyldig fra]")) || same(name, QStringLiteral("[Gyldig til]"));
}

RecordsetRow toRow(const QVariantList &values)
{
    return {values.first().toLongLong(), values.mid(1)};
}

} // namespace

RowReader::RowReader(std::shared_ptr<Connection> connection, Query query)
    : connection_(std::move(connection)), query_(std::move(query)), columns_(sqlName(query_.key))
{
    if (!connection_) {
        throw RuntimeFailure(QCoreApplication::translate("Recordset", "Ingen database er åpen"));
    }
    for (const QString &column : query_.columns) {
        columns_ += QStringLiteral(", ") + sqlName(column);
    }
    connection_->prepare(select(columns_, {}));
    if (!query_.sort.isEmpty()) {
        sort(query_.sort);
    }
}

void RowReader::sort(const QString &column)
{
    query_.sort = query_.columns[columnIndex(column)];
    sorted_ = !isRowNumber(query_.sort);
    refresh();
}

int RowReader::columnIndex(const QString &column) const
{
    const QString name = sqlName(column);
    for (qsizetype i = 0; i < query_.columns.size(); ++i) {
        if (same(sqlName(query_.columns[i]), name)) {
            return static_cast<int>(i);
        }
    }
    throw RuntimeFailure(
        QCoreApplication::translate("Recordset", "Kolonnen «%1» finnes ikke").arg(column));
}

/// The column that numbers the rows gives the table's own order, however many rows there are.
bool RowReader::isRowNumber(const QString &column)
{
    bool found = same(sqlName(column), sqlName(query_.key));
    if (!query_.source.startsWith(u'(')) {
        connection_->run(QStringLiteral("PRAGMA table_info(%1)").arg(sqlName(query_.source)), {},
                         [&](const QVariantList &info) {
                             found |= same(sqlName(info[1].toString()), sqlName(column)) &&
                                      same(info[2].toString(), QStringLiteral("INTEGER")) &&
                                      info[5].toInt() == 1;
                         });
    }
    return found;
}

QString RowReader::source() const
{
    return query_.source.startsWith(u'(') ? query_.source : sqlName(query_.source);
}

QString RowReader::select(const QString &what, const QString &condition) const
{
    QString sql = QStringLiteral("SELECT ") + what + QStringLiteral(" FROM ") + source();
    const QString where = QStringLiteral(" WHERE ");
    if (!query_.filter.isEmpty()) {
        sql += where + u'(' + query_.filter + u')';
    }
    if (!condition.isEmpty()) {
        sql += (query_.filter.isEmpty() ? where : QStringLiteral(" AND ")) + condition;
    }
    return sql;
}

QString RowReader::order() const
{
    const QString key = sqlName(query_.key);
    if (!sorted_) {
        return QStringLiteral(" ORDER BY ") + key;
    }
    const QString column = sqlName(query_.sort);
    const QString sorted =
        isDate(query_.sort) ? QStringLiteral("dato(%1) COLLATE NOCASE").arg(column) : column;
    return QStringLiteral(" ORDER BY ") + sorted + QStringLiteral(", ") + key;
}

std::optional<RecordsetRow> RowReader::step(const Step &step)
{
    return sorted_ ? stepInList(step) : stepByKey(step);
}

std::optional<RecordsetRow> RowReader::stepByKey(const Step &step)
{
    const bool forward = step.direction == Step::Forward;
    const QString key = sqlName(query_.key);
    QStringList conditions;
    QVariantList values = query_.values;
    if (step.start) {
        conditions += key + (forward ? u'>' : u'<') +
                      (step.startIncluded ? QStringLiteral("= ?") : QStringLiteral(" ?"));
        values += *step.start;
    }
    if (!step.criterion.isEmpty()) {
        conditions += step.criterion;
        values += step.values;
    }
    std::optional<RecordsetRow> found;
    connection_->run(
        select(columns_, conditions.join(QStringLiteral(" AND "))) + QStringLiteral(" ORDER BY ") +
            key + (forward ? QString() : QStringLiteral(" DESC")) + QStringLiteral(" LIMIT 1"),
        values, [&](const QVariantList &row) { found = toRow(row); });
    return found;
}

std::optional<RecordsetRow> RowReader::stepInList(const Step &step)
{
    const List &keys = list();
    QSet<qint64> matching;
    if (!step.criterion.isEmpty()) {
        connection_->run(select(sqlName(query_.key), step.criterion), query_.values + step.values,
                         [&](const QVariantList &row) { matching += row[0].toLongLong(); });
    }
    const auto size = static_cast<qint64>(keys.keys.size());
    const qint64 stride = step.direction == Step::Forward ? 1 : -1;
    qint64 place = stride > 0 ? 0 : size - 1;
    if (step.start) {
        place = static_cast<qint64>(keys.places.value(*step.start, keys.keys.size())) +
                (step.startIncluded ? 0 : stride);
    }
    for (; place >= 0 && place < size; place += stride) {
        const qint64 key = keys.keys[static_cast<std::size_t>(place)];
        if (step.criterion.isEmpty() || matching.contains(key)) {
            // A row that somebody deleted meanwhile is passed over.
            if (auto found = row(key)) {
                return found;
            }
        }
    }
    return std::nullopt;
}

std::optional<RecordsetRow> RowReader::row(qint64 key)
{
    if (sorted_ && !list().places.contains(key)) {
        return std::nullopt;
    }
    std::optional<RecordsetRow> found;
    connection_->run(QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?")
                         .arg(columns_, source(), sqlName(query_.key)),
                     {key}, [&](const QVariantList &row) { found = toRow(row); });
    return found;
}

std::vector<RecordsetRow> RowReader::rows()
{
    std::vector<RecordsetRow> all;
    connection_->run(select(columns_, {}) + order(), query_.values,
                     [&](const QVariantList &row) { all.push_back(toRow(row)); });
    return all;
}

int RowReader::count()
{
    return connection_->single(select(QStringLiteral("count(*)"), {}), query_.values).toInt();
}

int RowReader::position(qint64 key)
{
    if (sorted_) {
        return static_cast<int>(list().places.value(key)) + 1;
    }
    const QString upToKey = sqlName(query_.key) + QStringLiteral(" <= ?");
    return connection_
        ->single(select(QStringLiteral("count(*)"), upToKey), query_.values + QVariantList{key})
        .toInt();
}

const RowReader::List &RowReader::list()
{
    if (!list_) {
        List fresh;
        connection_->run(select(sqlName(query_.key), {}) + order(), query_.values,
                         [&](const QVariantList &row) { fresh.append(row[0].toLongLong()); });
        list_ = std::move(fresh);
    }
    return *list_;
}

void RowReader::append(qint64 key)
{
    if (sorted_ && !list().places.contains(key)) {
        list_->append(key);
    }
}

void RowReader::List::append(qint64 key)
{
    places.insert(key, keys.size());
    keys.push_back(key);
}
