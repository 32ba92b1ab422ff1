#include "browsers/frmBrukere.h"

#include "data/Connection.h"
#include "data/Criteria.h"
#include "data/DoorCounts.h"
#include "platform/Operator.h"

frmBrukere::frmBrukere(const BrowserTools &tools) : RecordBrowser(kBrukereTable, tools) {}

int frmBrukere::doorsOf(const QString &Bruker)
{
    // One number's share of the saved query brukertillatelser, which would count everybody's.
    rsBrukerTillatelser.open(connection_, {.source = QStringLiteral("TBLbrukere"),
                                           .columns = {QStringLiteral("KeyBruker")},
                                           .filter = equals(QStringLiteral("KeyBruker")),
                                           .values = {filterValue(Bruker)}});
    return rsBrukerTillatelser.recordCount();
}

void frmBrukere::cmdDelete_Click()
{
    if (model_.bookmark(currentRow()) == 0) {
        return;
    }
    model_.standOn(currentRow()); // a number that cannot be read now is none without doors
    if (doorsOf(value("Bruker")) == 0) {
        RecordBrowser::cmdDelete_Click();
        return;
    }
    person_.messageBox(
        sourceText(QT_TRANSLATE_NOOP(
            "BrowserTable",
            "Denne brukeren er registrert på en eller flere nøkler. Kan ikke slettes!!!")),
        {}, Buttons::Ok);
}

void frmBrukere::cmdRefresh_Click()
{
    if (saveEdit()) {
        awaitFile();
        RecountTillatelser();
    }
}

void frmBrukere::RecountTillatelser()
{
    const auto last = connection_->single(QStringLiteral("SELECT max(Rad) FROM Katalog"));
    beginWork([this, behind = qint64{0},
               last = std::max(qint64{1}, last.toLongLong())](int &percent) mutable {
        if (isTyping()) {
            return true; // to be read again, the rows must not be in use
        }
        if (recountTillatelser(*connection_, behind)) {
            percent = static_cast<int>(100 * behind / last);
            return true;
        }
        if (saveEdit()) { // begun meanwhile
            readAgain();
        }
        return false;
    });
}
