// What the operator, the people, the other PC and misfortune do in a step.

#include "data/Recordsets.h"
#include "modem/ModemLink.h"
#include "platform/RuntimeFailure.h"
#include "simulation/Site.h"
#include "simulator/GsmAlphabet.h"
#include "simulator/Personalities.h"
#include "support/Corpus.h"

#include <QAction>
#include <QTabBar>

namespace {

constexpr unsigned kUsers = 12; ///< numbers that the operator deals with
constexpr unsigned kPeople = 5;

/// What the modem's faults are called, with how long they last. Left out are those behind which a
/// message is lost by rule ("firstplace 0": nothing is read at place 0, and it is deleted all the
/// same) or by the modem ("wrongplace": the deletion hits another message).
const QString kFaults =
    u"mute, slow, slow 60, split, glued, blanklines, lfonly, crcrlf, echo, garbage, "
    "noticefirst, noticeinrecord, noticeinsubmission, bareprompt, lateprompt, "
    "lateprompt 900, noprompt 2, refuse 331 2, refuse 500, refuse 0 3, lateanswer, "
    "lateanswer 25000, lost 1, lost 3, drop 1, reset 1, forget 1, nomt, nosm, noreports, "
    "full, firstplace 200, firstplace 256, nodelete, nodelete 2, names, recipient, "
    "slowlines, slowlines 700, noticeinlisting, noblanks, silentdelete, silentdelete 1, "
    "tellsfull, pdu"_qs;

/// How much in a file is left to be done.
const QString kWaiting =
    u"SELECT (SELECT count(*) FROM NYEbrukere n WHERE NOT EXISTS (SELECT 1 FROM TBLbrukere b WHERE "
    "rtrim(b.KeyBruker) = rtrim(n.Bruker) AND b.KeyNummer = n.KeyNummer)) + (SELECT count(*) FROM "
    "SMS_Sent WHERE CMGS = 'UNSENT')"_qs;

constexpr const char *kNotices[] = {
    "^RSSI: 17", "+CREG: 1",        "RING",        "+CRING: VOICE",        "NO CARRIER",
    "^BOOT:1,0", "*PSUTTZ: 1",      "%CSQ: 18,99", "+CLIP: \"+4791\",145", "^SMMEMFULL: \"SM\"",
    "#STN: 25",  "+CMTI: \"SM\",3",
};

/// Sentences of the corpus that a unit or a person can have sent by itself, and that name none of
/// the numbers that this site deals with.
const QByteArrayList &sentences()
{
    static const QByteArrayList all = [] {
        QByteArrayList found;
        for (const QByteArray &record : corpusRecords()) {
            const qsizetype end = record.indexOf("\r\n");
            QByteArray body = record.mid(end + 2);
            body.chop(2); // the line end
            // Lines that look like the modem's are no part of a text that anybody could tell.
            if (record.startsWith("+CMGL: 7,\"REC UNREAD\",\"+47") && body.size() <= 160 &&
                !body.isEmpty() && !body.contains('\r') && !body.contains("9855") &&
                !body.contains("OK") && !body.contains("ERROR") && !body.contains("+C")) {
                found += body;
            }
        }
        return found;
    }();
    return all;
}

} // namespace

QString Site::numberOf(unsigned i) const
{
    return u"+47985500%1"_qs.arg(10 + i % kUsers);
}

void Site::perform(const Step &step)
{
    witness_.event(told(step));
    if (step.act <= Act::Slow) {
        operate(step);
    } else if (step.act <= Act::Delay) {
        others(step);
    } else {
        breakThings(step);
    }
}

