#include "data/LanguageRows.h"

namespace {

struct Text {
    std::size_t position;
    const char16_t *norsk;
    const char16_t *dansk;
    const char16_t *svensk;
};

// clang-format off
constexpr Text kTexts[] = {
    // Menus. The letter behind & is no other entry's in its menu.
    {1, u"&Fil", u"&Fil", u"&Arkiv"},
    {2, u"Skriv &ut...", u"&Udskriv...", u"Skriv &ut..."},
    {3, u"&Database", u"&Database", u"&Databas"},
    {4, u"&Komprimer database", u"&Komprimer database", u"&Komprimera databas"},
    {5, u"&Avslutt", u"&Afslut", u"&Avsluta"},
    {6, u"&KEY", u"&KEY", u"&KEY"},
    {7, u"KEY Data", u"KEY Data", u"KEY Data"},
    {8, u"KEY Logg", u"KEY Log", u"KEY Logg"},
    {9, u"KEY Oppsett", u"KEY Opsætning", u"KEY Inställningar"},
    {10, u"Passord", u"Adgangskoder", u"Lösenord"},
    {11, u"Ka&talog", u"Ka&talog", u"Ka&talog"},
    {12, u"Katalog", u"Katalog", u"Katalog"},
    {13, u"&SMS", u"&SMS", u"&SMS"},
    {14, u"Sendt", u"Sendt", u"Skickat"},
    {15, u"Mottatt", u"Modtaget", u"Mottaget"},
    {16, u"Utboks", u"Udbakke", u"Utkorg"},
    {17, u"Sendingsbekreftelse", u"Leveringsrapport", u"Leveransrapport"},
    {18, u"Av", u"Fra", u"Av"},
    {19, u"På", u"Til", u"På"},
    {20, u"&ComPort", u"&ComPort", u"&ComPort"},
    {21, u"Com&1", u"Com&1", u"Com&1"},
    {22, u"Com&2", u"Com&2", u"Com&2"},
    {23, u"Com&3", u"Com&3", u"Com&3"},
    {24, u"Com&4", u"Com&4", u"Com&4"},
    // 25 would replace the number that the entry of another port shows from the start on.
    {25, u"", u"", u""},
    {26, u"&Ingen", u"&Ingen", u"&Ingen"},
    {27, u"Sp&råk", u"Sp&rog", u"Sp&råk"},
    {28, u"&Norsk", u"&Norsk", u"&Norska"},
    {29, u"&Dansk", u"&Dansk", u"&Danska"},
    {30, u"&Svensk", u"&Svensk", u"&Svenska"},
    {31, u"&Hjelp", u"&Hjælp", u"&Hjälp"},
    {32, u"&Hjelp", u"&Hjælp", u"&Hjälp"},
    {33, u"&Om Lukora", u"&Om Lukora", u"&Om Lukora"},
    {34, u"Skriv ut brukere", u"Udskriv brugere", u"Skriv ut användare"},
    {35, u"Skriv ut katalog", u"Udskriv katalog", u"Skriv ut katalog"},
    {36, u"Skriv ut logg", u"Udskriv log", u"Skriv ut logg"},
    {37, u"Skriv ut KEY", u"Udskriv KEY", u"Skriv ut KEY"},

    // Labels and buttons of the main screen.
    {38, u"&Nummer", u"&Nummer", u"&Nummer"},
    {39, u"&Etternavn", u"&Efternavn", u"&Efternamn"},
    {40, u"F&ornavn", u"F&ornavn", u"&Förnamn"},
    {41, u"&Gyldig fra", u"&Gyldig fra", u"&Giltig från"},
    {42, u"Gyl&dig til", u"Gyl&dig til", u"Gi&ltig till"},
    {43, u"Tidsp&unkt", u"Tidsp&unkt", u"Ti&dpunkt"},
    {44, u"Konto", u"Konto", u"Konto"},
    {45, u"St&atus", u"St&atus", u"Stat&us"},
    {46, u"Brukerdata", u"Brugerdata", u"Användardata"},
    {47, u"KEY data", u"KEY data", u"KEY data"},
    {48, u"KEY navn", u"KEY navn", u"KEY namn"},
    {49, u"Modemstatus", u"Modemstatus", u"Modemstatus"},
    {50, u"Innkommende SMS", u"Indgående SMS", u"Inkommande SMS"},
    {51, u"Nummer", u"Nummer", u"Nummer"},
    {52, u"Fra", u"Fra", u"Från"},
    {53, u"Dato", u"Dato", u"Datum"},
    {54, u"&Melding", u"&Besked", u"&Meddelande"},
    {55, u"Brukertabell", u"Brugertabel", u"Användartabell"},
    {56, u"N&y Bruker", u"N&y Bruger", u"N&y Användare"},
    {57, u"Registrer / Oppdater &Bruker", u"Reg&istrer / Opdater Bruger", u"Reg&istrera / Uppdatera Användare"},
    {58, u"S&lett Bruker", u"S&let Bruger", u"Ta &bort Användare"},
    {59, u"Send SMS til D&ØR", u"Send SMS til D&ØR", u"Skicka SMS till D&ÖRR"},
    {60, u"Send SMS t&il Bruker", u"Send S&MS til Bruger", u"Skicka SMS till Anv&ändare"},

    // Buttons of the table screens. The designed Norwegian captions of 108 and 109 differ from
    // screen to screen, so nothing replaces those. The letters behind & differ from each other
    // within a language; L and K are those of other buttons.
    {108, u"", u"&Afslut", u"&Avsluta"},
    {109, u"", u"&Opdater", u"&Uppdatera"},
    {110, u"&Slett", u"&Slet", u"&Ta bort"},

    // Columns of the table screens, and the label above the text of a message.
    {111, u"ID", u"ID", u"ID"},
    {112, u"Til", u"Til", u"Till"},
    {113, u"Dato", u"Dato", u"Datum"},
    {114, u"Fornavn", u"Fornavn", u"Förnamn"},
    {115, u"Etternavn", u"Efternavn", u"Efternamn"},
    {116, u"Tekst", u"Tekst", u"Text"},
    {117, u"Meld.No", u"Medd.nr.", u"Medd.nr"},
    {118, u"Tid Sendt", u"Tid Sendt", u"Tid Skickat"},
    {119, u"Tid Mottatt", u"Tid Modtaget", u"Tid Mottaget"},
    {120, u"Status", u"Status", u"Status"},
    {121, u"SMS TEKST", u"SMS-TEKST", u"SMS-TEXT"},
    {122, u"Bruker", u"Bruger", u"Användare"},
    {123, u"Kortnummer", u"Kortnummer", u"Kortnummer"},
    {128, u"Dør", u"Dør", u"Dörr"},

    // Words of the tab strip, and between them the buttons that fetch a door's log.
    {131, u"Alle", u"Alle", u"Alla"},
    {132, u"Hent LOGG(5)", u"Hent LOG(5)", u"Hämta LOGG(5)"},
    {133, u"Hent LOGG(10)", u"Hent LOG(10)", u"Hämta LOGG(10)"},
    {134, u"Hent LOGG(25)", u"Hent LOG(25)", u"Hämta LOGG(25)"},
    {135, u"Hent LOGG(50)", u"Hent LOG(50)", u"Hämta LOGG(50)"},
    {136, u"Hent LOGG(100)", u"Hent LOG(100)", u"Hämta LOGG(100)"},
    {137, u"Nye", u"Nye", u"Nya"},

    // Tool tips of the main screen.
    {143, u"Klargjør feltene for en ny bruker", u"Gør felterne klar til en ny bruger",
          u"Gör fälten klara för en ny användare"},
    {144, u"Registrerer eller oppdaterer brukeren på valgt dør",
          u"Registrerer eller opdaterer brugeren på den valgte dør",
          u"Registrerar eller uppdaterar användaren på vald dörr"},
    {145, u"Sender SMS kommandoer til dør eller port",
          u"Sender SMS-kommandoer til dør eller port",
          u"Skickar SMS-kommandon till dörr eller port"},
    {146, u"Send SMS til valgt bruker", u"Send SMS til den valgte bruger",
          u"Skicka SMS till vald användare"},
    {147, u"Velg konto for visning i tabell", u"Vælg konto til visning i tabellen",
          u"Välj konto att visa i tabellen"},
    {148, u"Sortering velges ved å klikke på overskriftene",
          u"Sortering vælges ved at klikke på overskrifterne",
          u"Sortering väljs genom att klicka på rubrikerna"},
    {149, u"Sletter brukeren fra valgt dør", u"Sletter brugeren fra den valgte dør",
          u"Tar bort användaren från vald dörr"},
    {150, u"Gjest", u"Gæst", u"Gäst"},

    // Words of the dialogues and messages.
    {210, u"Send SMS til :", u"Send SMS til :", u"Skicka SMS till :"},
    {211, u"Skriv meldingstekst", u"Skriv beskedtekst", u"Skriv meddelandetext"},
    {212, u"Velg Com Port", u"Vælg Com Port", u"Välj Com Port"},
    {214, u"For å kunne komprimere databasen må du ha alenetilgang. Alle andre brukere av LUKORA "
          u"må lukke sine programmer !!!",
          u"For at kunne komprimere databasen skal du have eneadgang. Alle andre brugere af LUKORA "
          u"skal lukke deres programmer !!!",
          u"För att kunna komprimera databasen måste du vara ensam om den. Alla andra användare av "
          u"LUKORA måste stänga sina program !!!"},
    {215, u"Feil med komprimering. Sjekk at du har alenetilgang til databasen",
          u"Fejl ved komprimering. Kontrollér, at du har eneadgang til databasen",
          u"Fel vid komprimering. Kontrollera att du är ensam om databasen"},
    {216, u"Databasen er komprimert!!", u"Databasen er komprimeret!!",
          u"Databasen är komprimerad!!"},
    {217, u"Modem IKKE funnet. Prøv en annen COM port!!",
          u"Modem IKKE fundet. Prøv en anden COM-port!!",
          u"Modemet hittades INTE. Prova en annan COM-port!!"},
    {219, u"Bruker er allerede registrert!! Vil du registrere en ny periode på samme bruker?",
          u"Brugeren er allerede registreret!! Vil du registrere en ny periode på samme bruger?",
          u"Användaren är redan registrerad!! Vill du registrera en ny period för samma "
          u"användare?"},
    {220, u"Bruker ligger allerede til registring!! Vil du registrere en ny periode på samme "
          u"bruker?",
          u"Brugeren venter allerede på registrering!! Vil du registrere en ny periode på samme "
          u"bruger?",
          u"Användaren väntar redan på registrering!! Vill du registrera en ny period för samma "
          u"användare?"},
    {221, u" SJEKK TELEFON NUMMER FOR RIKTIG ANTALL SIFFER !!!! ",
          u" KONTROLLÉR, AT TELEFONNUMMERET HAR DET RIGTIGE ANTAL CIFRE !!!! ",
          u" KONTROLLERA ATT TELEFONNUMRET HAR RÄTT ANTAL SIFFROR !!!! "},
    {222, u" Brukere må ha minst 11 siffer i telefonnummeret !!!",
          u" Brugere skal have mindst 11 cifre i telefonnummeret !!!",
          u" Användare måste ha minst 11 siffror i telefonnumret !!!"},
    {223, u"Vent til SMS sending er ferdig", u"Vent, til SMS-afsendelsen er færdig",
          u"Vänta tills SMS-sändningen är klar"},

    // More tool tips of the main screen.
    {225, u"Telefonnummeret til valgt dør eller port",
          u"Telefonnummeret til den valgte dør eller port",
          u"Telefonnumret till vald dörr eller port"},
    {226, u"Navnet på valgt dør eller port", u"Navnet på den valgte dør eller port",
          u"Namnet på vald dörr eller port"},
    {227, u"Dobbeltklikk for å endre status", u"Dobbeltklik for at ændre status",
          u"Dubbelklicka för att ändra status"},

    // The last of the menus, and the network's and the modem's group.
    {228, u"&NettverksModem", u"&NetværksModem", u"&NätverksModem"},
    {229, u"Språk&tabell", u"Sprog&tabel", u"Språk&tabell"},
    {230, u"Nettverksmodem", u"Netværksmodem", u"Nätverksmodem"},
    {231, u"&Vertsnavn", u"&Værtsnavn", u"&Värdnamn"},
    {232, u"&Port", u"&Port", u"&Port"},
    {233, u"Vertsnavn eller IP-adresse", u"Værtsnavn eller IP-adresse",
          u"Värdnamn eller IP-adress"},
    {234, u"TCP-port, 23 for telnet", u"TCP-port, 23 for telnet", u"TCP-port, 23 för telnet"},
    {235, u"Koble til", u"Opret forbindelse", u"Anslut"},
    {236, u"Koble fra", u"Afbryd forbindelse", u"Koppla från"},
    {237, u"Send AT kommando", u"Send AT-kommando", u"Skicka AT-kommando"},
    {238, u"Start Modem", u"Start modem", u"Starta modem"},
    {239, u"Modemet er av. Klikk for å vise modemkommunikasjonen",
          u"Modemmet er slukket. Klik for at vise modemkommunikationen",
          u"Modemet är av. Klicka för att visa modemkommunikationen"},
    {240, u"Modemet er på. Klikk for å vise modemkommunikasjonen",
          u"Modemmet er tændt. Klik for at vise modemkommunikationen",
          u"Modemet är på. Klicka för att visa modemkommunikationen"},
    {241, u"Fabrikat", u"Fabrikat", u"Tillverkare"},
    {242, u"Antall adganger igjen; over 0 gir en bruker med saldo",
          u"Antal adgange tilbage; over 0 giver en bruger med saldo",
          u"Antal inpasseringar kvar; över 0 ger en användare med saldo"},
};
// clang-format on

} // namespace

std::vector<LanguageRow> languageRows()
{
    std::vector<LanguageRow> rows(kTexts[std::size(kTexts) - 1].position);
    for (const Text &text : kTexts) {
        rows[text.position - 1] = {QString::fromUtf16(text.norsk), QString::fromUtf16(text.dansk),
                                   QString::fromUtf16(text.svensk)};
    }
    return rows;
}
