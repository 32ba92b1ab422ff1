#include "simulation/Rules.h"

#include "modem/ModemLink.h"

#include <QApplication>
#include <QFile>

#include <algorithm>
#include <iterator>

namespace {

/// The same words so often within the hour, without the operator's doing, are a nuisance.
constexpr int kOften = 5;
constexpr long kMorePages = 8192; ///< of 4 KiB, from one rest to the last

long residentPages()
{
    QFile file(u"/proc/self/statm"_qs);
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLong() : 0;
}

} // namespace

Rules::Rules(Site &site) : site_(site)
{
    for (int file = 0; file < Site::kFiles; ++file) {
        others_[file] = QString::fromStdString(others(file));
    }
}

std::optional<Violation> Rules::broken()
{
    static constexpr Rule kAlways[] = {
        {"every message is filed once", &Rules::everyMessageIsFiledOnce},
        {"a filed message stays", &Rules::noFiledMessageGoes},
        {"no user is on a door twice", &Rules::noUserTwiceOnADoor},
        {"every user is in the catalogue", &Rules::everyUserIsInTheCatalogue},
        {"a registration stays", &Rules::whatTheOperatorSawIsThere},
        {"a result belongs to its message", &Rules::resultsAreTheirOwn},
        {"a command goes out once", &Rules::commandsGoOutOnce},
        {"nothing else changes", &Rules::nothingElseChanges},
        {"a failure is told once", &Rules::aFailureIsToldOnce},
    };
    for (const auto *seen : {&site_.violations(), &site_.witness().violations()}) {
        if (!seen->empty()) {
            return seen->front();
        }
    }
    return site_.canLook() ? firstOf(std::begin(kAlways), std::end(kAlways)) : std::nullopt;
}

std::optional<Violation> Rules::brokenAtRest()
{
    static constexpr Rule kAtRest[] = {
        {"the file is whole", &Rules::theFileIsWhole},
        {"nothing waits for ever", &Rules::nothingWaits},
        {"the link ends idle", &Rules::theLinkIsIdle},
        {"memory stays flat", &Rules::memoryIsFlat},
    };
    const auto first = broken();
    return first ? first : firstOf(std::begin(kAtRest), std::end(kAtRest));
}

std::optional<Violation> Rules::firstOf(const Rule *begin, const Rule *end)
{
    for (const Rule *rule = begin; rule != end; ++rule) {
        if (const std::string wrong = (this->*rule->look)(); !wrong.empty()) {
            return Violation{rule->name, wrong};
        }
    }
    return {};
}

void Rules::readMessages()
{
    for (int file = 0; file < Site::kFiles; ++file) {
        const QStringList rows = site_.rows(
            file, u"SELECT ID, FraNummer, Dato, SMS_Text FROM SMS_Received WHERE ID > %1 ORDER BY "
                  "ID"_qs.arg(lastRow_[file]));
        for (const QString &row : rows) {
            lastRow_[file] = row.section(u'|', 0, 0).toLongLong();
            ++rows_[file];
            const QString text = row.section(u'|', 3);
            const MessageKey key =
                messageKey(row.section(u'|', 1, 1), row.section(u'|', 2, 2), text);
            // Listed with the "OK" of a listing as its end, and without it, it is filed as both.
            std::array<int, 2> &forms = forms_[key];
            ++forms[lettersOf(text).endsWith(u"OK") ? 1 : 0];
            filed_[key] = std::max(forms[0], forms[1]);
        }
    }
}

