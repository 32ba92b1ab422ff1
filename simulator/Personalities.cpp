#include "simulator/Personalities.h"

#include "platform/RuntimeFailure.h"

#include <QStringList>

namespace {

using Faults = ModemFaults;
using Numbers = QList<int>;

FaultCount times(const Numbers &numbers, qsizetype place = 0)
{
    return numbers.size() > place ? FaultCount::times(numbers[place]) : FaultCount::always();
}

milliseconds time(const Numbers &numbers, int byDefault)
{
    return milliseconds(numbers.value(0, byDefault));
}

constexpr Personality kTable[] = {
    {u"mute", u"", u"the modem neither hears nor speaks",
     [](Faults &f, const Numbers &) { f.mute = true; }},
    {u"slow", u"[MS]", u"one character in so many milliseconds (20)",
     [](Faults &f, const Numbers &n) { f.perCharacter = time(n, 20); }},
    {u"slowlines", u"[MS]", u"one line in so many milliseconds (3000)",
     [](Faults &f, const Numbers &n) { f.perLine = time(n, 3000); }},
    {u"split", u"", u"each character in a piece of its own",
     [](Faults &f, const Numbers &) { f.split = true; }},
    {u"glued", u"[MS]", u"answers of so many milliseconds (300) in one piece",
     [](Faults &f, const Numbers &n) { f.heldBack = time(n, 300); }},
    {u"blanklines", u"", u"two more empty lines at each line end",
     [](Faults &f, const Numbers &) { f.lineEnd = "\r\n\r\n\r\n"; }},
    {u"lfonly", u"", u"lines end in LF", [](Faults &f, const Numbers &) { f.lineEnd = "\n"; }},
    {u"crcrlf", u"", u"lines end in CR CR LF",
     [](Faults &f, const Numbers &) { f.lineEnd = "\r\r\n"; }},
    {u"echo", u"", u"the echo cannot be switched off",
     [](Faults &f, const Numbers &) { f.echoStuck = true; }},
    {u"garbage", u"", u"noise instead of answers",
     [](Faults &f, const Numbers &) { f.garbage = true; }},
    {u"noticefirst", u"[TIMES]", u"an unsolicited line between command and answer",
     [](Faults &f, const Numbers &n) { f.lineBeforeAnswer = times(n); }},
    {u"noticeinrecord", u"[TIMES]", u"an unsolicited line between header and body",
     [](Faults &f, const Numbers &n) { f.lineInRecord = times(n); }},
    {u"noticeinlisting", u"[TIMES]", u"an unsolicited line behind any line of a listing",
     [](Faults &f, const Numbers &n) { f.lineInListing = times(n); }},
    {u"noblanks", u"", u"no blank behind \"+CMGS:\", \"+CMGL:\" and the notices",
     [](Faults &f, const Numbers &) { f.noBlanks = true; }},
    {u"noticeinsubmission", u"[TIMES]", u"an unsolicited line between text and answer",
     [](Faults &f, const Numbers &n) { f.lineInSubmission = times(n); }},
    {u"bareprompt", u"", u"a prompt without its blank",
     [](Faults &f, const Numbers &) { f.prompt = "\r\n>"; }},
    {u"lateprompt", u"[MS]", u"the prompt takes so many milliseconds (3000)",
     [](Faults &f, const Numbers &n) { f.promptDelay = time(n, 3000); }},
    {u"noprompt", u"[TIMES]", u"no prompt for a text",
     [](Faults &f, const Numbers &n) { f.noPrompt = times(n); }},
    {u"refuse", u"[NUMBER [TIMES]]", u"submissions end in +CMS ERROR: NUMBER (500; 0: ERROR)",
     [](Faults &f, const Numbers &n) {
         f.refusalNumber = n.value(0, 500);
         f.refuseSubmission = times(n, 1);
     }},
    {u"lateanswer", u"[MS]", u"messages are answered so many milliseconds (14000) late",
     [](Faults &f, const Numbers &n) { f.answerDelay = time(n, 14'000); }},
    {u"lost", u"[TIMES]", u"messages go out, but their answers are lost",
     [](Faults &f, const Numbers &n) { f.loseAnswer = times(n); }},
    {u"drop", u"[TIMES]", u"the line drops behind the prompt",
     [](Faults &f, const Numbers &n) { f.dropAtPrompt = times(n); }},
    {u"reset", u"[TIMES]", u"the modem starts anew behind a text, as AT&W left it",
     [](Faults &f, const Numbers &n) { f.restart = times(n); }},
    {u"forget", u"[TIMES]", u"the modem starts anew behind a text, as the factory left it",
     [](Faults &f, const Numbers &n) { f.restartForgetful = times(n); }},
    {u"nomt", u"", u"no storage \"MT\"", [](Faults &f, const Numbers &) { f.refuseMt = true; }},
    {u"nosm", u"", u"no storage \"SM\"", [](Faults &f, const Numbers &) { f.refuseSm = true; }},
    {u"noreports", u"", u"no status reports",
     [](Faults &f, const Numbers &) { f.refuseReports = true; }},
    {u"full", u"", u"no room for messages", [](Faults &f, const Numbers &) { f.storeFull = true; }},
    {u"firstplace", u"NUMBER", u"the places of the storage count from NUMBER",
     [](Faults &f, const Numbers &n) { f.firstPlace = n.value(0, 0); }},
    {u"wrongplace", u"", u"messages are said to be one place further on",
     [](Faults &f, const Numbers &) { f.wrongPlace = true; }},
    {u"nodelete", u"[TIMES]", u"nothing can be deleted",
     [](Faults &f, const Numbers &n) { f.refuseDeletion = times(n); }},
    {u"silentdelete", u"[TIMES]", u"what is deleted is not confirmed",
     [](Faults &f, const Numbers &n) { f.silentDeletion = times(n); }},
    {u"tellsfull", u"", u"no word of new messages, only of a full storage",
     [](Faults &f, const Numbers &) { f.tellsFullOnly = true; }},
    {u"pdu", u"", u"a modem that forgets its settings lists in PDU mode",
     [](Faults &f, const Numbers &) { f.forgetsTextMode = true; }},
    {u"names", u"", u"messages name their sender by the modem's phone book",
     [](Faults &f, const Numbers &) { f.phoneBookName = "Nord\x0fs, Kari"; }},
    {u"recipient", u"", u"status reports name their recipient",
     [](Faults &f, const Numbers &) { f.recipientInReports = true; }},
};

} // namespace

constinit const std::span<const Personality> kPersonalities{kTable};

void addPersonality(ModemFaults &faults, const QString &words)
{
    const QStringList parts = words.split(u' ', Qt::SkipEmptyParts);
    QList<int> numbers;
    for (const QString &part : parts.mid(1)) {
        bool isNumber = false;
        numbers += part.toInt(&isNumber);
        if (!isNumber || numbers.back() < 0) {
            throw RuntimeFailure(QStringLiteral("The values of a fault are numbers from 0 up"));
        }
    }
    for (const Personality &each : kPersonalities) {
        if (each.name == parts.value(0)) {
            each.set(faults, numbers);
            return;
        }
    }
    throw RuntimeFailure(QStringLiteral("Unknown fault %1; try help").arg(parts.value(0)));
}
