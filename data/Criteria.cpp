#include "data/Criteria.h"

#include "platform/RuntimeFailure.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

bool isNumberLike(const QString &name)
{
    static const QStringList kNames = {
        QStringLiteral("Bruker"),        QStringLiteral("BrukerKort"),
        QStringLiteral("CMGS"),          QStringLiteral("Dato"),
        QStringLiteral("FraNummer"),     QStringLiteral("FraNummerKort"),
        QStringLiteral("KeyBruker"),     QStringLiteral("KeyNummer"),
        QStringLiteral("KeyUser"),       QStringLiteral("TilNummer"),
        QStringLiteral("TilNummerKort"),
    };
    return kNames.contains(name, Qt::CaseInsensitive);
}

QString bareName(const QString &name)
{
    const bool bracketed = name.startsWith(u'[') && name.endsWith(u']');
    return bracketed ? name.mid(1, name.size() - 2) : name;
}

QString comparison(const QString &column, const QString &sign)
{
    return isNumberLike(bareName(column))
               ? comparedForm(column) + sign + QStringLiteral("upper(rtrim(?))")
               : sqlName(column) + sign + QStringLiteral("? COLLATE NOCASE");
}

} // namespace

QString sqlName(const QString &name)
{
    // Brackets, since a name in double quotes that nobody knows would pass as a text.
    return u'[' + bareName(name) + u']';
}

QString equals(const QString &column)
{
    return comparison(column, QStringLiteral(" = "));
}

QString differs(const QString &column)
{
    return comparison(column, QStringLiteral(" <> "));
}

QString comparedForm(const QString &column)
{
    return QStringLiteral("upper(rtrim(%1))").arg(sqlName(column));
}

QString sortedForm(const QString &column)
{
    return isNumberLike(bareName(column)) ? comparedForm(column) : sqlName(column);
}

QString filterValue(const QString &value)
{
    if (value.contains(u'\'')) {
        throw RuntimeFailure(
            QCoreApplication::translate("Criteria", "Søkeverdien kan ikke ha apostrof: %1")
                .arg(value));
    }
    return value;
}

QString criterionValue(const QString &value)
{
    const auto isNoBlank = [](QChar each) { return each != u' '; }; // as the engine trims
    const auto first = std::find_if(value.begin(), value.end(), isNoBlank);
    const auto last = std::find_if(value.rbegin(), value.rend(), isNoBlank).base();
    return first < last ? filterValue(value).mid(first - value.begin(), last - first) : QString();
}
