#include "data/UserSearch.h"

#include "data/Connection.h"
#include "data/Criteria.h"
#include "data/Module1.h"
#include "data/Recordsets.h"
#include "platform/RuntimeFailure.h"

#include <QCoreApplication>
#include <QScopeGuard>

#include <algorithm>

namespace {

constexpr std::chrono::milliseconds kPatience{50};

bool isDigits(const QString &word)
{
    return !word.isEmpty() &&
           std::ranges::all_of(word, [](QChar each) { return each >= u'0' && each <= u'9'; });
}

/// Without what stands before the country code, which the tables hold in either form.
QString bareNumber(const QString &number)
{
    for (const QString &prefix : {QStringLiteral("+"), QStringLiteral("00")}) {
        if (number.startsWith(prefix) && isDigits(number.mid(prefix.size()))) {
            return number.mid(prefix.size());
        }
    }
    return number;
}

/// The words of a text; digits that stand beside each other are one number.
QStringList wordsOf(const QString &text)
{
    QStringList words;
    const QStringList parts =
        text.normalized(QString::NormalizationForm_C).simplified().split(u' ', Qt::SkipEmptyParts);
    bool behindNumber = false;
    for (const QString &part : parts) {
        if (behindNumber && isDigits(part)) {
            words.last() += part;
        } else {
            words += part;
        }
        behindNumber = isDigits(bareNumber(words.last()));
    }
    std::ranges::transform(words, words.begin(), bareNumber);
    return words;
}

/// The table that has number and names.
QString namesOf(bool waiting)
{
    return waiting ? QStringLiteral("r") : QStringLiteral("k");
}

} // namespace

UserSearch::UserSearch(const Module1 &module, const QString &text)
    : connection_(module.DatabaseConnection),
      level_(module.SecurityLevel),
      dialPrefix_(module.dialPrefix()),
      words_(wordsOf(text))
{
}

void UserSearch::readSlice(const std::function<void(const UserHit &)> &use)
{
    if (!connection_) {
        throw RuntimeFailure(QCoreApplication::translate("Recordset", "Ingen database er åpen"));
    }
    // Somebody is typing: nobody else is waited for.
    connection_->setPatience(kPatience);
    const auto back = qScopeGuard([this] { connection_->setPatience(Connection::kLongestWait); });
    std::vector<UserHit> hits;
    switch (stage_) {
    case Stage::Numbers:
        hits = numbers();
        break;
    case Stage::Waiting:
    case Stage::Users:
        hits = slice(stage_ == Stage::Waiting);
        break;
    case Stage::Complete:
        break;
    }
    std::ranges::for_each(hits, use);
}

bool UserSearch::isNumber() const
{
    return words_.size() == 1 && isDigits(words_.first());
}

std::vector<UserHit> UserSearch::numbers()
{
    std::vector<UserHit> hits;
    if (isNumber()) {
        const QString number = QStringLiteral("upper(rtrim(k.[Bruker]))");
        for (const QString &before :
             {dialPrefix_, QStringLiteral("+"), QStringLiteral("00"), QString()}) {
            const QString begin = before + words_.first();
            read(false,
                 number + QStringLiteral(" >= ? AND ") + number +
                     QStringLiteral(" < ? ORDER BY %1 LIMIT %2").arg(number).arg(kEnough),
                 {begin, begin + QChar(0xFFFD)}, hits);
        }
    }
    // A short one may begin in two of these ways.
    std::ranges::stable_sort(hits, {}, &UserHit::key);
    const auto isSame = [](const UserHit &one, const UserHit &other) {
        return one.key == other.key;
    };
    hits.erase(std::unique(hits.begin(), hits.end(), isSame), hits.end());
    stage_ = Stage::Waiting;
    return hits;
}

std::vector<UserHit> UserSearch::slice(bool waiting)
{
    const QString table = waiting ? QStringLiteral("NYEbrukere") : QStringLiteral("Katalog");
    // Keys may lie far apart.
    const QVariant first = connection_->single(
        QStringLiteral("SELECT min(rowid) FROM %1 WHERE rowid >= ?").arg(table), {nextRow_});
    std::vector<UserHit> hits;
    if (!first.isValid()) {
        stage_ = waiting ? Stage::Users : Stage::Complete;
        nextRow_ = 0;
        return hits;
    }
    const QString row = namesOf(waiting) + QStringLiteral(".rowid");
    const qint64 end = first.toLongLong() + kSlice;
    QString condition = row + QStringLiteral(" >= ? AND ") + row + QStringLiteral(" < ?");
    QVariantList values{first, end};
    for (const QString &word : words_) {
        condition += QStringLiteral(" AND contains_text(?, %1.Bruker, %1.Etternavn, %1.Fornavn)")
                         .arg(namesOf(waiting));
        values += word;
    }
    read(waiting, condition, values, hits);
    if (!waiting && isNumber()) {
        std::erase_if(hits, [this](const UserHit &hit) { // they have come already
            return numberBeginsSo(hit.number, words_.first());
        });
    }
    nextRow_ = end;
    return hits;
}

void UserSearch::read(bool waiting, const QString &condition, const QVariantList &values,
                      std::vector<UserHit> &hits)
{
    // CROSS JOIN is read in the order in which it is written: what was looked for comes first.
    const QString rows =
        waiting ? QStringLiteral("NYEbrukere AS r")
                : QStringLiteral("Katalog AS k CROSS JOIN TBLbrukere AS r"
                                 " ON upper(rtrim(r.[KeyBruker])) = upper(rtrim(k.[Bruker]))");
    const Query doors = allowedDoors(level_, {});
    connection_->run(
        QStringLiteral("SELECT r.rowid, d.KeyNummer, d.KeyNavn, %1.Bruker, %1.Etternavn, "
                       "%1.Fornavn, r.Status, r.[Gyldig fra] FROM %2 CROSS JOIN KEYTable AS d"
                       " ON upper(rtrim(d.[KeyNummer])) = upper(rtrim(r.[KeyNummer]))"
                       " WHERE %3 AND %4")
            .arg(namesOf(waiting))
            .arg(rows, doors.filter, condition),
        doors.values + values, [&](const QVariantList &row) {
            UserHit hit{.key = row[0].toLongLong(),
                        .isWaiting = waiting,
                        .door = row[1].toString(),
                        .doorName = row[2].toString(),
                        .number = row[3].toString(),
                        .Etternavn = row[4].toString(),
                        .Fornavn = row[5].toString(),
                        .Status = row[6].toString(),
                        .from = row[7].toString()};
            hit.beginsSo = beginsSo(hit);
            hits.push_back(std::move(hit));
        });
}

bool UserSearch::numberBeginsSo(const QString &number, const QString &word) const
{
    return number.startsWith(word) || bareNumber(number).startsWith(word) ||
           number.startsWith(dialPrefix_ + word);
}

bool UserSearch::beginsSo(const UserHit &hit) const
{
    return std::ranges::all_of(words_, [&](const QString &word) {
        return numberBeginsSo(hit.number, word) ||
               hit.Etternavn.startsWith(word, Qt::CaseInsensitive) ||
               hit.Fornavn.startsWith(word, Qt::CaseInsensitive);
    });
}
