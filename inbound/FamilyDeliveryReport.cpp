// The network's report on a message that was sent, which the modem lists like one (3GPP TS 27.005,
// +CMGL of a status report): behind the first octet, 6, the reference, two empty fields, the time
// of sending, the time of delivery and the status.
//
//   +CMGL: 9,"REC UNREAD",6,45,,,"26/12/01,12:34:56+04","26/12/01,12:34:59+04",0

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "inbound/Families.h"
#include "inbound/Interpretation.h"
#include "platform/Text.h"

namespace {

const QString kNeedle = QStringLiteral(",6,");
constexpr int kStampLength = 17;
constexpr int kLongestReference = 4;

int deliveryRef(const QString &text)
{
    int DeliveryRef = 0;
    for (const QChar digit : mid(text, inStr(text, kNeedle) + 3, kLongestReference)) {
        if (digit < u'0' || digit > u'9') {
            break;
        }
        DeliveryRef = 10 * DeliveryRef + (digit.unicode() - u'0');
    }
    return DeliveryRef;
}

/// The stamp behind these three signs; without them, what stands at the third character.
QString stampBehind(const QString &text, const QString &signs)
{
    return mid(text, inStr(text, signs) + 3, kStampLength);
}

} // namespace

bool saysDeliveryReport(const Interpretation &record)
{
    // Where the needle stands doesn't count: what is left of a received message may hold it too.
    return record.module.MessageIndex > 0 && holds(record.text(), kNeedle);
}

void readDeliveryReport(Interpretation &record)
{
    const QString text = record.text();
    const QString TimeStampA = stampBehind(text, u",,\""_qs);
    const QString TimeStampB = stampBehind(text, u"\",\""_qs);
    // Only the last digit of the status counts, and what is no number counts as 0.
    const QString status = text.right(1);
    const bool delivered = record.rule.test([&] { return toNumber(status) == 0.0; });
    const QString DeliveryResult = delivered ? u"OK"_qs : u"Fail "_qs + status;

    Recordset &sent = record.recordsets.rsSmsSentDone;
    record.rule.step([&] { sent.requery(); });
    const QString reference = QString::number(deliveryRef(text));
    if (!record.rule.found([&] { return sent.findFirst(u"CMGS"_qs, reference); })) {
        return;
    }
    // References come round again: a row that has its report must not answer to its own any more.
    QString CMGS;
    record.rule.step([&] { CMGS = sent.text(u"CMGS"_qs); });
    record.change(sent, {{u"CMGS", CMGS + u':' + DeliveryResult},
                         {u"TimeSent", TimeStampA},
                         {u"TimeReceived", TimeStampB},
                         {u"ReceivedStatus", DeliveryResult}});
}
