#include "simulator/DoorSentences.h"

#include "simulator/GsmAlphabet.h"

#include <QRegularExpression>

namespace {

constexpr int kMostCodes = 160; ///< of one message
constexpr int kTopCodes = 20;   ///< of its first line: a "[" or "€" takes two

} // namespace

const DoorSentences &sentences(DoorLanguage language)
{
    // The Danish hand-over begins in Norwegian: readers of "Den næste som sender en" know its æ as
    // a letter, and a message brings the alphabet's code.
    static constexpr std::array<DoorSentences, 3> kSentences{{
        {u"er lagt til", u"finnes allerede", u"er slettet", u"finnes ikke", u"Slutt",
         u"Administrator", u"Neste som sender SMS blir ADMIN.", u"Ingen brukere", u"Ingen logg"},
        {u"er opprettet i", u"findes allerede", u"er slettet", u"findes ikke", u"Slut",
         u"Administrator", u"Neste som sender SMS bliver ADMIN.", u"Ingen brugere", u"Ingen log"},
        {u"är upplagt i", u"finns redan", u"är borttagen", u"finns inte", u"Slut", u"Administratör",
         u"Nästa som sänder SMS blir ADMIN.", u"Inga användare", u"Ingen logg"},
    }};
    return kSentences.at(static_cast<size_t>(language));
}

QString topLine(const QString &name, const QString &number)
{
    static const QRegularExpression marks(QStringLiteral("[-/:*,\\n\\r]"));
    QString line = name;
    line.replace(marks, QStringLiteral(" "));
    while (toGsm(line).size() > kTopCodes) {
        line.chop(1);
    }
    return number.isEmpty() ? line : line.leftJustified(11 - number.size());
}

QString administratorReport(const DoorSettings &settings, DoorLanguage language)
{
    const QString &administrator = settings.administrator;
    QStringList lines{topLine(settings.name), sentences(language).administrator.toString(),
                      administrator.isEmpty() ? QStringLiteral("0") : administrator,
                      QStringLiteral("Assistent")};
    for (size_t i = 0; i < settings.assistants.size(); ++i) {
        lines += QStringLiteral("A%1:").arg(i + 1);
        lines += settings.assistants[i];
    }
    // The own number's label has an empty line above it.
    lines += {QString(), QStringLiteral("Eget Nummer"), settings.ownNumber};
    return lines.join(u'\n');
}

QStringList inMessages(const QStringList &records)
{
    QStringList messages;
    for (const QString &record : records) {
        if (messages.isEmpty() || toGsm(messages.last() + record).size() > kMostCodes) {
            messages += QString();
        }
        messages.last() += record;
    }
    return messages;
}
