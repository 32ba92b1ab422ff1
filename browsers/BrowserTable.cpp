#include "browsers/BrowserTable.h"

#include <QtGlobal>

// The captions marked for translation are replaced by the catalogue of messages; those with a
// position by TBLLanguage.
#define CAPTION(text) QT_TRANSLATE_NOOP("BrowserTable", text)

namespace {

using Column = BrowserColumn;
using Table = BrowserTable;

// clang-format off

// Who somebody is may be put right here; the number is the key, and the rest is counted or cut
// from it.
constexpr BrowserColumn kBrukereColumns[] = {
    {"Bruker",      CAPTION("Bruker"),      0,   "bruker"},
    {"Etternavn",   CAPTION("Etternavn"),   0,   "etternavn",   Column::Edited},
    {"Fornavn",     CAPTION("Fornavn"),     0,   "fornavn",     Column::Edited},
    {"Gate",        CAPTION("Gate"),        0,   "gate",        Column::Edited},
    {"Postnummer",  CAPTION("PostNr."),     0,   "postnummer",  Column::Edited},
    {"Poststed",    CAPTION("Sted"),        0,   "poststed",    Column::Edited},
    {"Tillatelser", CAPTION("Tillatelser"), 0,   "tillatelser"},
    {"BrukerKort",  "",                     123},
};
constexpr BrowserButton kBrukereButtons[] = {
    {"cmdDelete",  CAPTION("&Slett")},
    {"cmdRefresh", CAPTION("&Opp&frisk")}, // two marks, as designed; the second one counts
    {"cmdClose",   CAPTION("&Avslutt")},
};

// "Til" over the senders, too: the two lists share the row of TBLLanguage.
constexpr BrowserColumn kSMSReceivedColumns[] = {
    {"ID",            "ID",        111},
    {"FraNummerkort", "Til",       112},
    {"Etternavn",     "Etternavn", 115},
    {"Fornavn",       "Fornavn",   114},
    {"Dato",          "Dato",      113},
    {"SMS_Text",      "Tekst",     116, nullptr, Column::Wrapped},
};
constexpr BrowserButton kSMSReceivedButtons[] = {
    {"cmdAdd",     CAPTION("&Legg til")},
    {"cmdEdit",    CAPTION("&Rediger")},
    {"cmdDelete",  "&Slett",    110},
    {"cmdRefresh", "&Oppdater", 109},
    {"cmdClose",   "&Avslutt",  108},
    {"cmdUpdate",  CAPTION("&Update")},
    {"cmdCancel",  CAPTION("&Cancel")},
};

constexpr BrowserColumn kSMSSentColumns[] = {
    {"ID",             "ID",          111, "ID"},
    {"TilNummerkort",  "Til",         112, "tilnummerkort"},
    {"Dato",           "Dato",        113, "dato"},
    {"fornavn",        "Fornavn",     114, "fornavn"},
    {"etternavn",      "Etternavn",   115, "etternavn"},
    {"SMS_Text",       "Tekst",       116, "SMS_text"},
    {"CMGS",           "Meld.No",     117, "CMGS"},
    {"TimeSent",       "Tid Sendt",   118},
    {"TimeReceived",   "Tid Mottatt", 119},
    {"Receivedstatus", "Status",      120},
};
constexpr BrowserButton kSMSSentButtons[] = {
    {"cmdDelete",  "&Slett",     110},
    {"cmdRefresh", "Opp&frisk",  109},
    {"cmdClose",   "&Avslutt",   108},
};

constexpr BrowserColumn kKEYColumns[] = {
    {"KeyNummer",    CAPTION("Dør Nummer"),     0, nullptr, Column::Edited, 80},
    {"KeyNavn",      CAPTION("Dør Navn"),       0, nullptr, Column::Edited, 160},
    {"Bygning",      CAPTION("Bygning"),        0, nullptr, Column::Edited, 160},
    {"KeySikkerhet", CAPTION("Sikkerhetsnivå"), 0, nullptr, Column::Edited, 90},
    {"Beskrivelse",  "", 0, nullptr, Column::Hidden},
    {"Alarmstatus",  "", 0, nullptr, Column::Hidden},
    {"KeyStatus",    "", 0, nullptr, Column::Hidden},
    {"Tekst1",       "", 0, nullptr, Column::Hidden},
    {"Tekst2",       "", 0, nullptr, Column::Hidden},
    {"Tekst3",       "", 0, nullptr, Column::Hidden},
    {"Tekst4",       "", 0, nullptr, Column::Hidden},
    {"Tekst5",       "", 0, nullptr, Column::Hidden},
    {"Tekst6",       "", 0, nullptr, Column::Hidden},
};
constexpr BrowserButton kKEYButtons[] = {
    {"cmdDelete",  CAPTION("&Slett")},
    {"cmdRefresh", CAPTION("&Oppdater")},
    {"cmdClose",   CAPTION("&VELG")},
};

constexpr BrowserColumn kPasswordColumns[] = {
    {"USER_ID",       CAPTION("BRUKER"),         0, nullptr, Column::Edited, 100},
    {"Password",      CAPTION("PASSORD"),        0, nullptr, Column::Edited, 100},
    {"SecurityLevel", CAPTION("SIKKERHETSNIVÅ"), 0, nullptr, Column::Edited, 120},
};
constexpr BrowserButton kPasswordButtons[] = {
    {"cmdDelete",  CAPTION("&Slett")},
    {"cmdRefresh", CAPTION("Opp&frisk")},
    {"cmdClose",   CAPTION("&Avslutt")},
};

constexpr BrowserColumn kLOGGColumns[] = {
    {"KeyNummer", "Dør",       128, "keynummer"},
    {"KeyUser",   "Bruker",    122, "keyuser"},
    {"Dato",      "Dato",      113, "Dato"},
    {"Fornavn",   "Fornavn",   114, "fornavn"},
    {"Etternavn", "Etternavn", 115, "Etternavn"},
};
constexpr BrowserButton kLOGGButtons[] = {
    {"Command1",  "Hent LOGG(5)",   132},
    {"Command2",  "Hent LOGG(10)",  133},
    {"Command3",  "Hent LOGG(25)",  134},
    {"Command4",  "Hent LOGG(50)",  135},
    {"Command5",  "Hent LOGG(100)", 136},
    {"cmdDelete", "&Slett",   110},
    {"cmdClose",  "&Avslutt", 108},
};

// The names of the columns are the captions, in every language.
constexpr BrowserColumn kLanguageColumns[] = {
    {"ID",     "ID",     0},
    {"Norsk",  "Norsk",  0, nullptr, Column::Edited},
    {"Dansk",  "Dansk",  0, nullptr, Column::Edited},
    {"Svensk", "Svensk", 0, nullptr, Column::Edited},
};
constexpr BrowserButton kLanguageButtons[] = {
    {"cmdClose", CAPTION("&Avslutt")},
};

} // namespace

