// Whatever record a modem lists: the interpreter comes back and leaves the modem side as after any
// message, nothing of another door is touched, and the next message is read as ever.

#include "fuzz/FuzzBench.h"
#include "inbound/MessageReader.h"

#include <memory>

namespace {

constexpr const char *kOtherDoor = "+4790000009";
constexpr const char *kNextMessage =
    "\r\n+CMGL: 8,\"REC UNREAD\",\"+4798765432\",,\"26/12/01,12:34:56+04\"\r\nGod "
    "kveld\r\n\r\nOK\r\n";

/// Takes back all that an input wrote.
struct Undo {};

struct Site : FuzzBench {
    Site()
    {
        database.use(module);
        for (const char *const rows :
             {"INSERT INTO KEYTable (KeyNummer, KeyNavn, KeySikkerhet, Admin) VALUES "
              "('+4790000001', 'Hovedport', '4', '0'), ('+4790000009', 'Garasje', '4', '1')",
              "INSERT INTO Katalog (Bruker, BrukerKort, Etternavn, Fornavn) VALUES "
              "('+4791234567', '91234567', 'Berg', 'Anne')",
              "INSERT INTO TBLbrukere (KeyBruker, KeyNummer, Status, Konto, Saldo) VALUES "
              "('+4791234567', '+4790000001', 'Registrerer', 'Gjest', '5'), "
              "('+4791234567', '+4790000009', 'Aktiv ', 'Gjest', '7')",
              "INSERT INTO LOGGData (KeyNummer, KeyUser, Dato) VALUES "
              "('+4790000009', '+4791234567', '01/12,12:00')",
              "INSERT INTO SMS_Sent (TilNummer, SMS_Text, CMGS) VALUES "
              "('+4790000001', 'I 91234567', '45'), ('+4790000009', 'I 91234567', '44:OK')"}) {
            connection().run(QString::fromLatin1(rows));
        }
        link.watcher.Read_SMS_MessageTEXT = [this] { reader->Read_SMS_MessageTEXT(); };
        link.watcher.SetUpAgain = [this] {
            return !(link.flags.HasForgotten = false);
        }; // nobody there forgets
        port.onWrite = [this](const QByteArray &) { port.feed("\r\nOK\r\n"); };
        ready(false);
    }
    Connection &connection() { return *module.DatabaseConnection; }

    /// As if the program had just come up.
    void startAnew()
    {
        reader =
            std::make_unique<MessageReader>(link, module, recordsets, view, clock, host, [] {});
        recordsets.OpenRecordsets();
        module.SenderNumber = u"+4798765432"_qs;
        link.flags = {};
        link.response.setText({});
        link.TimerCom->setEnabled(true);
        link.pace.restart(10000ms);
        view.panelHistory.clear();
        port.written.clear();
    }
    void lists(const QByteArray &listing)
    {
        say(listing);
        require(clock.runUntil([this] { return port.bytesAvailable() == 0; }, 2h),
                "all that comes in is read");
    }

    /// What no message but one from that door may change, and what none may.
    QByteArray untouchable()
    {
        return connection()
            .single(
                QString::fromLatin1(
                    "SELECT (SELECT group_concat(KeyNavn || Admin || KeySikkerhet) FROM KEYTable "
                    "WHERE KeyNummer = ?1) || (SELECT group_concat(KeyBruker || Status || Saldo) "
                    "FROM TBLbrukere WHERE KeyNummer = ?1) || (SELECT group_concat(KeyUser || "
                    "Dato) FROM LOGGData WHERE KeyNummer = ?1)"),
                {QString::fromLatin1(kOtherDoor)})
            .toByteArray();
    }
    QByteArray fixed()
    {
        return connection()
            .single(QString::fromLatin1(
                "SELECT (SELECT count(*) FROM Passwords) || ',' || (SELECT count(*) FROM "
                "TBLLanguage) "
                "|| ',' || (SELECT count(*) FROM SMS_Sent) || (SELECT CMGS FROM SMS_Sent WHERE "
                "TilNummer = '+4790000009') || (SELECT Etternavn || Fornavn FROM Katalog WHERE "
                "Bruker = '+4791234567') || (SELECT ModemOwner FROM Modem)"))
            .toByteArray();
    }
    /// An "OK" right behind the listing's own, to what was asked meanwhile, counts as its last
    /// line.
    int filed()
    {
        return connection()
            .single(u"SELECT count(*) FROM SMS_Received WHERE SMS_Text LIKE 'God kveld%'"_qs)
            .toInt();
    }

    TestDatabase database;
    std::unique_ptr<MessageReader> reader; // each knows what it has filed
};

void readOne(Site &site, const QByteArray &record)
{
    const QByteArray others = site.untouchable();
    const QByteArray fixed = site.fixed();
    require(!others.isEmpty() && !fixed.isEmpty(), "there is something to be left alone");
    site.startAnew();
    site.lists("\r\n" + record + "\r\n\r\nOK\r\n");
    require(site.link.TimerCom->isEnabled() && site.link.pace.isRunning(), "both timers go on");
    require(!site.link.flags.ReadingMessages, "the listing is at its end");
    require(site.fixed() == fixed, "logins, words, the queue and names stay");
    require(record.contains(kOtherDoor) || site.untouchable() == others, "other doors stay");
    const int before = site.filed();
    site.lists(kNextMessage);
    require(site.filed() == before + 1, "the next message is filed");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static Site site;
    // Nothing is ever committed: each input meets the same rows, and none waits for the disk.
    try {
        site.connection().transaction([&] {
            readOne(site, {reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)});
            throw Undo();
        });
    } catch (const Undo &) {
    }
    return 0;
}
