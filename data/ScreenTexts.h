#pragma once

#include <QString>

/// The words and messages of frmMain that follow the language. They start in Norwegian; the
/// language pass replaces those for which TBLLanguage holds a text at the position named.
struct ScreenTexts {
    QString nye = QStringLiteral("Nye");                                // 137
    QString alle = QStringLiteral("Alle");                              // 131
    QString gjest = QStringLiteral("Gjest");                            // 150
    QString sendSmsTil = QStringLiteral("Send SMS til :");              // 210
    QString skrivMeldingstekst = QStringLiteral("Skriv meldingstekst"); // 211
    QString velgComPort = QStringLiteral("Velg Com Port");              // 212
    QString compactQuestion = QStringLiteral(                           // 214
        "For å kunne komprimere databasen må du ha alenetilgang. Alle andre brukere av LUKORA må "
        "lukke sine programmer !!!");
    QString compactFailed = QStringLiteral( // 215
        "Feil med komprimering. Sjekk at du har alenetilgang til databasen");
    QString compactDone = QStringLiteral("Databasen er komprimert!!"); // 216
    QString modemIkkeFunnet = QStringLiteral(                          // 217
        "Modem IKKE funnet. Prøv en annen COM port!!");
    QString brukerRegistrert = QStringLiteral( // 219
        "Bruker er allerede registrert!! Vil du registrere en ny periode på samme bruker?");
    QString brukerVenter = QStringLiteral( // 220
        "Bruker ligger allerede til registring!! Vil du registrere en ny periode på samme bruker?");
    QString sjekkNummer = QStringLiteral( // 221
        " SJEKK TELEFON NUMMER FOR RIKTIG ANTALL SIFFER !!!! ");
    QString minstElleve = QStringLiteral( // 222
        " Brukere må ha minst 11 siffer i telefonnummeret !!!");
    QString ventTilSending = QStringLiteral("Vent til SMS sending er ferdig"); // 223
};
