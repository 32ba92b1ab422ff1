#include "data/LanguageTable.h"

#include "data/Connection.h"
#include "data/ScreenTexts.h"
#include "platform/RuntimeFailure.h"
#include "platform/Text.h"

#include <QCoreApplication>

#include <map>

namespace {

QString languageColumn(const QString &CountryCode)
{
    static const std::map<QString, QString> kColumns = {
        {QStringLiteral("47"), QStringLiteral("Norsk")},
        {QStringLiteral("46"), QStringLiteral("Svensk")},
        {QStringLiteral("45"), QStringLiteral("Dansk")},
    };
    const auto column = kColumns.find(CountryCode);
    if (column == kColumns.end()) {
        throw RuntimeFailure(
            QCoreApplication::translate("LanguageTable", "Landskode %1 har ikke noe språk")
                .arg(CountryCode));
    }
    return column->second;
}

} // namespace

void readLanguage(Connection &connection, const QString &CountryCode,
                  const std::function<void(quint8, const QString &)> &use)
{
    int position = 0;
    connection.run(QStringLiteral("SELECT [%1] FROM TBLLanguage").arg(languageColumn(CountryCode)),
                   {}, [&](const QVariantList &row) {
                       const quint8 place = byteOf(++position);
                       if (const QString text = row[0].toString(); !text.isEmpty()) {
                           use(place, text);
                       }
                   });
}

void applyWord(ScreenTexts &texts, quint8 position, const QString &text)
{
    static const std::map<quint8, QString ScreenTexts::*> kWords = {
        {131, &ScreenTexts::alle},
        {137, &ScreenTexts::nye},
        {150, &ScreenTexts::gjest},
        {210, &ScreenTexts::sendSmsTil},
        {211, &ScreenTexts::skrivMeldingstekst},
        {212, &ScreenTexts::velgComPort},
        {214, &ScreenTexts::compactQuestion},
        {215, &ScreenTexts::compactFailed},
        {216, &ScreenTexts::compactDone},
        {217, &ScreenTexts::modemIkkeFunnet},
        {219, &ScreenTexts::brukerRegistrert},
        {220, &ScreenTexts::brukerVenter},
        {221, &ScreenTexts::sjekkNummer},
        {222, &ScreenTexts::minstElleve},
        {223, &ScreenTexts::ventTilSending},
    };
    if (const auto word = kWords.find(position); word != kWords.end()) {
        texts.*word->second = text;
    }
}