std::string Rules::everyMessageIsFiledOnce()
{
    readMessages();
    const auto &messages = site_.witness().messages();
    for (const auto &[key, fate] : messages) {
        // One that the network brings twice may come to a place whose deletion nobody confirmed:
        // the same to the byte, it is taken for the one that was filed.
        if (filed_[key] < std::min(fate.removed, 1)) {
            std::string instead;
            const std::string start = key.substr(0, key.rfind(' '));
            for (const auto &[other, rows] : filed_) {
                instead += rows > 0 && other.starts_with(start) ? "; there is " + other : "";
            }
            instead += "; the last row: " + site_
                                                .value(site_.file(),
                                                       u"SELECT ID, FraNummer, Dato, SMS_Text FROM "
                                                       "SMS_Received ORDER BY ID DESC LIMIT 1"_qs)
                                                .toStdString();
            return "deleted unread: " + key + instead;
        }
    }
    std::map<MessageKey, int> inStore;
    for (int i = 0; i < Site::kModems; ++i) {
        for (const auto &[place, record] : site_.modem(i).store().records()) {
            ++inStore[messageKey(record.number, record.stamp.toString(u"yy/MM/dd,HH:mm:ss"),
                                 QString::fromLatin1(record.text))];
        }
    }
    for (const auto &[key, rows] : filed_) {
        const auto known = messages.find(key);
        const Witness::Fate fate = known == messages.end() ? Witness::Fate() : known->second;
        if (rows > fate.removed + inStore[key] + fate.again) {
            return std::to_string(rows) + " rows: " + key;
        }
    }
    return {};
}

std::string Rules::noFiledMessageGoes()
{
    for (int file = 0; file < Site::kFiles; ++file) {
        if (site_.value(file, u"SELECT count(*) FROM SMS_Received"_qs).toLongLong() !=
            rows_[file]) {
            return "rows are gone";
        }
    }
    return {};
}

/// The first row of the statement in any file.
std::string Rules::firstRow(const QString &sql)
{
    for (int file = 0; file < Site::kFiles; ++file) {
        if (const QString row = site_.value(file, sql); !row.isEmpty()) {
            return row.toStdString();
        }
    }
    return {};
}

std::string Rules::noUserTwiceOnADoor()
{
    return firstRow(u"SELECT KeyBruker, KeyNummer, count(*) FROM TBLbrukere GROUP BY "
                    "upper(rtrim(KeyBruker)), upper(rtrim(KeyNummer)) HAVING count(*) > 1"_qs);
}

std::string Rules::everyUserIsInTheCatalogue()
{
    return firstRow(u"SELECT KeyBruker FROM TBLbrukere WHERE upper(rtrim(KeyBruker)) NOT IN "
                    "(SELECT upper(rtrim(Bruker)) FROM Katalog)"_qs);
}

/// A lost SMS may leave "Registrerer" for ever: nothing ties an answer to its command. So this asks
/// for the row alone, not for its status.
std::string Rules::whatTheOperatorSawIsThere()
{
    for (int i = 0; i < Site::kModems; ++i) {
        for (const auto &[place, record] : site_.modem(i).store().records()) {
            site_.heard(record.number, record.text); // an old one is read just now, maybe
        }
    }
    for (const auto &[key, order] : site_.orders()) {
        if (order.mustBeThere && !site_.isInTables(order.number, order.door)) {
            return order.number.toStdString() + " on door " + std::to_string(order.door);
        }
    }
    return {};
}

std::string Rules::resultsAreTheirOwn()
{
    for (int file = 0; file < Site::kFiles; ++file) {
        const QStringList rows =
            site_.rows(file, u"SELECT CMGS, TilNummer, SMS_Text FROM SMS_Sent WHERE CMGS GLOB "
                             "'[0-9]*'"_qs);
        for (const QString &row : rows) {
            const QString reference = row.section(u'|', 0, 0).section(u':', 0, 0);
            if (!site_.witness().wasTold(row.section(u'|', 1, 1), lettersOf(row.section(u'|', 2)),
                                         reference)) {
                return row.toStdString();
            }
        }
    }
    return {};
}

