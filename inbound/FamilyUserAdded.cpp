// The door holds a user now: it has added him, or says that it has him already. Below a first line
// of any text, with everything but the phrase optional:
//
//   Dør
//   91234567 er lagt til A-2
//   FRA : 12/05-2026 08:00
//   TIL : 31/12-2026 16:00
//   SALDO: 100
//   Slutt

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "inbound/Families.h"
#include "inbound/Interpretation.h"
#include "platform/Text.h"

namespace {

constexpr QStringView kPhrases[] = {
    u"er lagt til",    u"finnes allerede", // Norwegian
    u"{r upplagt i",   u"finns redan",     // Swedish, ä being code 123
    u"er opprettet i", u"findes allerede", // Danish
};

// Every cut of the working text keeps so much and no more.
constexpr int kKept = 99;

struct Report {
    QString ReplyNumber;
    QString ValidFrom;
    QString ValidTo;
    QString FromHour = u"00"_qs;
    QString ToHour = u"24"_qs;
    QString AccountWord = u"MobReg"_qs;
    QString BalanceText = u"0"_qs;
};

Report startingValues(const Interpretation &record)
{
    Report report;
    report.ValidFrom = record.today.toString(record.dateFormat);
    // The system may print its dates with other separators; only these two are taken over.
    const QString separator = report.ValidFrom.contains(u'/') ? u"/"_qs : u"."_qs;
    report.ValidTo = u"31"_qs + separator + u"12"_qs + separator + u"2099"_qs;
    return report;
}

/// The slot "A-" and a character makes the user an administrator of the door. Anything but the
/// digit zero counts, a missing character too.
void readMark(Interpretation &record, Report &report)
{
    const QString text = record.text();
    const int a = inStr(text, u"A-"_qs);
    if (a == 0) {
        return;
    }
    const QString mark = mid(text, a + 2, 1);
    if (record.rule.test([&] { return toNumber(mark) != 0.0; })) {
        record.StatusSuffix = u" A"_qs + mark;
        report.AccountWord = u"ADMIN-"_qs + mark;
        record.setText(mid(text, a + 2, kKept));
    }
}

/// One end of the period, from the word at this position to its ":00".
void readPeriodEnd(Interpretation &record, int word, QString &date, QString &hour)
{
    // Existing files hold the dates of such replies with these very words between the parts.
    const QString separator = u" & DATOSKILLETEGN & "_qs;
    const QString text = record.text();
    const int slash = inStr(text, u"/"_qs);
    const int dash = inStr(text, u"-"_qs);
    const int minutes = inStr(text, u":00"_qs);
    // "FRA :" has five characters and "Från" four: the Swedish word is expected with a colon or
    // blank behind it.
    const int day = word + 5;
    record.rule.step([&] {
        date = mid(text, day, slash - day) + separator + mid(text, slash + 1, dash - slash - 1) +
               separator + mid(text, dash + 1, 4);
    });
    record.rule.step([&] { hour = mid(text, dash + 6, minutes - dash - 6); });
    if (hour.size() == 1) {
        hour.prepend(u'0');
    }
    record.setText(mid(text, minutes + 3, kKept));
}

void readPeriod(Interpretation &record, Report &report)
{
    constexpr QStringView kFrom[] = {u"FRA :", u"Från"};
    constexpr QStringView kTo[] = {u"TIL :", u"Till"};
    if (const int from = phrasePosition(record.text(), kFrom); from > 0) {
        readPeriodEnd(record, from, report.ValidFrom, report.FromHour);
    }
    if (const int to = phrasePosition(record.text(), kTo); to > 0) {
        readPeriodEnd(record, to, report.ValidTo, report.ToHour);
    }
}

void readBalance(Interpretation &record, Report &report)
{
    const int balance = inStr(record.text(), u"SALDO:"_qs);
    if (balance == 0) {
        return;
    }
    record.setText(mid(record.text(), balance, kKept));
    // The line reader strips line feeds from the end, so a balance on the last line has none
    // behind it: that cut fails, and the balance stays "0".
    record.rule.step([&] {
        const QString text = record.text();
        const int colon = inStr(text, u":"_qs);
        report.BalanceText = mid(text, colon + 1, inStr(text, u"\n"_qs) - colon - 1);
    });
    report.AccountWord = u"Saldo"_qs;
}

void writeUser(Interpretation &record, const Report &report, const QString &CatalogKey)
{
    Recordset &users = record.recordsets.rsBrukereAll;
    const QString status = u"Aktiv"_qs + record.StatusSuffix;
    const Interpretation::Lookup user = record.findUserOnDoor(CatalogKey);
    if (user == Interpretation::Lookup::Failed) {
        return;
    }
    if (user == Interpretation::Lookup::None) {
        record.add(users, {{u"KeyBruker", CatalogKey},
                           {u"Status", status},
                           {u"KeyNummer", record.module.SenderNumber},
                           {u"Gyldig fra", report.ValidFrom},
                           {u"Gyldig til", report.ValidTo},
                           {u"FraTid", report.FromHour},
                           {u"TilTid", report.ToHour},
                           {u"Konto", report.AccountWord},
                           {u"Saldo", report.BalanceText}});
        return;
    }
    // A known user keeps his account, whatever mark the reply bears, unless it tells a balance;
    // his balance is always taken over, and a reply without one sets it back to "0".
    if (report.AccountWord == u"Saldo") {
        record.rule.step([&] { users.setValue(u"Konto"_qs, report.AccountWord); });
    }
    record.change(users, {{u"Status", status},
                          {u"Gyldig fra", report.ValidFrom},
                          {u"Gyldig til", report.ValidTo},
                          {u"FraTid", report.FromHour},
                          {u"TilTid", report.ToHour},
                          {u"Saldo", report.BalanceText}});
}

} // namespace

bool saysUserAdded(const Interpretation &record)
{
    return phrasePosition(record.text(), kPhrases) > 0;
}

void readUserAdded(Interpretation &record)
{
    Report report = startingValues(record);
    record.StatusSuffix = u" "_qs;
    record.rule.step([&] {
        const QString text = record.text();
        report.ReplyNumber = numberBefore(text, phrasePosition(text, kPhrases));
    });
    readMark(record, report);
    readPeriod(record, report);
    readBalance(record, report);
    // The blank between number and phrase goes into the rows of a new person with the number.
    writeUser(record, report, record.catalogKey(report.ReplyNumber));
}
