#include "data/RowSelect.h"

#include "data/Criteria.h"
#include "platform/Text.h"

namespace {

bool isDate(const QString &column)
{
    const QString name = sqlName(column);
    return same(name, QStringLiteral("[Gyldig fra]")) || same(name, QStringLiteral("[Gyldig til]"));
}

} // namespace

RowSelect::RowSelect(Query query) : query_(std::move(query)) {}

QString RowSelect::source() const
{
    return query_.source.startsWith(u'(') ? query_.source : sqlName(query_.source);
}

QString RowSelect::key() const
{
    return sqlName(query_.key);
}

QString RowSelect::columns() const
{
    QString columns = key();
    for (const QString &column : query_.columns) {
        columns += QStringLiteral(", ") + sqlName(column);
    }
    return columns;
}

QString RowSelect::order() const
{
    if (query_.sort.isEmpty() || inKeyOrder_) {
        return {};
    }
    return isDate(query_.sort) ? QStringLiteral("dato(%1) COLLATE NOCASE").arg(sqlName(query_.sort))
                               : sortedForm(query_.sort);
}

QString RowSelect::searchTest() const
{
    QString test = QStringLiteral("contains_text(?");
    for (const QString &column : query_.searched.isEmpty() ? query_.columns : query_.searched) {
        test += QStringLiteral(", ") + sqlName(column);
    }
    return test + u')';
}

QString RowSelect::sql(const QString &what, const QString &condition, Search search) const
{
    QStringList conditions;
    if (!query_.filter.isEmpty()) {
        conditions += u'(' + query_.filter + u')';
    }
    if (search == Search::Applied && !query_.search.isEmpty()) {
        conditions += searchTest();
    }
    if (!condition.isEmpty()) {
        conditions += condition;
    }
    const QString sql = QStringLiteral("SELECT %1 FROM %2").arg(what, source());
    return conditions.isEmpty()
               ? sql
               : sql + QStringLiteral(" WHERE ") + conditions.join(QStringLiteral(" AND "));
}

QVariantList RowSelect::values(Search search) const
{
    const bool applied = search == Search::Applied && !query_.search.isEmpty();
    return applied ? query_.values + QVariantList{query_.search} : query_.values;
}