/// Only what the program was told of counts: a result that was lost, or that the file did not take,
/// brings the message again.
std::string Rules::commandsGoOutOnce()
{
    std::map<std::pair<QString, QString>, int> sent;
    for (const Witness::Submission &each : site_.witness().submissions()) {
        if (each.isAccepted) {
            sent[{each.to, each.letters}] += each.heard && !each.excused ? 1 : 0;
        }
    }
    for (const auto &[message, times] : sent) {
        const auto &[to, letters] = message;
        int asked = site_.freeTexts().contains(to + u' ' + letters)
                        ? site_.freeTexts().at(to + u' ' + letters)
                        : 0;
        for (const auto &[key, order] : site_.orders()) {
            if (to == site_.door(order.door) && letters.mid(1).startsWith(order.number.mid(3))) {
                asked += letters.startsWith(u'U') ? order.deleted : order.registered;
            }
        }
        if (asked == 0 || times > asked) {
            return "asked " + std::to_string(asked) + " times, sent " + std::to_string(times) +
                   ": " + to.toStdString() + ' ' + letters.toStdString();
        }
    }
    return {};
}

/// What nothing in these weeks touches.
std::string Rules::others(int file)
{
    return site_
        .rows(file, u"SELECT (SELECT count(*) FROM TBLLanguage) || (SELECT group_concat(USER_ID || "
                    "Password || SecurityLevel) FROM Passwords) || (SELECT group_concat(KeyNummer "
                    "|| KeyNavn) FROM KEYTable WHERE Rad <= 4)"_qs)
        .join(u'|')
        .toStdString();
}

std::string Rules::nothingElseChanges()
{
    for (int file = 0; file < Site::kFiles; ++file) {
        if (const std::string now = others(file); now != others_[file].toStdString()) {
            return now;
        }
    }
    return {};
}

std::string Rules::aFailureIsToldOnce()
{
    const auto &boxes = site_.boxes();
    if (boxes.empty() || boxes.back().isAnswer) {
        return {};
    }
    const auto isSame = [&](const Site::Box &box) {
        return !box.isAnswer && box.text == boxes.back().text && boxes.back().at - box.at < 1h;
    };
    return std::ranges::count_if(boxes, isSame) > kOften ? boxes.back().text.toStdString()
                                                         : std::string();
}

std::string Rules::theFileIsWhole()
{
    for (int file = 0; file < Site::kFiles; ++file) {
        if (const QString said = site_.value(file, u"PRAGMA integrity_check"_qs); said != u"ok") {
            return said.toStdString();
        }
    }
    return {};
}

std::string Rules::nothingWaits()
{
    for (int i = 0; i < Site::kModems; ++i) {
        if (!site_.modem(i).store().records().empty()) {
            return "a message in modem " + std::to_string(i);
        }
    }
    return site_.waits(0) ? "something in the queue" : std::string();
}

std::string Rules::theLinkIsIdle()
{
    if (!site_.isUp()) {
        return "the program does not start";
    }
    ModemLink &link = site_.world().modemLink();
    const ModemFlags &flags = link.flags;
    if (flags.QueueRunning || flags.ModemInitRunning || flags.WaitingForCmgs ||
        flags.ReadingMessages || flags.ComposingSms ||
        flags.owner.who() != LineOwner::Who::Nobody) {
        return "a flag stands";
    }
    if (!link.TimerCom->isEnabled() || !link.pace.isRunning() || link.pace.interval() > 60s) {
        return "a timer stands";
    }
    return {};
}

std::string Rules::memoryIsFlat()
{
    const auto widgets = static_cast<size_t>(QApplication::allWidgets().size());
    const long pages = residentPages();
    site_.world().port.written.clear(); // of the doubles
    site_.world().socket.written.clear();
    if (widgets_ == 0) {
        widgets_ = widgets;
        pages_ = pages;
    }
    return widgets > widgets_ || pages > pages_ + kMorePages
               ? std::to_string(widgets) + " widgets, " + std::to_string(pages) + " pages"
               : std::string();
}
