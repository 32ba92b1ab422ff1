#include "data/DoorCounts.h"

#include "data/Connection.h"

namespace {

constexpr int kSlice = 1'000; ///< rows of the catalogue: some 20 ms
constexpr std::chrono::milliseconds kPatience{50};

} // namespace

bool recountTillatelser(Connection &connection, qint64 &behind)
{
    const QVariant last = connection.single(
        QStringLiteral("SELECT max(Rad) FROM (SELECT Rad FROM Katalog WHERE Rad > ? ORDER BY Rad"
                       " LIMIT %1)")
            .arg(kSlice),
        {behind});
    if (!last.isValid()) {
        return false;
    }
    // What the saved query brukertillatelser says of one number, asked where an index answers.
    const QString doors =
        QStringLiteral("(SELECT CAST(count(b.KeyNummer) AS TEXT) FROM TBLbrukere AS b"
                       " WHERE upper(rtrim(b.[KeyBruker])) = upper(rtrim(Katalog.[Bruker])))");
    connection.transaction(
        [&] {
            connection.run(
                QStringLiteral(
                    "UPDATE Katalog SET Tillatelser = %1, BrukerKort = substr(Bruker, 4, 8)"
                    " WHERE Rad > ? AND Rad <= ? AND instr(Bruker, '''') = 0"
                    " AND EXISTS (SELECT 1 FROM TBLbrukere AS b"
                    " WHERE upper(rtrim(b.[KeyBruker])) = upper(rtrim(Katalog.[Bruker])))"
                    " AND (Tillatelser IS NOT %1 OR BrukerKort IS NOT substr(Bruker, 4, 8))")
                    .arg(doors),
                {behind, last});
        },
        kPatience);
    behind = last.toLongLong();
    return true;
}