void Site::operate(const Step &step)
{
    if (step.act == Act::Slow) {
        slowBox_ = milliseconds(1000 * (step.a % 600));
        return;
    }
    if (step.act == Act::Hasty) {
        haste_ = step;
        return;
    }
    // A box that is open takes all input; nobody has more than two hands.
    if (!isUp_ || !world_->screen().isVisible() || openBoxes_ > 0 || hands_ > 0) {
        return;
    }
    const bool needsTabs = step.act <= Act::FreeText;
    if (needsTabs && world_->control<QTabBar>("TabStrip1").count() < 2) {
        return; // the file could not be read
    }
    ++hands_;
    switch (step.act) {
    case Act::Register:
        registers(step, false);
        break;
    case Act::Wait:
        registers(step, true);
        break;
    case Act::Delete:
        deletes(step);
        break;
    case Act::FreeText:
        writesFreeText(step);
        break;
    case Act::NextDoor:
        QMetaObject::invokeMethod(&world_->control<QWidget>("UpDown1"), step.a % 2 ? "up" : "down");
        break;
    case Act::Line:
        chooseLine(static_cast<int>(step.a % kModems));
        break;
    case Act::File:
        chooseOtherFile();
        break;
    case Act::Reports:
        witness_.interrupted();
        world_
            ->control<QAction>(step.a % 2 ? "mnuSMSSendingsbekreftelsePå"
                                          : "mnuSMSSendingsbekreftelseAv")
            .trigger();
        break;
    default:
        closes(step.a == kNight ? 14h : 1s * (1 + step.a % 600));
        break;
    }
    --hands_;
}

void Site::enter(const QString &number, bool waits)
{
    World &world = *world_;
    if (waits) {
        world.click("cmdNyBruker");
    } else {
        world.chooseTab(world.application().module().texts.alle);
    }
    world.type("Txtfields_0", number);
}

void Site::registers(const Step &step, bool waits)
{
    World &world = *world_;
    const QString number = numberOf(step.a);
    const int onDoor = doorOnScreen();
    enter(number, waits);
    if (waits) {
        world.type("Txtfields_1", u"Kari"_qs);
        world.type("Txtfields_2", u"Nordås"_qs);
    }
    if (step.b % 4 == 0) {
        world.type("Saldo", QString::number(1 + step.b % 90));
    }
    if (world.clock.hasEnded() || onDoor < 0 || onDoor != doorOnScreen()) {
        return; // gone, or overtaken, while a question stood open
    }
    Order &order = orderFor(number, onDoor);
    order.registered += waits ? 2 : 1; // a period that changes places goes twice
    const bool wasTroubled = isTroubled();
    world.click("CommandRegistrerBruker");
    if (world.clock.hasEnded()) {
        return;
    }
    if (!canLook()) {
        return;
    }
    const bool isThere = isInTables(number, onDoor);
    order.mustBeThere |= isThere;
    // The button says nothing of a failure: that is required.
    if (!isThere && !wasTroubled && !isTroubled()) {
        violations_.push_back({"a registration goes into a table", number.toStdString()});
    }
}

Site::Order &Site::orderFor(const QString &number, int onDoor)
{
    Order &order = orders_[{number, onDoor}];
    order.number = number;
    order.door = onDoor;
    return order;
}

int Site::doorOnScreen()
{
    const QString number = world_->screen().recordsets().doorNumber();
    for (int i = 0; i < kDoors; ++i) {
        if (door(i) == number) {
            return i;
        }
    }
    return -1;
}

void Site::deletes(const Step &step)
{
    World &world = *world_;
    const QString number = numberOf(step.a);
    enter(number, false);
    if (world.clock.hasEnded()) {
        return;
    }
    if (const int onDoor = doorOnScreen(); onDoor >= 0) {
        Order &order = orderFor(number, onDoor);
        order.mustBeThere = false;
        ++order.deleted;
        ++order.registered; // a waiting period takes the place of the user who goes
    }
    world.click("CommandSlettBruker");
}

void Site::writesFreeText(const Step &step)
{
    const QString number = u"+4798660%1"_qs.arg(100 + step.a % kPeople);
    enter(number, true);
    ++freeTexts_[number + u" Beskjednr"_qs + QString::number(serial_ + 1)];
    world_->click("CommandSendSMS");
}

