#include "simulation/Site.h"

#include "data/DatabasePaths.h"
#include "data/Recordsets.h"
#include "platform/RuntimeFailure.h"
#include "simulator/GsmAlphabet.h"

#include <QFile>
#include <QScopeGuard>

#include <algorithm>

namespace {

constexpr const char16_t *kDoorNumbers[Site::kDoors] = {u"+4790000001", u"+4790000002",
                                                        u"+4790000003", u"+4790000004"};

constexpr milliseconds kLasting = 20min; ///< at the slowest pace a listing comes in 15

std::vector<World::Door> doors()
{
    return {{u"+4790000001"_qs, u"Hovedport"_qs, DoorLanguage::Norwegian},
            {u"+4790000002"_qs, u"Bagdør"_qs, DoorLanguage::Danish},
            {u"+4790000003"_qs, u"Källarport"_qs, DoorLanguage::Swedish},
            {u"+4790000004"_qs, u"Garasje"_qs, DoorLanguage::Norwegian}};
}

} // namespace

Site::Site()
    : world_([] {
          const Disk::Aside aside;
          Disk::instance().mend();
          return std::make_unique<World>(
              World::Setup{.doors = doors(), .before = [](World &world) {
                               world.execute(u"UPDATE Passwords SET SecurityLevel = '7'"_qs);
                           }});
      }()),
      witness_(world_->clock)
{
    isUp_ = true;
    makeOtherFile();
    wire();
}

Site::~Site()
{
    const Disk::Aside aside;
    disk_.onWait = {};
    world_->clock.onYield = {};
    letGoOfFile();
    disk_.mend();
    for (auto &look : looks_) {
        look.reset();
    }
    if (isUp_) {
        world_->person.habit = [](const QString &) { return Answer::Ok; };
        world_->application().close();
    }
    further_.clear();
    world_.reset();
}

void Site::makeOtherFile()
{
    const Disk::Aside aside;
    const QString path = world_->database().filePath(u"Annen.mdb"_qs);
    QFile(path).open(QIODevice::WriteOnly); // the engine makes none
    looks_[0] = world_->database().open();
    const QString string = connectionString(path);
    looks_[0]->run(u"ATTACH DATABASE ? AS annen KEY ?"_qs,
                   {path, connectionParts(string).password});
    looks_[0]->run(u"SELECT sqlcipher_export('annen')"_qs);
    looks_[0]->run(u"DETACH DATABASE annen"_qs);
    looks_[1] = Connection::open(string);
}

void Site::wire()
{
    World &world = *world_;
    modems_[0] = &world.modem;
    for (int i = 1; i < kModems; ++i) {
        further_.push_back(std::make_unique<SimulatedModem>(world.clock, world.network,
                                                            u"+479900000%1"_qs.arg(i)));
        modems_[static_cast<size_t>(i)] = further_.back().get();
    }
    constexpr int kPlaces[kModems] = {20, 120, 250};
    for (int i = 0; i < kModems; ++i) {
        modem(i).store().setCapacity(kPlaces[i]);
        modem(i).setSubmissionTime(2s);
        modem(i).setOutput([this, i](const QByteArray &bytes) {
            if (chosenModem() != i || isDead_) {
                return;
            }
            witness_.fromModem(i, bytes);
            i == 2 ? world_->socket.feed(bytes) : world_->port.feed(bytes);
        });
        modem(i).setLineDrop([this, i] {
            plug(false);
            modem(i).lineClosed();
            witness_.lineClosed(i);
            world_->clock.after(1min, [this] { plug(true); });
        });
        modem(i).store().onRemoval = [this](const MessageRecord &record) {
            witness_.removed(record);
            heard(record.number, record.text);
        };
    }
    world.port.onWrite = world.socket.onWrite = [this](const QByteArray &b) { toModem(b); };
    world.network.setFate([this](const SmsMessage &message) { return fate(message); });
    world.network.setObserver([this](const SmsMessage &message, bool delivered) {
        if (delivered) {
            heard(message.from, message.text);
        }
    });
    world.person.habit = [this](const QString &text) { return answerBox(text); };
    world.person.browsing = [this] {
        return file() == 0 ? world_->database().filePath(u"Annen.mdb"_qs)
                           : world_->database().path();
    };
    world.person.typing = [this](const QString &title) {
        ++serial_;
        return title == u"Nettverksmodem" || title == u"Com Port"
                   ? u"23"_qs
                   : u"Beskjed nr %1"_qs.arg(serial_);
    };
    world.clock.onYield = [this] {
        if (yieldsToDeath_ > 0 && --yieldsToDeath_ == 0) {
            die();
        }
    };
    disk_.onWait = [this](milliseconds time) {
        // The engine has stopped the program: only other machines go on.
        world_->clock.stand(time);
        letGoOfFile();
    };
}

