#include "browsers/BrowserWorld.h"
#include "browsers/frmBrukere.h"

#include <QFile>

#include <csignal>
#include <sys/resource.h>

namespace {

TEST_F(BrowserWorld, CsvThatTheDiskDoesNotTakeSaysWhy)
{
    for (const QString &number : {u"+4791000001"_qs, u"+4791000002"_qs}) {
        database.add(u"Katalog"_qs, u"Bruker"_qs, {number});
    }
    open<frmBrukere>(tools());
    const QString path = database.filePath(u"ut.csv"_qs);
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit full{.rlim_cur = 100, .rlim_max = before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    person.picksNewFile(u"Alle Brukere.csv"_qs, u"CSV (*.csv)"_qs, path);
    person.answers(u"Filen kunne ikke skrives. File too large"_qs);
    clickAndWait("cmdSaveCsv", 6s);
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(BrowserWorld, ColumnGrowsWithTheFirstRowsOfAnEmptyTable)
{
    open<frmBrukere>(tools());
    const int narrow = grid().columnWidth(1);
    database.add(u"Katalog"_qs, u"Bruker,Etternavn"_qs,
                 {u"+4791000004"_qs, u"Etternavnet er langt her"_qs});
    clickAndWait("cmdRefresh", 1s);
    EXPECT_GT(grid().columnWidth(1), narrow);
}

} // namespace