void Site::chooseLine(int modem)
{
    witness_.interrupted();
    World &world = *world_;
    world
        .control<QAction>(modem == 0   ? "mnuComPortCom1"
                          : modem == 1 ? "mnuComPortCom2"
                                       : "mnuComPortWinsock")
        .trigger();
}

void Site::chooseOtherFile()
{
    world_->control<QAction>("mnuFileDatabase").trigger();
    witness_.setTrouble(true); // a result on its way is nobody's now
    note(false);
}

void Site::closes(milliseconds time)
{
    downFor_ = time;
    world_->screen().close();
}

void Site::others(const Step &step)
{
    World &world = *world_;
    const QString to = modem(static_cast<int>(step.b % 8 < 6 ? 0 : step.b % 8 - 5)).ownNumber();
    const QString person = u"+4798660%1"_qs.arg(100 + step.a % kPeople);
    switch (step.act) {
    case Act::Person: {
        const QByteArray number = QByteArray::number(++serial_);
        // None without text: with another one behind it the header of that one is filed as its
        // text, since somebody may have written just that.
        const QByteArray shapes[] = {
            "Hei nr " + number,
            "Hei\nnr " + number + "\n\nHilsen",
            "Hei\r\nnr " + number + "\r\nHilsen",
            "nr" + number.rightJustified(158, 'x'),
            "Nr " + number + ": kl. 12/05, 'mandag' \"12\" *91 +",
            "Bilen 91234567 er nr " + number,
            "+CREG: 1, nr " + number,
            "OK\r\nnr " + number + "\r\nOK",
            "+CMGL: nr " + number,
        };
        world.network.send(person, to, shapes[(step.b / 8) % std::size(shapes)]);
        break;
    }
    case Act::Odd: {
        const QByteArrayList &all = sentences();
        world.network.send(step.b % 3 ? door(static_cast<int>(step.b % kDoors)) : person, to,
                           all[static_cast<qsizetype>(step.a) % all.size()]);
        break;
    }
    case Act::Flood:
        for (unsigned i = 0; i < step.a % 60; ++i) {
            world.network.send(person, to, "Flom nr " + QByteArray::number(++serial_),
                               milliseconds(step.b % 4000) * i);
        }
        break;
    default:
        fates_.push_back(step);
    }
}

void Site::breaks(SimulatedModem &modem, const ModemFaults &faults)
{
    if (modem.faults().firstPlace != faults.firstPlace) {
        witness_.placesChange(modem.store());
    }
    modem.faults() = faults;
}

void Site::breakThings(const Step &step)
{
    World &world = *world_;
    const milliseconds shortTime{500 * (1 + step.b % 20)};
    const milliseconds longTime{1000 * (1 + step.b % 1800)};
    const int chosen = std::max(0, chosenModem());
    SimulatedModem &one = modem(chosen);
    static const QStringList faults = kFaults.split(u", "_qs);
    if (step.act <= Act::Unplug) {
        faultySince_ = world.clock.elapsed() + longTime;
    }
    switch (step.act) {
    case Act::Fault: {
        ModemFaults broken = one.faults();
        addPersonality(broken, faults[step.a % faults.size()]);
        broken.unsolicited = kNotices[step.b % (std::size(kNotices) - 1)];
        breaks(one, broken);
        world.clock.after(longTime, [this, &one] { breaks(one, {}); });
        break;
    }
    case Act::Restart:
        one.faults().forgetsTextMode = step.b % 2 == 0;
        one.restart(step.a % 3 != 0);
        if (step.a % 2 == 0) {
            one.inject("\r\n^SYSSTART\r\n");
        }
        break;
    case Act::Notice:
        one.inject(QByteArray("\r\n") + kNotices[step.a % std::size(kNotices)] + "\r\n");
        break;
    case Act::Unplug:
        plug(false);
        one.lineClosed();
        witness_.lineClosed(chosen);
        world.clock.after(longTime, [this] { plug(true); });
        break;
    case Act::Full:
        setDisk(Disk::Fault::Full, step.a % 2 ? shortTime : longTime);
        break;
    case Act::Failing:
        setDisk(Disk::Fault::Failing, step.a % 2 ? shortTime : longTime);
        break;
    case Act::ReadOnly:
        setDisk(Disk::Fault::ReadOnly, step.a % 2 ? shortTime : longTime);
        break;
    case Act::KillNow:
        die();
        break;
    case Act::KillAtWrite:
        disk_.killAtWrite(1 + static_cast<int>(step.a % 60), [this] { die(); });
        break;
    case Act::KillAtYield:
        yieldsToDeath_ = 1 + static_cast<int>(step.a % 300);
        break;
    case Act::KillAtSend:
        bytesToDeath_ = 1 + static_cast<int>(step.a % 200);
        break;
    case Act::OtherWrites:
        anotherWrites(step);
        break;
    default:
        holdFile(step.a % 4 == 0, step.a % 2 ? shortTime : longTime);
    }
}

