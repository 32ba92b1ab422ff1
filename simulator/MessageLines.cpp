#include "simulator/MessageLines.h"

#include "simulator/GsmAlphabet.h"

#include <algorithm>

namespace {

QByteArray quoted(const QByteArray &text)
{
    return '"' + text + '"';
}

/// yy/MM/dd,hh:mm:ss and the zone in quarters of an hour.
QByteArray stamp(const QDateTime &time)
{
    const int quarters = time.offsetFromUtc() / 900;
    return quoted(time.toString(u"yy/MM/dd,HH:mm:ss").toLatin1() + (quarters < 0 ? '-' : '+') +
                  QByteArray::number(std::abs(quarters)).rightJustified(2, '0'));
}

QByteArray header(const MessageRecord &record, const QByteArray &name = {})
{
    return quoted(record.statusWord()) + ',' + quoted(toGsm(record.number)) + ',' +
           (name.isEmpty() ? name : quoted(name)) + ',';
}

QByteArray reportLine(const MessageRecord &record, bool recipient)
{
    const QByteArray address =
        recipient ? quoted(toGsm(record.number)) + ',' + addressType(record.number) : ",";
    return quoted(record.statusWord()) + ',' + QByteArray::number(record.firstOctet) + ',' +
           QByteArray::number(record.reference) + ',' + address + ',' + stamp(record.stamp) + ',' +
           stamp(record.settledAt) + ',' + QByteArray::number(record.status);
}

} // namespace

QByteArray addressType(const QString &number)
{
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    if (number.startsWith(u'+')) {
        return "145";
    }
    return std::ranges::all_of(number, isDigit) ? "129" : "208";
}

QByteArray listLines(const QByteArray &place, const MessageRecord &record, const ListStyle &style)
{
    const QByteArray start = "+CMGL: " + place + ',';
    if (record.kind == MessageRecord::Kind::Report) {
        return start + reportLine(record, style.details);
    }
    QByteArray lines = start + header(record, style.name);
    if (record.kind == MessageRecord::Kind::Received) {
        lines += stamp(record.stamp);
    }
    if (style.details) {
        lines += ',' + addressType(record.number) + ',' + QByteArray::number(record.text.size());
    }
    return lines + "\r\n" + record.text;
}

QByteArray readLines(const MessageRecord &record, bool details, const QByteArray &serviceCentre)
{
    if (record.kind == MessageRecord::Kind::Report) {
        return "+CMGR: " + reportLine(record, details);
    }
    const bool received = record.kind == MessageRecord::Kind::Received;
    QByteArray lines = "+CMGR: " + header(record);
    if (received) {
        lines += stamp(record.stamp);
    }
    if (details) {
        // Protocol and coding are 0; a record of our own has its validity of 24 hours behind them.
        lines += (received ? "," : "") + addressType(record.number) + ',' +
                 QByteArray::number(record.firstOctet) + (received ? ",0,0," : ",0,0,167,") +
                 quoted(serviceCentre) + ',' + addressType(QString::fromLatin1(serviceCentre)) +
                 ',' + QByteArray::number(record.text.size());
    }
    return lines + "\r\n" + record.text;
}
