#include "modem/QueueWords.h"

#include "data/Connection.h"
#include "data/Criteria.h"
#include "data/Module1.h"
#include "modem/ModemLink.h"
#include "platform/Rules.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

constexpr int kRecipientsTold = 5;
constexpr milliseconds kPatience = 100ms;

QString words(const char *text)
{
    return QCoreApplication::translate("QueueWords", text);
}

QString whenNext(const Module1 &module, const ModemLink &link, const QDateTime &now)
{
    if (link.flags.QueueRunning) {
        return words("En melding sendes nå.");
    }
    if (!module.ModemReady || link.flags.ModemInitRunning || !link.pace.isRunning()) {
        return words("Ingenting sendes før modemet er klart.");
    }
    if (link.flags.ComposingSms) {
        return words("Ingenting sendes så lenge en SMS blir skrevet.");
    }
    const QDateTime next = now.addMSecs(link.pace.untilTick().count());
    return words("Neste melding sendes ca. kl. %1.").arg(next.toString(u"HH:mm:ss"_qs));
}

} // namespace

QString queueWords(const Module1 &module, const ModemLink &link, const QDateTime &now)
{
    QStringList lines;
    kept([&] {
        qint64 waiting = 0;
        int recipients = 0;
        if (!module.DatabaseConnection) {
            return;
        }
        module.DatabaseConnection->another(kPatience)->run(
            // The name is that of any of his messages.
            u"SELECT TilNummer, count(*), trim(coalesce(Fornavn, '') || ' ' || "
            "coalesce(Etternavn, '')) FROM SMS_Sent WHERE "_qs +
                equals(u"CMGS"_qs) + u" GROUP BY TilNummer ORDER BY min(DatoLNG), min(ID)"_qs,
            {u"UNSENT"_qs}, [&](const QVariantList &row) {
                waiting += row[1].toLongLong();
                if (++recipients <= kRecipientsTold) {
                    const QString number = row[0].toString();
                    const QString name = row[2].toString();
                    lines +=
                        u"%1: %2"_qs.arg(name.isEmpty() ? number : name + u" ("_qs + number + u')',
                                         row[1].toString());
                }
            });
        if (recipients > kRecipientsTold) {
            lines += words("og %1 mottakere til").arg(recipients - kRecipientsTold);
        }
        lines.prepend(waiting == 0   ? words("Ingen meldinger venter på å bli sendt.")
                      : waiting == 1 ? words("1 melding venter på å bli sendt:")
                                     : words("%1 meldinger venter på å bli sendt:").arg(waiting));
        if (waiting > 0) {
            lines += whenNext(module, link, now);
        }
    });
    return lines.join(u'\n');
}
