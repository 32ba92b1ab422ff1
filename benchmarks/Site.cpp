#include "Site.h"

#include "data/Connection.h"
#include "data/CreateDatabase.h"
#include "data/DatabasePaths.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

namespace {

/// Goes up with every change of fill() or of the schema, so that no older file is taken.
constexpr int kContents = 4;

void fill(Connection &file, const SiteSize &size)
{
    // One recursive select makes the numbers from 1 to n; everything else is arithmetic on them.
    const auto insert = [&](const char *columns, const char *values, int count) {
        file.run(QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                                "WHERE i < ?) INSERT INTO %1 SELECT %2 FROM n")
                     .arg(QString::fromUtf8(columns), QString::fromUtf8(values)),
                 {count});
    };
    file.transaction([&] {
        insert("KEYTable (KeyNummer, KeyNavn, KeySikkerhet, Bygning)",
               "'+479' || (5000000 + i), 'Dør ' || i, '4', 'Bygg ' || (i / 10)", size.doors);
        insert("Katalog (Bruker, BrukerKort, Etternavn, Fornavn)",
               "'+479' || (1000000 + i), '9' || (1000000 + i), 'Etternavn ' || i, 'Fornavn ' || i",
               size.people);
        insert("TBLbrukere (KeyBruker, KeyNummer, [Gyldig fra], FraTid, [Gyldig til], TilTid, "
               "Konto, Saldo, Status)",
               QStringLiteral("'+479' || (1000000 + i), '+479' || (5000001 + i % %1), "
                              "(1 + i % 28) || '/' || (1 + i % 12) || '/2026', '00', "
                              "'31/12/2099', '24', 'Beboer', '0', 'Aktiv '")
                   .arg(size.doors)
                   .toUtf8()
                   .constData(),
               size.users);
        insert("SMS_Sent (TilNummer, TilNummerKort, Dato, DatoLNG, SMS_Text, CMGS, TimeSent, "
               "TimeReceived, ReceivedStatus)",
               "'+479' || (5000001 + i % 1000), '9' || (5000001 + i % 1000), '2026-06-15', 46188, "
               "'I 9' || (1000000 + i % 100000) || '>26060100<26120324', (i % 256) || ':OK', 'NA', "
               "'NA', 'NA'",
               size.messages);
        insert("SMS_Received (FraNummer, FraNummerKort, Etternavn, Fornavn, Dato, SMS_Text)",
               "'+479' || (5000001 + i % 1000), '9' || (5000001 + i % 1000), 'Dør', ' ', "
               "'26/06/15,12:00:00+08', 'Dør' || char(13) || char(10) || '9' || "
               "(1000000 + i % 100000) || ' er lagt til'",
               size.messages);
        insert("LOGGData (KeyNummer, KeyUser, Fornavn, Etternavn, Dato)",
               "'+4795000001', '+479' || (1000000 + i % 100000), 'Fornavn ' || i % 1000, "
               "'Etternavn ' || i % 1000, "
               "printf('%02d/%02d,%02d:%02d', 1 + i % 28, 1 + i / 28 % 12, i / 336 % 24, i % 60)",
               size.logRows);
    });
}

} // namespace

QString siteDatabase(const SiteSize &size)
{
    const QDir folder(QStringLiteral(LUKORA_SITES));
    folder.mkpath(QStringLiteral("."));
    const QString path = folder.filePath(
        u"%1-%2.mdb"_qs.arg(QString::fromUtf8(size.name), QString::number(kContents)));
    if (!QFile::exists(path)) {
        const QString unfinished = path + u".part"_qs;
        QFile::remove(unfinished);
        createDatabase(unfinished, {u"Hovedoperatør"_qs, u"demo"_qs, u"6"_qs});
        fill(*Connection::open(connectionString(unfinished)), size);
        QFile::rename(unfinished, path);
        QFile::remove(unfinished + u"-lock"_qs);
    }
    return path;
}

double residentMebibytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly)) {
        return 0;
    }
    return statm.readAll().split(' ').value(1).toDouble() * double(sysconf(_SC_PAGESIZE)) / 1048576;
}