int Site::chosenModem()
{
    if (world_->socket.state() == TcpSocket::State::Connected) {
        return 2;
    }
    return world_->port.isOpen() ? world_->port.device.right(1).toInt() - 1 : -1;
}

void Site::toModem(const QByteArray &bytes)
{
    const int chosen = chosenModem();
    if (isDead_ || chosen < 0) {
        return;
    }
    // A start goes on: cutting what it sends would hand the modem half a message.
    const bool dies = isUp_ && bytesToDeath_ > 0 && bytes.size() >= bytesToDeath_;
    const QByteArray sent = dies ? bytes.left(bytesToDeath_) : bytes;
    bytesToDeath_ = std::max(0, bytesToDeath_ - static_cast<int>(bytes.size()));
    witness_.toModem(chosen, sent);
    if (haste_ && sent.startsWith(haste_->a % 4 ? "AT+CMGS" : "AT+CMG")) {
        const Step click{
            .act = static_cast<Act>(static_cast<unsigned>(Act::Line) + haste_->b % 4),
            .a = haste_->b / 4,
        };
        world_->clock.after(milliseconds(haste_->a / 4 % (haste_->b % 3 ? 400 : 8000)),
                            [this, click] { operate(click); });
        haste_.reset();
    }
    modem(chosen).receive(sent);
    if (dies) {
        die();
    }
}

std::vector<milliseconds> Site::fate(const SmsMessage &message)
{
    if (std::ranges::any_of(modems_, [&](auto *m) { return m->ownNumber() == message.from; })) {
        witness_.submitted(message);
    }
    if (fates_.empty()) {
        return {0ms};
    }
    const Step fate = fates_.front();
    fates_.pop_front();
    const milliseconds late{1000 * (fate.b % 3600)};
    witness_.event(told(fate) + " strikes " + fromGsm(message.text).toStdString());
    return fate.act == Act::Lose     ? std::vector<milliseconds>{}
           : fate.act == Act::Double ? std::vector<milliseconds>{0ms, late}
                                     : std::vector<milliseconds>{late};
}

/// A door that says that it does not hold a user has him taken away, also when its words come late.
void Site::heard(const QString &from, const QByteArray &raw)
{
    const QString text = fromGsm(raw);
    for (auto &[key, order] : orders_) {
        if (from == door(order.door) && text.contains(order.number.mid(3)) &&
            (text.contains(u"slett") || text.contains(u"ikke") || text.contains(u"inte") ||
             text.contains(u"borttagen"))) {
            order.mustBeThere = false;
        }
    }
}

QString Site::door(int i) const
{
    return QString::fromUtf16(kDoorNumbers[i]);
}

int Site::file()
{
    return isUp_ && world_->application().module().DatabasePath.endsWith(u"Annen.mdb") ? 1 : 0;
}

QStringList Site::rows(int file, const QString &sql)
{
    const Disk::Aside aside;
    QStringList result;
    looks_[file]->run(sql, {}, [&](const QVariantList &row) {
        result += QVariant(row).toStringList().join(u'|');
    });
    return result;
}

bool Site::isInTables(const QString &number, int onDoor)
{
    const QString sql = u"SELECT (SELECT count(*) FROM TBLbrukere WHERE KeyBruker = '%1' AND "
                        "KeyNummer = '%2') + (SELECT count(*) FROM NYEbrukere WHERE Bruker = "
                        "'%1' AND KeyNummer = '%2')"_qs.arg(number, door(onDoor));
    return value(0, sql) != u"0" || value(1, sql) != u"0";
}

bool Site::isTroubled()
{
    return other_ || !disk_.isWell() ||
           (isUp_ && !world_->application().module().DatabaseConnection);
}

Answer Site::answerBox(const QString &text)
{
    boxes_.push_back({world_->clock.elapsed(), text, hands_ > 0});
    witness_.event("box: " + text.simplified().toStdString());
    ++openBoxes_;
    const auto time = std::exchange(slowBox_, 0ms);
    const auto closed = qScopeGuard([this, opened = world_->clock.elapsed()] {
        --openBoxes_;
        witness_.boxClosed(opened);
    });
    world_->clock.sleep(time + 1s);
    return Answer::Ok;
}