/// Another PC of the site enters a waiting period; whichever gets to it sends the command.
void Site::anotherWrites(const Step &step)
{
    const Disk::Aside aside;
    const QString number = u"+47985501%1"_qs.arg(10 + step.a % kUsers);
    const int onDoor = static_cast<int>(step.b % kDoors);
    try {
        Connection &connection = *looks_[file()];
        connection.setPatience(0ms);
        connection.transaction([&] {
            connection.run(u"INSERT INTO Katalog (Bruker, BrukerKort, Etternavn, Fornavn) SELECT "
                           "?, ?, 'Annen', 'PC' WHERE NOT EXISTS (SELECT 1 FROM Katalog WHERE "
                           "Bruker = ?)"_qs,
                           {number, number.mid(3), number});
            connection.run(u"INSERT INTO NYEbrukere (Bruker, KeyNummer, [Gyldig fra], FraTid, "
                           "[Gyldig til], TilTid, Konto, Saldo, Status) VALUES (?, ?, "
                           "'01/12/2026', '08', '31/12/2099', '16', 'Gjest', '0', 'NY')"_qs,
                           {number, door(onDoor)});
        });
    } catch (const RuntimeFailure &) {
        return; // the program is at work
    }
    Order &order = orderFor(number, onDoor);
    order.mustBeThere = true;
    order.registered += 2;
}

void Site::settle()
{
    World &world = *world_;
    for (int i = 0; i < kModems; ++i) {
        breaks(modem(i), {});
    }
    fates_.clear();
    disk_.mend();
    yieldsToDeath_ = bytesToDeath_ = 0;
    haste_.reset();
    slowBox_ = 0ms;
    heldUntil_ = 0ms;
    letGoOfFile();
    note(false);
    plug(true);
    run(11min); // a box that stands open is answered
    if (!world.application().module().DatabaseConnection) {
        closes(20s); // the file could not be opened when it was chosen
        run(2min);
    }
    settleFile();
    if (file() != 0 || value(1, kWaiting) != u"0") {
        for (int choices = file() == 0 ? 2 : 1; choices > 0; --choices) {
            world.clock.after(1ms, [this] { operate({.act = Act::File}); });
            run(1min);
            settleFile();
        }
    }
}

void Site::settleFile()
{
    for (int i = kModems - 1; i >= 0; --i) {
        // From the network it takes a second choice: the first leaves no line at all.
        for (int choices = 0; choices < 3 && chosenModem() != i; ++choices) {
            world_->clock.after(1ms, [this, i] { operate({.act = Act::Line, .a = unsigned(i)}); });
            run(1min);
        }
        // Two minutes at rest: an answer may be on its way.
        for (int minutes = 0, idle = 0; minutes < 240 && idle < 2; ++minutes) {
            run(1min);
            idle = waits(i) ? 0 : idle + 1;
        }
    }
}

bool Site::waits(int i)
{
    return !modem(i).store().records().empty() || value(file(), kWaiting) != u"0";
}