//                                 name             title                    table           opens sorted by
const BrowserTable kBrukereTable{
    "frmBrukere",     CAPTION("Alle Brukere"), "Katalog",      "",
    Table::Keys | Table::HeadingSort, kBrukereColumns, kBrukereButtons};
const BrowserTable kSMSReceivedTable{
    "frmSMSReceived", CAPTION("SMS Mottatt"),  "SMS_Received", "ID",
    Table::Keys | Table::Reloads, kSMSReceivedColumns, kSMSReceivedButtons};
const BrowserTable kSMSSentTable{
    "frmSMSSent",     CAPTION("SMS Sendt"),    "SMS_Sent",     "ID",
    Table::Keys | Table::HeadingSort | Table::KeepsSort | Table::Reloads, kSMSSentColumns, kSMSSentButtons};
const BrowserTable kKEYTable{
    "frmKEY",         CAPTION("Dør"),          "KEYTable",     "",
    Table::Keys | Table::AddsRows, kKEYColumns, kKEYButtons};
const BrowserTable kPasswordTable{
    "frmPassword",    CAPTION("Passord"),      "Passwords",    "USER_ID",
    Table::Keys | Table::AddsRows, kPasswordColumns, kPasswordButtons};
const BrowserTable kLOGGTable{
    "frmLOGG",        CAPTION("LOGG"),         "LOGGData",     "Dato",
    Table::Keys | Table::HeadingSort | Table::ReloadsLater, kLOGGColumns, kLOGGButtons};
const BrowserTable kLanguageTable{
    "frmLanguage",    CAPTION("Language"),     "TBLLanguage",  "",
    0, kLanguageColumns, kLanguageButtons};

// clang-format on