void Site::schedule(const Step &step, milliseconds delay)
{
    world_->clock.after(delay, [this, step] { perform(step); });
}

void Site::run(milliseconds time)
{
    World &world = *world_;
    const milliseconds until = world.clock.elapsed() + time;
    while (world.clock.elapsed() < until || world.clock.hasEnded()) {
        if (!isUp_ || world.clock.hasEnded()) {
            bringUp();
            continue;
        }
        world.clock.run(until - world.clock.elapsed());
    }
}

/// A program that has ended is taken away; another comes up, after a while.
void Site::bringUp()
{
    World &world = *world_;
    if (world.clock.hasEnded()) {
        witness_.event(isDead_ ? "killed" : "closed");
        std::vector<const MessageStore *> stores;
        for (SimulatedModem *each : modems_) {
            stores.push_back(&each->store());
        }
        witness_.programEnded(stores);
        world.takeDown();
        if (isDead_) {
            disk_.mend();
        }
        isDead_ = isUp_ = false;
        yieldsToDeath_ = bytesToDeath_ = 0;
        world.settings.isLocked = false;
        world.port.close();
        world.socket.close();
        for (SimulatedModem *each : modems_) {
            each->lineClosed();
        }
    }
    world.clock.run(std::exchange(downFor_, 20s));
    witness_.event("start");
    ++hands_; // whoever starts it is told of what fails
    isUp_ = world.start();
    --hands_;
    upSince_ = world.clock.elapsed();
    if (!isUp_ && !world.clock.hasEnded()) {
        world.takeDown();
        world.clock.run(1min);
    }
}

void Site::die()
{
    if (!isUp_) {
        disk_.mend(); // a start goes on behind one write that failed
    } else if (!isDead_) {
        isDead_ = true;
        disk_.kill();
        world_->settings.isLocked = true;
        world_->clock.end();
    }
}

void Site::plug(bool in)
{
    if (in) {
        world_->port.plugIn();
        return;
    }
    if (world_->socket.state() == TcpSocket::State::Connected) {
        world_->socket.closeByFarSide();
    } else {
        world_->port.unplug();
    }
}

void Site::note(bool trouble)
{
    witness_.setTrouble(trouble || isTroubled());
}

void Site::setDisk(Disk::Fault fault, milliseconds time)
{
    // Told of the fault before, the operator need not hear of the next one that follows it.
    outOfOrderSince_ = disk_.isWell() ? world_->clock.elapsed() : outOfOrderSince_;
    const milliseconds since = outOfOrderSince_;
    disk_.set(fault);
    note(true);
    const bool isKept = hasMessage() && time >= kLasting;
    world_->clock.after(time, [this, since, isKept, step = ++steps_] {
        if (step != steps_) {
            return;
        }
        if (isKept && hasMessage() && upSince_ < since && faultySince_ < since &&
            (boxes_.empty() || boxes_.back().at < since)) {
            violations_.push_back({"a failure that lasts is told", "messages stay in the modem"});
        }
        disk_.set(Disk::Fault::None);
        note(false);
    });
}

/// Whether the modem in use, in good order, holds a message that the program knows how to get.
bool Site::hasMessage()
{
    if (!isUp_) {
        return false;
    }
    const Module1 &module = world_->application().module();
    return chosenModem() >= 0 && module.ModemReady && module.DatabaseConnection &&
           !modem(chosenModem()).store().records().empty();
}

void Site::holdFile(bool exclusively, milliseconds time)
{
    const Disk::Aside aside;
    if (other_) {
        return;
    }
    try {
        other_ = looks_[file()]->another();
        other_->setPatience(0ms);
        other_->run(exclusively ? u"BEGIN EXCLUSIVE"_qs : u"BEGIN IMMEDIATE"_qs);
        other_->run(u"UPDATE Katalog SET Gate = 'x' WHERE Rad = -1"_qs);
    } catch (const RuntimeFailure &) {
        other_.reset(); // the program is writing
        return;
    }
    isHeldAlone_ = exclusively;
    heldUntil_ = world_->clock.elapsed() + time;
    note(true);
    world_->clock.after(time, [this] { letGoOfFile(); });
}

/// Whatever it had written in its transaction goes with it.
void Site::letGoOfFile()
{
    const Disk::Aside aside;
    if (other_ && world_->clock.elapsed() >= heldUntil_) {
        other_.reset();
        note(false);
    }
}
