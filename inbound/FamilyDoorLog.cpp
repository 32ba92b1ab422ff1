// The door tells who opened it. Each entry is a number and a stamp without a year, whose parts have
// one or two digits:
//
//   *91234567
//   5/6,8:30
//   *92345678
//   5/6,9:05

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "inbound/Families.h"
#include "inbound/Interpretation.h"
#include "platform/Text.h"

namespace {

// Every cut of the working text keeps so much and no more.
constexpr int kKept = 200;

struct Entry {
    QString LogCandidate;
    QString day;
    QString month;
    QString hour;
    QString minute;

    /// As a criterion finds it again: without blanks around it.
    QString stamp() const
    {
        return QString(day + u'/' + month + u',' + hour + u':' + minute).trimmed();
    }
};

/// Cuts the stamp from the begin of the working text. A part that cannot be cut keeps the value of
/// the entry before: the last minute of a message always does, since the line reader strips the
/// line feed behind it.
void readStamp(Interpretation &record, Entry &entry)
{
    const QString text = record.text();
    const int slash = inStr(text, u"/"_qs);
    const int comma = inStr(text, u","_qs);
    const int colon = inStr(text, u":"_qs);
    const int lineFeed = inStr(text, u"\n"_qs);
    record.rule.step([&] { entry.day = mid(text, 1, slash - 1); });
    record.rule.step([&] { entry.month = mid(text, slash + 1, comma - slash - 1); });
    record.rule.step([&] { entry.hour = mid(text, comma + 1, colon - comma - 1); });
    record.rule.step([&] { entry.minute = mid(text, colon + 1, lineFeed - colon - 1); });
    for (QString *const part : {&entry.day, &entry.month, &entry.hour, &entry.minute}) {
        if (part->size() == 1) {
            part->prepend(u'0');
        }
    }
    record.setText(mid(text, lineFeed + 1, kKept));
}

/// The same day and minute a year later counts as the same entry: the stamp has no year.
Interpretation::Lookup findEntry(Interpretation &record, const Entry &entry)
{
    Recordset &log = record.recordsets.rsLoggData;
    record.rule.step([&] { log.requery(); });
    return record.rule.lookup([&] {
        return log.findFirst(
            u"Dato"_qs, entry.stamp(),
            {{u"KeyNummer"_qs, record.module.SenderNumber}, {u"KeyUser"_qs, entry.LogCandidate}});
    });
}

void writeEntry(Interpretation &record, const Entry &entry)
{
    QString Etternavn = u"?"_qs;
    QString Fornavn = u"?"_qs;
    if (record.findPerson(entry.LogCandidate) == Interpretation::Lookup::Hit) {
        record.takeName(Etternavn, record.recordsets.rsKatalog, u"Etternavn"_qs);
        record.takeName(Fornavn, record.recordsets.rsKatalog, u"Fornavn"_qs);
    }
    if (findEntry(record, entry) == Interpretation::Lookup::None) {
        record.add(record.recordsets.rsLoggData, {{u"KeyNummer", record.module.SenderNumber},
                                                  {u"KeyUser", entry.LogCandidate},
                                                  {u"Dato", entry.stamp()},
                                                  {u"Etternavn", Etternavn},
                                                  {u"Fornavn", Fornavn}});
    }
}

} // namespace

bool saysDoorLog(const Interpretation &record)
{
    const QString text = record.text();
    return holds(text, u"*"_qs) && holds(text, u"/"_qs) && holds(text, u","_qs) &&
           holds(text, u":"_qs);
}

void readDoorLog(Interpretation &record)
{
    Entry entry;
    // An entry without a line feed is not consumed, and would be read again without end.
    for (QString before; saysDoorLog(record) && record.text() != before;) {
        before = record.text();
        entry.LogCandidate = starredNumber(before);
        if (entry.LogCandidate.isEmpty()) {
            return; // the rest is not read as a log
        }
        record.setText(mid(before, inStr(before, u"*"_qs), kKept));
        const QString fromStar = record.text();
        record.setText(mid(fromStar, inStr(fromStar, u"\n"_qs) + 1, kKept));
        readStamp(record, entry);
        writeEntry(record, entry);
    }
}
