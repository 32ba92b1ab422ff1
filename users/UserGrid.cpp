#include "users/UserGrid.h"

#include "data/Criteria.h"
#include "data/Module1.h"
#include "data/Recordsets.h"
#include "platform/Text.h"

namespace {

/// The account of balance users; the word is the same in all languages.
const QString kBalanceWord = QStringLiteral("Saldo");

const QStringList kUserColumns = {QStringLiteral("Bruker"),  QStringLiteral("Etternavn"),
                                  QStringLiteral("Fornavn"), QStringLiteral("Gyldig fra"),
                                  QStringLiteral("FraTid"),  QStringLiteral("Gyldig til"),
                                  QStringLiteral("TilTid"),  QStringLiteral("Konto"),
                                  QStringLiteral("Status"),  QStringLiteral("Saldo")};

/// Number of the TBLbrukere row behind a row of the saved query Brukere.
const QString kUserKey = QStringLiteral("Rad");

/// What a click on a heading sorts by, from the left.
const QStringList kSortByColumn = {
    QStringLiteral("BRUKER"),       QStringLiteral("Etternavn"),    QStringLiteral("Fornavn"),
    QStringLiteral("[Gyldig fra]"), QStringLiteral("[Gyldig fra]"), QStringLiteral("[Gyldig til]"),
    QStringLiteral("[Gyldig til]"), QStringLiteral("Konto"),        QStringLiteral("Status")};

} // namespace

UserGrid::UserGrid(Module1 &module, Recordsets &recordsets)
    : module_(module), recordsets_(recordsets)
{
}

void UserGrid::VisBrukerTabell()
{
    tabs_ = {module_.texts.nye};
    findTabs();
    tabs_.append(module_.texts.alle);
    mode_ = modeOfFilter();
    openRows();
    sort();
}

/// A tab for each account word of the door's users, in the form that sorts first.
void UserGrid::findTabs()
{
    Recordset &users = recordsets_.rsListBrukere;
    users.open(module_.DatabaseConnection,
               Query{.source = QStringLiteral("Brukere"),
                     .columns = {QStringLiteral("Bruker"), QStringLiteral("Etternavn"),
                                 QStringLiteral("Fornavn"), QStringLiteral("Konto")},
                     .filter = equals(QStringLiteral("KeyNummer")),
                     .values = {filterValue(recordsets_.doorNumber())},
                     .sort = QStringLiteral("Konto"),
                     .key = kUserKey});
    QString remembered;
    const std::vector<RecordsetRow> rows = users.rows();
    for (const RecordsetRow &row : rows) {
        const QString konto = row.values.last().toString();
        if (!same(konto, remembered)) {
            tabs_.append(konto);
            remembered = konto;
        }
    }
    users.close();
}

UserGrid::Mode UserGrid::modeOfFilter() const
{
    const QString &filter = module_.GridFilter;
    if (same(filter, module_.texts.nye)) {
        return Mode::Waiting;
    }
    if (same(filter, module_.texts.alle)) {
        return Mode::All;
    }
    return same(filter, kBalanceWord) ? Mode::Balance : Mode::Account;
}

void UserGrid::openRows()
{
    Query waiting{.source = QStringLiteral("NYEbrukere"),
                  .columns =
                      kUserColumns + QStringList{QStringLiteral("KeyNummer"), QStringLiteral("ID")},
                  .filter = equals(QStringLiteral("KeyNummer")),
                  .values = {filterValue(recordsets_.doorNumber())}};
    Query users = waiting;
    // The waiting periods follow the door under every tab: saving and the number check look there.
    recordsets_.rsVisNyeBrukere.open(module_.DatabaseConnection, std::move(waiting));
    if (mode_ == Mode::Waiting) {
        return;
    }
    users.source = QStringLiteral("Brukere");
    users.columns = kUserColumns;
    users.key = kUserKey;
    if (mode_ != Mode::All) {
        users.filter += QStringLiteral(" AND ") + differs(QStringLiteral("Status")) +
                        QStringLiteral(" AND ") + equals(QStringLiteral("Konto"));
        users.values += {QStringLiteral("NY"), filterValue(module_.GridFilter)};
    }
    recordsets_.rsVisBrukere.open(module_.DatabaseConnection, std::move(users));
}

void UserGrid::sort()
{
    for (Recordset *set : {&recordsets_.rsVisNyeBrukere, &recordsets_.rsVisBrukere}) {
        if (set->isOpen()) {
            set->sort(SorteringBrukere);
        }
    }
}

void UserGrid::sortByColumn(int column)
{
    if (column >= 0 && column < kSortByColumn.size()) {
        SorteringBrukere = kSortByColumn[column];
    }
    sort();
}

int UserGrid::sortedColumn() const
{
    for (int column = 0; column < kSortByColumn.size(); ++column) {
        if (same(kSortByColumn[column], SorteringBrukere)) {
            return column;
        }
    }
    return -1;
}

bool UserGrid::isWaitingTab(const QString &caption) const
{
    return same(caption, module_.texts.nye);
}

Recordset &UserGrid::rows()
{
    return showsWaiting() ? recordsets_.rsVisNyeBrukere : recordsets_.rsVisBrukere;
}
