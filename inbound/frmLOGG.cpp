#include "inbound/frmLOGG.h"

#include "data/Criteria.h"
#include "data/Module1.h"
#include "data/Recordsets.h"
#include "modem/OutboundQueue.h"
#include "modem/SmsSubmitter.h"
#include "platform/Clock.h"
#include "platform/Operator.h"
#include "platform/Rules.h"

#include <QAbstractButton>

namespace {

/// What each button asks the door for: so many of its latest entries.
constexpr std::pair<const char *, QStringView> kFetches[] = {
    {"Command1", u"r5"},  {"Command2", u"r10"},  {"Command3", u"r25"},
    {"Command4", u"r50"}, {"Command5", u"r100"},
};

} // namespace

frmLOGG::frmLOGG(const BrowserTools &tools, SendPace &pace)
    : RecordBrowser(kLOGGTable, tools), pace_(pace)
{
    for (const auto &[name, text] : kFetches) {
        connect(&button(name), &QAbstractButton::clicked, this,
                [this, wanted = text.toString()] { fetch(wanted); });
    }
}

Query frmLOGG::query() const
{
    Query query = RecordBrowser::query();
    query.filter = equals(QStringLiteral("KeyNummer"));
    query.values = {filterValue(module_.KeySelect)};
    return query;
}

void frmLOGG::loaded()
{
    rsQueue.open(
        connection_,
        {.source = QStringLiteral("SMS_Sent"),
         .columns = {QStringLiteral("TilNummer"), QStringLiteral("TilNummerKort"),
                     QStringLiteral("Etternavn"), QStringLiteral("Fornavn"), QStringLiteral("Dato"),
                     QStringLiteral("DatoLNG"), QStringLiteral("SMS_Text"), QStringLiteral("CMGS")},
         .filter = equals(QStringLiteral("CMGS")),
         .values = {QStringLiteral("UNSENT")}});
}

void frmLOGG::fetch(const QString &text)
{
    shown(person_, {}, [&] {
        RequestDoorLog(text);
        setTimer1(true);
    });
}

void frmLOGG::RequestDoorLog(const QString &text)
{
    // The number in KeySelect may be none that this operator can see: then another door's name
    // stands on the main screen, and neither of the two is meant.
    awaitFile();
    Recordset doors;
    doors.open(connection_, allowedDoors(module_.SecurityLevel,
                                         {QStringLiteral("KeyNummer"), QStringLiteral("KeyNavn")}));
    if (!doors.findFirstAsItStands(QStringLiteral("KeyNummer"), module_.KeySelect)) {
        person_.messageBox(
            sourceText(QT_TRANSLATE_NOOP("BrowserTable", "Det er ikke valgt noen dør.")), {},
            Buttons::Ok);
        return;
    }
    const QString door = doors.text(QStringLiteral("KeyNummer"));
    checkRecipient(door);
    rsQueue.requery();
    queueSms(rsQueue, pace_,
             OutboundSms::logRequest(door, doors.text(QStringLiteral("KeyNavn")), text,
                                     clock_.now().date()));
}
