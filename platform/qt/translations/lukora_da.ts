<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="da_DK" sourcelanguage="nb_NO">
<context>
    <name>UserPanel</name>
    <message>
        <source>Fra time</source>
        <translation>Fra klokken</translation>
    </message>
    <message>
        <source>Til time</source>
        <translation>Til klokken</translation>
    </message>
    <message>
        <source>Antall</source>
        <translation>Antal</translation>
    </message>
    <message>
        <source>I tabellen står en dato som ikke kan leses: %1</source>
        <translation>I tabellen står en dato, som ikke kan læses: %1</translation>
    </message>
    <message>
        <source>I tabellen står en dato som ikke kan leses: %1. Vil du registrere perioden slik den står på skjermen?</source>
        <translation>I tabellen står en dato, som ikke kan læses: %1. Vil du registrere perioden, som den står på skærmen?</translation>
    </message>
    <message>
        <source>Brukeren står ikke lenger i tabellen.</source>
        <translation>Brugeren står ikke længere i tabellen.</translation>
    </message>
    <message>
        <source>Kolonnebredder som fra start</source>
        <translation>Oprindelige kolonnebredder</translation>
    </message>
    <message>
        <source>Brukerne kunne ikke leses.</source>
        <translation>Brugerne kunne ikke læses.</translation>
    </message>
    <message>
        <source>Ingen dør er valgt. Legg inn en dør i listen over dører.</source>
        <translation>Ingen dør er valgt. Opret en dør i listen over døre.</translation>
    </message>
    <message>
        <source>Ingen perioder venter på denne døren.</source>
        <translation>Ingen perioder venter på denne dør.</translation>
    </message>
    <message>
        <source>Døren har ingen brukere ennå. Trykk «%1» for å legge inn den første.</source>
        <translation>Døren har endnu ingen brugere. Tryk på »%1« for at oprette den første.</translation>
    </message>
    <message>
        <source>Ingen brukere har denne kontoen. Velg en annen fane.</source>
        <translation>Ingen brugere har denne konto. Vælg en anden fane.</translation>
    </message>
    <message>
        <source>Hent tilbake</source>
        <translation>Hent tilbage</translation>
    </message>
    <message>
        <source>Henter tilbake det som sto i feltene før de ble tømt</source>
        <translation>Henter det tilbage, der stod i felterne, før de blev tømt</translation>
    </message>
    <message>
        <source>Én adgang mer</source>
        <translation>Én adgang mere</translation>
    </message>
    <message>
        <source>Én adgang mindre</source>
        <translation>Én adgang mindre</translation>
    </message>
    <message>
        <source>Antall adganger</source>
        <translation>Antal adgange</translation>
    </message>
    <message>
        <source>Kontofaner</source>
        <translation>Faneblade for konti</translation>
    </message>
    <message>
        <source>Brukere</source>
        <translation>Brugere</translation>
    </message>
</context>
<context>
    <name>Commands</name>
    <message>
        <source>Perioden mangler en gyldig dato</source>
        <translation>Perioden mangler en gyldig dato</translation>
    </message>
</context>
<context>
    <name>StartNyBruker</name>
    <message>
        <source>Teksten er ikke en dato: %1</source>
        <translation>Teksten er ikke en dato: %1</translation>
    </message>
</context>
<context>
    <name>LineSelection</name>
    <message>
        <source>Portnummeret må være et helt tall fra 1 til 65535</source>
        <translation>Portnummeret skal være et helt tal fra 1 til 65535</translation>
    </message>
    <message>
        <source>Maskinen har ingen serieport nå.</source>
        <translation>Maskinen har ingen seriel port lige nu.</translation>
    </message>
</context>
<context>
    <name>SmsSubmitter</name>
    <message>
        <source>Mottakeren er ikke et telefonnummer</source>
        <translation>Modtageren er ikke et telefonnummer</translation>
    </message>
</context>
<context>
    <name>CharacterTables</name>
    <message>
        <source>Tegnet finnes ikke i tegntabellen</source>
        <translation>Tegnet findes ikke i tegntabellen</translation>
    </message>
</context>
<context>
    <name>MessageReader</name>
    <message>
        <source>Modemet sletter ikke melding %1. Meldingene etter den blir ikke lest før den er slettet.</source>
        <translation>Modemmet sletter ikke besked %1. Beskederne efter den bliver ikke læst, før den er slettet.</translation>
    </message>
</context>
<context>
    <name>ModemWatcher</name>
    <message>
        <source>Forbindelsen med modemet er brutt. Velg COM-porten på nytt.</source>
        <translation>Forbindelsen til modemmet er afbrudt. Vælg COM-porten igen.</translation>
    </message>
    <message>
        <source>Modemet settes opp på nytt</source>
        <translation>Modemmet sættes op på ny</translation>
    </message>
</context>
<context>
    <name>frmMain</name>
    <message>
        <source>Valget av database ble avbrutt.</source>
        <translation>Valget af database blev afbrudt.</translation>
    </message>
</context>
<context>
    <name>LanguagePass</name>
    <message>
        <source>Det er ingen forbindelse med databasen.</source>
        <translation>Der er ingen forbindelse til databasen.</translation>
    </message>
</context>
<context>
    <name>LanguageTable</name>
    <message>
        <source>Landskode %1 har ikke noe språk</source>
        <translation>Landekode %1 har ikke noget sprog</translation>
    </message>
</context>
<context>
    <name>NewFile</name>
    <message>
        <source>Kan ikke lage filen %1: %2</source>
        <translation>Kan ikke oprette filen %1: %2</translation>
    </message>
</context>
<context>
    <name>Connection</name>
    <message>
        <source>Det finnes allerede en rad med dette nummeret</source>
        <translation>Der findes allerede en række med dette nummer</translation>
    </message>
    <message>
        <source>Databasen er låst av et annet program</source>
        <translation>Databasen er låst af et andet program</translation>
    </message>
    <message>
        <source>Disken er full. Ingenting ble lagret.</source>
        <translation>Disken er fuld. Intet blev gemt.</translation>
    </message>
    <message>
        <source>Filen er ikke en database, eller den har et annet passord</source>
        <translation>Filen er ikke en database, eller den har en anden adgangskode</translation>
    </message>
    <message>
        <source>Finner ikke databasefilen: %1</source>
        <translation>Finder ikke databasefilen: %1</translation>
    </message>
    <message>
        <source>Spørringen har et annet antall verdier</source>
        <translation>Forespørgslen har et andet antal værdier</translation>
    </message>
    <message>
        <source>Forbindelsen til databasen er lukket</source>
        <translation>Forbindelsen til databasen er lukket</translation>
    </message>
    <message>
        <source>Databasen er i bruk av et annet program: %1</source>
        <translation>Databasen er i brug af et andet program: %1</translation>
    </message>
    <message>
        <source>Kan ikke få databasen alene: %1 (%2)</source>
        <translation>Kan ikke få databasen alene: %1 (%2)</translation>
    </message>
</context>
<context>
    <name>Recordset</name>
    <message>
        <source>Det er ingen gjeldende rad</source>
        <translation>Der er ingen aktuel række</translation>
    </message>
    <message>
        <source>Raden er endret eller slettet av en annen siden den ble lest</source>
        <translation>Rækken er ændret eller slettet af en anden, siden den blev læst</translation>
    </message>
    <message>
        <source>Tabellen er ikke åpnet</source>
        <translation>Tabellen er ikke åbnet</translation>
    </message>
    <message>
        <source>Ingen database er åpen</source>
        <translation>Ingen database er åben</translation>
    </message>
    <message>
        <source>Kolonnen «%1» finnes ikke</source>
        <translation>Kolonnen »%1« findes ikke</translation>
    </message>
</context>
<context>
    <name>Compaction</name>
    <message>
        <source>Kan ikke slette %1: %2</source>
        <translation>Kan ikke slette %1: %2</translation>
    </message>
    <message>
        <source>Kan ikke kopiere %1: %2</source>
        <translation>Kan ikke kopiere %1: %2</translation>
    </message>
    <message>
        <source>Kan ikke gi %1 nytt navn: %2</source>
        <translation>Kan ikke omdøbe %1: %2</translation>
    </message>
</context>
<context>
    <name>Criteria</name>
    <message>
        <source>Søkeverdien kan ikke ha apostrof: %1</source>
        <translation>Søgeværdien må ikke indeholde apostrof: %1</translation>
    </message>
</context>
<context>
    <name>Text</name>
    <message>
        <source>Ugyldig argument</source>
        <translation>Ugyldigt argument</translation>
    </message>
    <message>
        <source>Teksten er ikke et tall</source>
        <translation>Teksten er ikke et tal</translation>
    </message>
    <message>
        <source>Tallet er for stort</source>
        <translation>Tallet er for stort</translation>
    </message>
</context>
<context>
    <name>QtOperator</name>
    <message>
        <source>%1 finnes allerede. Vil du erstatte filen?</source>
        <translation>%1 findes allerede. Vil du erstatte filen?</translation>
    </message>
</context>
<context>
    <name>SerialPort</name>
    <message>
        <source>Porten er ikke åpen.</source>
        <translation>Porten er ikke åben.</translation>
    </message>
    <message>
        <source>Modemet på porten %1 tar ikke imot.</source>
        <translation>Modemmet på porten %1 tager ikke imod.</translation>
    </message>
    <message>
        <source>Forbindelsen med porten %1 er brutt.</source>
        <translation>Forbindelsen til porten %1 er afbrudt.</translation>
    </message>
    <message>
        <source>Porten %1 finnes ikke. Er modemet koblet til?</source>
        <translation>Porten %1 findes ikke. Er modemmet tilsluttet?</translation>
    </message>
    <message>
        <source>Porten %1 er i bruk av et annet program.</source>
        <translation>Porten %1 er i brug af et andet program.</translation>
    </message>
    <message>
        <source>Du har ikke adgang til porten %1. Du må være med i gruppen %2; be den som styrer maskinen, om det, og logg på maskinen på nytt.</source>
        <translation>Du har ikke adgang til porten %1. Du skal være med i gruppen %2; bed den, der administrerer maskinen, om det, og log på maskinen igen.</translation>
    </message>
    <message>
        <source>%1 er ingen serieport med et modem.</source>
        <translation>%1 er ikke en seriel port med et modem.</translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>Look in:</source>
        <translation>Søg i:</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Tilbage</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Gå tilbage</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Frem</translation>
    </message>
    <message>
        <source>Go forward</source>
        <translation>Gå frem</translation>
    </message>
    <message>
        <source>Parent Directory</source>
        <translation>Overordnet mappe</translation>
    </message>
    <message>
        <source>Go to the parent directory</source>
        <translation>Gå til den overordnede mappe</translation>
    </message>
    <message>
        <source>Create New Folder</source>
        <translation>Opret ny mappe</translation>
    </message>
    <message>
        <source>Create a New Folder</source>
        <translation>Opret en ny mappe</translation>
    </message>
    <message>
        <source>List View</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Change to list view mode</source>
        <translation>Vis som liste</translation>
    </message>
    <message>
        <source>Detail View</source>
        <translation>Detaljer</translation>
    </message>
    <message>
        <source>Change to detail view mode</source>
        <translation>Vis detaljer</translation>
    </message>
    <message>
        <source>Sidebar</source>
        <translation>Sidepanel</translation>
    </message>
    <message>
        <source>List of places and bookmarks</source>
        <translation>Steder og bogmærker</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Filer</translation>
    </message>
    <message>
        <source>Files of type:</source>
        <translation>Filtype:</translation>
    </message>
    <message>
        <source>File &amp;name:</source>
        <translation>Fil&amp;navn:</translation>
    </message>
    <message>
        <source>Directory:</source>
        <translation>Mappe:</translation>
    </message>
    <message>
        <source>Directories</source>
        <translation>Mapper</translation>
    </message>
    <message>
        <source>Find Directory</source>
        <translation>Find mappe</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Åbn</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Åbn</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Gem som</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Gem</translation>
    </message>
    <message>
        <source>&amp;Choose</source>
        <translation>&amp;Vælg</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Omdøb</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Slet</translation>
    </message>
    <message>
        <source>Show &amp;hidden files</source>
        <translation>Vis s&amp;kjulte filer</translation>
    </message>
    <message>
        <source>&amp;New Folder</source>
        <translation>&amp;Ny mappe</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Ny mappe</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Slet</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Fjern</translation>
    </message>
    <message>
        <source>Show </source>
        <translation>Vis </translation>
    </message>
    <message>
        <source>All Files (*)</source>
        <translation>Alle filer (*)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle filer (*)</translation>
    </message>
    <message>
        <source>Recent Places</source>
        <translation>Seneste steder</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Min computer</translation>
    </message>
    <message>
        <source>%1
File not found.
Please verify the correct file name was given.</source>
        <translation>%1
Filen blev ikke fundet.
Kontrollér, at filnavnet er rigtigt.</translation>
    </message>
    <message>
        <source>%1
Directory not found.
Please verify the correct directory name was given.</source>
        <translation>%1
Mappen blev ikke fundet.
Kontrollér, at mappenavnet er rigtigt.</translation>
    </message>
    <message>
        <source>'%1' is write protected.
Do you want to delete it anyway?</source>
        <translation>»%1« er skrivebeskyttet.
Vil du slette den alligevel?</translation>
    </message>
    <message>
        <source>Are you sure you want to delete '%1'?</source>
        <translation>Er du sikker på, at du vil slette »%1«?</translation>
    </message>
    <message>
        <source>Could not delete directory.</source>
        <translation>Mappen kunne ikke slettes.</translation>
    </message>
</context>
<context>
    <name>QAbstractFileIconProvider</name>
    <message>
        <source>Drive</source>
        <translation>Drev</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fil</translation>
    </message>
    <message>
        <source>%1 File</source>
        <translation>%1-fil</translation>
    </message>
    <message>
        <source>File Folder</source>
        <translation>Filmappe</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Mappe</translation>
    </message>
    <message>
        <source>Alias</source>
        <translation>Alias</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Genvej</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Ukendt</translation>
    </message>
</context>
<context>
    <name>QFileSystemModel</name>
    <message>
        <source>Name</source>
        <translation>Navn</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Størrelse</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Ændret</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Computer</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Min computer</translation>
    </message>
    <message>
        <source>Invalid filename</source>
        <translation>Ugyldigt filnavn</translation>
    </message>
    <message>
        <source>&lt;b&gt;The name "%1" cannot be used.&lt;/b&gt;&lt;p&gt;Try using another name, with fewer characters or no punctuation marks.</source>
        <translation>&lt;b&gt;Navnet »%1« kan ikke bruges.&lt;/b&gt;&lt;p&gt;Prøv et andet navn, med færre tegn eller uden tegnsætning.</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuller</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Åbn</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Gem</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Luk</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nej</translation>
    </message>
</context>
<context>
    <name>QMessageBox</name>
    <message>
        <source>Show Details...</source>
        <translation>Vis detaljer...</translation>
    </message>
    <message>
        <source>Hide Details...</source>
        <translation>Skjul detaljer...</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Fortryd</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Gentag</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>K&amp;lip</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopiér</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Sæt ind</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Slet</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Markér alt</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Fortryd</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Gentag</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>K&amp;lip</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopiér</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Sæt ind</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Slet</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Markér alt</translation>
    </message>
    <message>
        <source>Copy &amp;Link Location</source>
        <translation>Kopiér l&amp;inkadresse</translation>
    </message>
</context>
<context>
    <name>QAbstractSpinBox</name>
    <message>
        <source>&amp;Select All</source>
        <translation>&amp;Markér alt</translation>
    </message>
    <message>
        <source>&amp;Step up</source>
        <translation>&amp;Op</translation>
    </message>
    <message>
        <source>Step &amp;down</source>
        <translation>&amp;Ned</translation>
    </message>
</context>
<context>
    <name>QIODevice</name>
    <message>
        <source>Permission denied</source>
        <translation>Ingen adgang</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>For mange åbne filer</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>Filen eller mappen findes ikke</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>Der er ikke mere plads på disken</translation>
    </message>
</context>
<context>
    <name>QScrollBar</name>
    <message>
        <source>Scroll here</source>
        <translation>Rul hertil</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Øverst</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Nederst</translation>
    </message>
    <message>
        <source>Page up</source>
        <translation>Side op</translation>
    </message>
    <message>
        <source>Page down</source>
        <translation>Side ned</translation>
    </message>
    <message>
        <source>Scroll up</source>
        <translation>Rul op</translation>
    </message>
    <message>
        <source>Scroll down</source>
        <translation>Rul ned</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>Venstre kant</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>Højre kant</translation>
    </message>
    <message>
        <source>Page left</source>
        <translation>Side til venstre</translation>
    </message>
    <message>
        <source>Page right</source>
        <translation>Side til højre</translation>
    </message>
    <message>
        <source>Scroll left</source>
        <translation>Rul til venstre</translation>
    </message>
    <message>
        <source>Scroll right</source>
        <translation>Rul til højre</translation>
    </message>
</context>
<context>
    <name>QTabBar</name>
    <message>
        <source>Scroll Left</source>
        <translation>Rul til venstre</translation>
    </message>
    <message>
        <source>Scroll Right</source>
        <translation>Rul til højre</translation>
    </message>
</context>
<context>
    <name>TcpSocket</name>
    <message>
        <source>Ingen adgang til nettet</source>
        <translation>Ingen adgang til nettet</translation>
    </message>
    <message>
        <source>For mange åpne forbindelser</source>
        <translation>For mange åbne forbindelser</translation>
    </message>
    <message>
        <source>Nettet kan ikke dette</source>
        <translation>Nettet kan ikke dette</translation>
    </message>
    <message>
        <source>Adressen er i bruk</source>
        <translation>Adressen er i brug</translation>
    </message>
    <message>
        <source>Adressen er ikke tilgjengelig</source>
        <translation>Adressen er ikke tilgængelig</translation>
    </message>
    <message>
        <source>Nettet kan ikke nås</source>
        <translation>Nettet kan ikke nås</translation>
    </message>
    <message>
        <source>Forbindelsen ble brutt av motparten</source>
        <translation>Forbindelsen blev afbrudt af modparten</translation>
    </message>
    <message>
        <source>Tiden for tilkobling løp ut</source>
        <translation>Tiden for opkobling løb ud</translation>
    </message>
    <message>
        <source>Tilkobling avvist</source>
        <translation>Forbindelsen blev afvist</translation>
    </message>
    <message>
        <source>Fant ikke verten</source>
        <translation>Fandt ikke værten</translation>
    </message>
    <message>
        <source>Systemkallet feilet</source>
        <translation>Systemkaldet fejlede</translation>
    </message>
</context>
<context>
    <name>ModemPanel</name>
    <message>
        <source>På</source>
        <translation>Tændt</translation>
    </message>
    <message>
        <source>Av</source>
        <translation>Slukket</translation>
    </message>
    <message>
        <source>Modemet er av</source>
        <translation>Modemmet er slukket</translation>
    </message>
    <message>
        <source>Modemet er på</source>
        <translation>Modemmet er tændt</translation>
    </message>
    <message>
        <source>Modemets tilstand</source>
        <translation>Modemmets tilstand</translation>
    </message>
    <message>
        <source>Modemets navn</source>
        <translation>Modemmets navn</translation>
    </message>
</context>
<context>
    <name>NetworkModemPanel</name>
    <message>
        <source>Vis Modemkommunikasjon</source>
        <translation>Vis modemkommunikation</translation>
    </message>
    <message>
        <source>Skjul Modemkommunikasjon</source>
        <translation>Skjul modemkommunikation</translation>
    </message>
    <message>
        <source>Meldinger fra nettverksmodemet</source>
        <translation>Beskeder fra netværksmodemmet</translation>
    </message>
    <message>
        <source>Modemkommunikasjon</source>
        <translation>Modemkommunikation</translation>
    </message>
</context>
<context>
    <name>ReceivedPanel</name>
    <message>
        <source>Forrige melding</source>
        <translation>Forrige besked</translation>
    </message>
    <message>
        <source>Neste melding</source>
        <translation>Næste besked</translation>
    </message>
    <message>
        <source>Bla i meldinger</source>
        <translation>Blad i beskeder</translation>
    </message>
    <message>
        <source>Navn</source>
        <translation>Navn</translation>
    </message>
    <message>
        <source>Modemet er på</source>
        <translation>Modemmet er tændt</translation>
    </message>
    <message>
        <source>Modemet er av</source>
        <translation>Modemmet er slukket</translation>
    </message>
    <message>
        <source>Telefonens skjerm</source>
        <translation>Telefonens skærm</translation>
    </message>
</context>
<context>
    <name>UpDown</name>
    <message>
        <source>Opp</source>
        <translation>Op</translation>
    </message>
    <message>
        <source>Ned</source>
        <translation>Ned</translation>
    </message>
</context>
<context>
    <name>frmAbout</name>
    <message>
        <source>&amp;Systeminformasjon...</source>
        <translation>&amp;Systeminformation...</translation>
    </message>
</context>
<context>
    <name>frmLogin</name>
    <message>
        <source>&amp;Bruker:</source>
        <translation>&amp;Bruger:</translation>
    </message>
    <message>
        <source>&amp;Passord:</source>
        <translation>&amp;Adgangskode:</translation>
    </message>
    <message>
        <source>&amp;Maskin:</source>
        <translation>&amp;Maskine:</translation>
    </message>
    <message>
        <source>Avbryt</source>
        <translation>Annuller</translation>
    </message>
</context>
<context>
    <name>DoorCommands</name>
    <message>
        <source>Normal  (N)</source>
        <translation>Normal  (N)</translation>
    </message>
    <message>
        <source>Lukket  (L)</source>
        <translation>Lukket  (L)</translation>
    </message>
    <message>
        <source>Oppe    (O)</source>
        <translation>Åben    (O)</translation>
    </message>
    <message>
        <source>Oppe hverdager</source>
        <translation>Åben hverdage</translation>
    </message>
    <message>
        <source>Oppe alle dager</source>
        <translation>Åben alle dage</translation>
    </message>
    <message>
        <source>Bistabil hverdager</source>
        <translation>Bistabil hverdage</translation>
    </message>
    <message>
        <source>Bistabil alle dager</source>
        <translation>Bistabil alle dage</translation>
    </message>
    <message>
        <source>Bare i dag</source>
        <translation>Kun i dag</translation>
    </message>
    <message>
        <source>Hverdager int. 2</source>
        <translation>Hverdage int. 2</translation>
    </message>
    <message>
        <source>Alle dager int. 2</source>
        <translation>Alle dage int. 2</translation>
    </message>
    <message>
        <source>ALARM AV</source>
        <translation>ALARM FRA</translation>
    </message>
    <message>
        <source>ALARM PÅ</source>
        <translation>ALARM TIL</translation>
    </message>
    <message>
        <source>Åpnet ved ALARM</source>
        <translation>Åbnet ved ALARM</translation>
    </message>
    <message>
        <source>Stengt ved ALARM</source>
        <translation>Lukket ved ALARM</translation>
    </message>
    <message>
        <source>Endebryter A</source>
        <translation>Endestop A</translation>
    </message>
    <message>
        <source>Endebryter B</source>
        <translation>Endestop B</translation>
    </message>
    <message>
        <source>Endebr.A m/rapport</source>
        <translation>Endestop A m/rapport</translation>
    </message>
    <message>
        <source>Endebr.B m/rapport</source>
        <translation>Endestop B m/rapport</translation>
    </message>
    <message>
        <source>ALARM Enderbryter</source>
        <translation>ALARM Endestop</translation>
    </message>
</context>
<context>
    <name>frmKeyProperties</name>
    <message>
        <source>Dør Oppsett</source>
        <translation>Dør Opsætning</translation>
    </message>
    <message>
        <source>DØR NUMMER</source>
        <translation>DØR NUMMER</translation>
    </message>
    <message>
        <source>DØR NAVN</source>
        <translation>DØR NAVN</translation>
    </message>
    <message>
        <source>Bygning</source>
        <translation>Bygning</translation>
    </message>
    <message>
        <source>Sikkerhetsnivå</source>
        <translation>Sikkerhedsniveau</translation>
    </message>
    <message>
        <source>Type dørenhet</source>
        <translation>Type dørenhed</translation>
    </message>
    <message>
        <source>N - Normal, L - Låst, O - Oppe</source>
        <translation>N - Normal, L - Låst, O - Åben</translation>
    </message>
    <message>
        <source>Administratorer</source>
        <translation>Administratorer</translation>
    </message>
    <message>
        <source>Administrator</source>
        <translation>Administrator</translation>
    </message>
    <message>
        <source>Telefonnummer til Admin - 8 SIFFER</source>
        <translation>Telefonnummer til Admin - 8 CIFRE</translation>
    </message>
    <message>
        <source>RESET ADMIN</source>
        <translation>RESET ADMIN</translation>
    </message>
    <message>
        <source>Administrator 1</source>
        <translation>Administrator 1</translation>
    </message>
    <message>
        <source>Administrator 2</source>
        <translation>Administrator 2</translation>
    </message>
    <message>
        <source>Administrator 3</source>
        <translation>Administrator 3</translation>
    </message>
    <message>
        <source>Administrator 4</source>
        <translation>Administrator 4</translation>
    </message>
    <message>
        <source>Administrator 5</source>
        <translation>Administrator 5</translation>
    </message>
    <message>
        <source>Telefonnummer til Admin1 - 8 SIFFER</source>
        <translation>Telefonnummer til Admin1 - 8 CIFRE</translation>
    </message>
    <message>
        <source>Telefonnummer til Admin2 - 8 SIFFER</source>
        <translation>Telefonnummer til Admin2 - 8 CIFRE</translation>
    </message>
    <message>
        <source>Telefonnummer til Admin3 - 8 SIFFER</source>
        <translation>Telefonnummer til Admin3 - 8 CIFRE</translation>
    </message>
    <message>
        <source>Telefonnummer til Admin4 - 8 SIFFER</source>
        <translation>Telefonnummer til Admin4 - 8 CIFRE</translation>
    </message>
    <message>
        <source>Telefonnummer til Admin5 - 8 SIFFER</source>
        <translation>Telefonnummer til Admin5 - 8 CIFRE</translation>
    </message>
    <message>
        <source>Send ny ADMIN 1</source>
        <translation>Send ny ADMIN 1</translation>
    </message>
    <message>
        <source>Send ny ADMIN 2</source>
        <translation>Send ny ADMIN 2</translation>
    </message>
    <message>
        <source>Send ny ADMIN 3</source>
        <translation>Send ny ADMIN 3</translation>
    </message>
    <message>
        <source>Send ny ADMIN 4</source>
        <translation>Send ny ADMIN 4</translation>
    </message>
    <message>
        <source>Send ny ADMIN 5</source>
        <translation>Send ny ADMIN 5</translation>
    </message>
    <message>
        <source>Dørenhet</source>
        <translation>Dørenhed</translation>
    </message>
    <message>
        <source>Eget Nummer</source>
        <translation>Eget Nummer</translation>
    </message>
    <message>
        <source>Nøkkelens eget nummer - 8 siffer</source>
        <translation>Nøglens eget nummer - 8 cifre</translation>
    </message>
    <message>
        <source>Send EGET nr.</source>
        <translation>Send EGET nr.</translation>
    </message>
    <message>
        <source>Navn</source>
        <translation>Navn</translation>
    </message>
    <message>
        <source>Send Navn</source>
        <translation>Send Navn</translation>
    </message>
    <message>
        <source>Åpningstid (sek.)</source>
        <translation>Åbningstid (sek.)</translation>
    </message>
    <message>
        <source>Pulslengde i sekund</source>
        <translation>Pulslængde i sekunder</translation>
    </message>
    <message>
        <source>Send Åpningstid</source>
        <translation>Send Åbningstid</translation>
    </message>
    <message>
        <source>Velkommen SMS</source>
        <translation>Velkommen SMS</translation>
    </message>
    <message>
        <source>Utmelding SMS</source>
        <translation>Afmelding SMS</translation>
    </message>
    <message>
        <source>Alarmtekst</source>
        <translation>Alarmtekst</translation>
    </message>
    <message>
        <source>Undertekst</source>
        <translation>Undertekst</translation>
    </message>
    <message>
        <source>TEKST 1</source>
        <translation>TEKST 1</translation>
    </message>
    <message>
        <source>TEKST 2</source>
        <translation>TEKST 2</translation>
    </message>
    <message>
        <source>TEKST 3</source>
        <translation>TEKST 3</translation>
    </message>
    <message>
        <source>TEKST 4</source>
        <translation>TEKST 4</translation>
    </message>
    <message>
        <source>TEKST 5</source>
        <translation>TEKST 5</translation>
    </message>
    <message>
        <source>TEKST 6</source>
        <translation>TEKST 6</translation>
    </message>
    <message>
        <source>Del en av velkomstmelding</source>
        <translation>Første del af velkomstbeskeden</translation>
    </message>
    <message>
        <source>Del to av velkomstmeldingen</source>
        <translation>Anden del af velkomstbeskeden</translation>
    </message>
    <message>
        <source>Del en av utmeldingen</source>
        <translation>Første del af afmeldingen</translation>
    </message>
    <message>
        <source>Del to av utmeldingen</source>
        <translation>Anden del af afmeldingen</translation>
    </message>
    <message>
        <source>Tekst ved eventuell ALARM</source>
        <translation>Tekst ved eventuel ALARM</translation>
    </message>
    <message>
        <source>Undertekst i meldingene</source>
        <translation>Undertekst i beskederne</translation>
    </message>
    <message>
        <source>Send ny tekst 1</source>
        <translation>Send ny tekst 1</translation>
    </message>
    <message>
        <source>Send ny tekst 2</source>
        <translation>Send ny tekst 2</translation>
    </message>
    <message>
        <source>Send ny tekst 3</source>
        <translation>Send ny tekst 3</translation>
    </message>
    <message>
        <source>Send ny tekst4</source>
        <translation>Send ny tekst4</translation>
    </message>
    <message>
        <source>Send ny tekst5</source>
        <translation>Send ny tekst5</translation>
    </message>
    <message>
        <source>Send ny tekst 6</source>
        <translation>Send ny tekst 6</translation>
    </message>
    <message>
        <source>Denne delen av velkomsmeldingen er fast</source>
        <translation>Denne del af velkomstbeskeden er fast</translation>
    </message>
    <message>
        <source>Fast del av velkomstmeldingen</source>
        <translation>Fast del af velkomstbeskeden</translation>
    </message>
    <message>
        <source>Ring (nummer til dør)</source>
        <translation>Ring (nummer til dør)</translation>
    </message>
    <message>
        <source>Tider og funksjoner</source>
        <translation>Tider og funktioner</translation>
    </message>
    <message>
        <source>Innmelding fra klokken:</source>
        <translation>Tilmelding fra klokken:</translation>
    </message>
    <message>
        <source>Utmelding fra klokken:</source>
        <translation>Afmelding fra klokken:</translation>
    </message>
    <message>
        <source>til</source>
        <translation>til</translation>
    </message>
    <message>
        <source>Innmelding fra klokken</source>
        <translation>Tilmelding fra klokken</translation>
    </message>
    <message>
        <source>Innmelding til klokken</source>
        <translation>Tilmelding til klokken</translation>
    </message>
    <message>
        <source>Utmelding fra klokken</source>
        <translation>Afmelding fra klokken</translation>
    </message>
    <message>
        <source>Utmelding til klokken</source>
        <translation>Afmelding til klokken</translation>
    </message>
    <message>
        <source>Send nye tider</source>
        <translation>Send nye tider</translation>
    </message>
    <message>
        <source>Alarmfunksjon</source>
        <translation>Alarmfunktion</translation>
    </message>
    <message>
        <source>Send  Funksjon</source>
        <translation>Send  Funktion</translation>
    </message>
    <message>
        <source>Lås Status</source>
        <translation>Lås Status</translation>
    </message>
    <message>
        <source>Send Lås Status</source>
        <translation>Send Lås Status</translation>
    </message>
    <message>
        <source>HENT BRUKERE FRA LÅS</source>
        <translation>HENT BRUGERE FRA LÅS</translation>
    </message>
    <message>
        <source>Hent BRUKERE</source>
        <translation>Hent BRUGERE</translation>
    </message>
    <message>
        <source>Registrer ADMIN</source>
        <translation>Registrer ADMIN</translation>
    </message>
    <message>
        <source>Reset ADMIN</source>
        <translation>Reset ADMIN</translation>
    </message>
    <message>
        <source> Er det opprettet noen nøkkel under Key Data??</source>
        <translation> Er der oprettet nogen nøgle under Key Data??</translation>
    </message>
    <message>
        <source>Eget nummer er ikke angitt. Du bør sende dette til nøkkelenhet!!</source>
        <translation>Eget nummer er ikke angivet. Du bør sende det til nøgleenheden!!</translation>
    </message>
    <message>
        <source>Sjekk om EGET NUMMER er riktig !!!</source>
        <translation>Kontrollér, om EGET NUMMER er rigtigt !!!</translation>
    </message>
    <message>
        <source>Dette vil endre ALARMFUNKSJONEN. Vil du fortsette?</source>
        <translation>Dette vil ændre ALARMFUNKTIONEN. Vil du fortsætte?</translation>
    </message>
    <message>
        <source>Dette vil Åpne eller Lukke port eller dør for alle brukere. Vil du fortsette?</source>
        <translation>Dette vil Åbne eller Lukke port eller dør for alle brugere. Vil du fortsætte?</translation>
    </message>
    <message>
        <source>Ny instilling (</source>
        <translation>Ny indstilling (</translation>
    </message>
    <message>
        <source>) blir sendt til nøkkelenhet</source>
        <translation>) bliver sendt til nøgleenheden</translation>
    </message>
    <message>
        <source>Tast inn ÅPNINGSTID hverdager</source>
        <translation>Indtast ÅBNINGSTID hverdage</translation>
    </message>
    <message>
        <source>ÅPNE</source>
        <translation>ÅBN</translation>
    </message>
    <message>
        <source>Endringene er ikke lagret. Vil du lukke likevel?</source>
        <translation>Ændringerne er ikke gemt. Vil du lukke alligevel?</translation>
    </message>
    <message>
        <source>En dør må ha et nummer.</source>
        <translation>En dør skal have et nummer.</translation>
    </message>
    <message>
        <source>Det er ikke valgt noen dør. Ingenting ble sendt.</source>
        <translation>Der er ikke valgt nogen dør. Intet blev sendt.</translation>
    </message>
    <message>
        <source>Velg alle fire klokkeslett. Ingenting ble sendt.</source>
        <translation>Vælg alle fire klokkeslæt. Intet blev sendt.</translation>
    </message>
</context>
<context>
    <name>BrowserTable</name>
    <message>
        <source>Bruker</source>
        <translation>Bruger</translation>
    </message>
    <message>
        <source>Etternavn</source>
        <translation>Efternavn</translation>
    </message>
    <message>
        <source>Fornavn</source>
        <translation>Fornavn</translation>
    </message>
    <message>
        <source>Gate</source>
        <translation>Vej</translation>
    </message>
    <message>
        <source>PostNr.</source>
        <translation>Postnr.</translation>
    </message>
    <message>
        <source>Sted</source>
        <translation>By</translation>
    </message>
    <message>
        <source>Tillatelser</source>
        <translation>Tilladelser</translation>
    </message>
    <message>
        <source>&amp;Slett</source>
        <translation>&amp;Slet</translation>
    </message>
    <message>
        <source>&amp;Opp&amp;frisk</source>
        <translation>Opda&amp;ter</translation>
    </message>
    <message>
        <source>Opp&amp;frisk</source>
        <translation>&amp;Opdater</translation>
    </message>
    <message>
        <source>&amp;Oppdater</source>
        <translation>&amp;Opdater</translation>
    </message>
    <message>
        <source>&amp;Avslutt</source>
        <translation>&amp;Afslut</translation>
    </message>
    <message>
        <source>&amp;VELG</source>
        <translation>&amp;VÆLG</translation>
    </message>
    <message>
        <source>&amp;Legg til</source>
        <translation>&amp;Tilføj</translation>
    </message>
    <message>
        <source>&amp;Rediger</source>
        <translation>&amp;Rediger</translation>
    </message>
    <message>
        <source>&amp;Update</source>
        <translation>&amp;Gem</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>A&amp;nnuller</translation>
    </message>
    <message>
        <source>Dør Nummer</source>
        <translation>Dørnummer</translation>
    </message>
    <message>
        <source>Dør Navn</source>
        <translation>Dørnavn</translation>
    </message>
    <message>
        <source>Bygning</source>
        <translation>Bygning</translation>
    </message>
    <message>
        <source>Sikkerhetsnivå</source>
        <translation>Sikkerhedsniveau</translation>
    </message>
    <message>
        <source>BRUKER</source>
        <translation>BRUGER</translation>
    </message>
    <message>
        <source>PASSORD</source>
        <translation>ADGANGSKODE</translation>
    </message>
    <message>
        <source>SIKKERHETSNIVÅ</source>
        <translation>SIKKERHEDSNIVEAU</translation>
    </message>
    <message>
        <source>Alle Brukere</source>
        <translation>Alle Brugere</translation>
    </message>
    <message>
        <source>SMS Mottatt</source>
        <translation>SMS Modtaget</translation>
    </message>
    <message>
        <source>SMS Sendt</source>
        <translation>SMS Sendt</translation>
    </message>
    <message>
        <source>Dør</source>
        <translation>Dør</translation>
    </message>
    <message>
        <source>Passord</source>
        <translation>Adgangskoder</translation>
    </message>
    <message>
        <source>LOGG</source>
        <translation>LOG</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprog</translation>
    </message>
    <message>
        <source>ALLE</source>
        <translation>ALLE</translation>
    </message>
    <message>
        <source>Velkommen som ny bruker</source>
        <translation>Velkommen som ny bruger</translation>
    </message>
    <message>
        <source>for å åpne porten</source>
        <translation>for at åbne porten</translation>
    </message>
    <message>
        <source>De er slettet som bruker</source>
        <translation>De er slettet som bruger</translation>
    </message>
    <message>
        <source>Takk for besøket og velkommen igjen</source>
        <translation>Tak for besøget og velkommen igen</translation>
    </message>
    <message>
        <source>**ALARM** Alarm Loop</source>
        <translation>**ALARM** Alarm Loop</translation>
    </message>
    <message>
        <source>Ostrand a.s</source>
        <translation>Ostrand a.s</translation>
    </message>
    <message>
        <source>ALARM AV</source>
        <translation>ALARM FRA</translation>
    </message>
    <message>
        <source>Normal (N)</source>
        <translation>Normal (N)</translation>
    </message>
    <message>
        <source> Husk Internasjonalt telefonnummer +47...</source>
        <translation> Husk internationalt telefonnummer +47...</translation>
    </message>
    <message>
        <source>Telefonnummer til nøkkelenhetene skal angis med internasjonalt telefonnummer +47....</source>
        <translation>Telefonnummer til nøgleenhederne skal angives som internationalt telefonnummer +47....</translation>
    </message>
    <message>
        <source>Er Du sikker. Dette vil slette NØKKEL og alle tilhørende brukere!!</source>
        <translation>Er du sikker? Dette vil slette NØGLE og alle tilhørende brugere!!</translation>
    </message>
    <message>
        <source>Døren er lagret, men med dette sikkerhetsnivået vises den ikke for deg.</source>
        <translation>Døren er gemt, men med dette sikkerhedsniveau vises den ikke for dig.</translation>
    </message>
    <message>
        <source>Denne brukeren er registrert på en eller flere nøkler. Kan ikke slettes!!!</source>
        <translation>Denne bruger er registreret på en eller flere nøgler. Kan ikke slettes!!!</translation>
    </message>
    <message>
        <source>Det er ikke valgt noen dør.</source>
        <translation>Der er ikke valgt nogen dør.</translation>
    </message>
</context>
<context>
    <name>RecordBrowser</name>
    <message>
        <source>S&amp;øk:</source>
        <translation>S&amp;øg:</translation>
    </message>
    <message>
        <source>Tekst i en av kolonnene</source>
        <translation>Tekst i en af kolonnerne</translation>
    </message>
    <message>
        <source>Esc stopper</source>
        <translation>Esc stopper</translation>
    </message>
    <message>
        <source>Lagre so&amp;m CSV</source>
        <translation>Ge&amp;m som CSV</translation>
    </message>
    <message>
        <source>Første rad</source>
        <translation>Første række</translation>
    </message>
    <message>
        <source>Forrige rad</source>
        <translation>Forrige række</translation>
    </message>
    <message>
        <source>Neste rad</source>
        <translation>Næste række</translation>
    </message>
    <message>
        <source>Siste rad</source>
        <translation>Sidste række</translation>
    </message>
    <message>
        <source>%1 rad</source>
        <translation>%1 række</translation>
    </message>
    <message>
        <source>%1 rader</source>
        <translation>%1 rækker</translation>
    </message>
    <message>
        <source>%1 treff</source>
        <translation>%1 fundet</translation>
    </message>
    <message>
        <source>Tabellen er tom.</source>
        <translation>Tabellen er tom.</translation>
    </message>
    <message>
        <source>Ingen rad har denne teksten.</source>
        <translation>Ingen række har denne tekst.</translation>
    </message>
    <message>
        <source>Filen kunne ikke skrives. %1</source>
        <translation>Filen kunne ikke skrives. %1</translation>
    </message>
    <message>
        <source>Mappen finnes ikke.</source>
        <translation>Mappen findes ikke.</translation>
    </message>
    <message>
        <source>Du har ikke adgang til å skrive der.</source>
        <translation>Du har ikke adgang til at skrive der.</translation>
    </message>
    <message>
        <source>Det er ikke mer plass på disken.</source>
        <translation>Der er ikke mere plads på disken.</translation>
    </message>
</context>
<context>
    <name>NumberCheck</name>
    <message>
        <source>Nummeret har tegn som ikke er siffer.</source>
        <translation>Nummeret har tegn, der ikke er cifre.</translation>
    </message>
    <message>
        <source>Uten «+» og landkode mister nummeret de tre første sifrene.</source>
        <translation>Uden »+« og landekode mister nummeret de tre første cifre.</translation>
    </message>
    <message>
        <source>Siffer som mangler: %1</source>
        <translation>Cifre, der mangler: %1</translation>
    </message>
    <message>
        <source>Siffer for mye: %1</source>
        <translation>Cifre for meget: %1</translation>
    </message>
    <message>
        <source>Nummeret står ikke i katalogen.</source>
        <translation>Nummeret står ikke i kataloget.</translation>
    </message>
    <message>
        <source>I katalogen: %1</source>
        <translation>I kataloget: %1</translation>
    </message>
</context>
<context>
    <name>DoorPanel</name>
    <message>
        <source>Neste dør</source>
        <translation>Næste dør</translation>
    </message>
    <message>
        <source>Forrige dør</source>
        <translation>Forrige dør</translation>
    </message>
    <message>
        <source>Dørens nummer</source>
        <translation>Dørens telefonnummer</translation>
    </message>
</context>
<context>
    <name>ReceivedPanel</name>
    <message>
        <source>Nyere melding</source>
        <translation>Nyere meddelelse</translation>
    </message>
    <message>
        <source>Eldre melding</source>
        <translation>Ældre meddelelse</translation>
    </message>
    <message>
        <source>Meldingens nummer</source>
        <translation>Meddelelsens nummer</translation>
    </message>
    <message>
        <source>Avsenderens navn</source>
        <translation>Afsenderens navn</translation>
    </message>
    <message>
        <source>Telefonen er på</source>
        <translation>Telefonen er tændt</translation>
    </message>
    <message>
        <source>Telefonen er av</source>
        <translation>Telefonen er slukket</translation>
    </message>
</context>
<context>
    <name>ModemInitialiser</name>
    <message>
        <source>Venter på modemet: forsøk %1 av %2</source>
        <translation>Venter på modemmet: forsøg %1 af %2</translation>
    </message>
    <message>
        <source>Modemet svarer ikke</source>
        <translation>Modemmet svarer ikke</translation>
    </message>
</context>
<context>
    <name>QtHost</name>
    <message>
        <source>Kan ikke lage lenken %1 til porten %2.</source>
        <translation>Kan ikke oprette linket %1 til porten %2.</translation>
    </message>
</context>
<context>
    <name>QueueWords</name>
    <message>
        <source>En melding sendes nå.</source>
        <translation>En besked sendes nu.</translation>
    </message>
    <message>
        <source>Ingenting sendes før modemet er klart.</source>
        <translation>Intet sendes, før modemmet er klart.</translation>
    </message>
    <message>
        <source>Ingenting sendes så lenge en SMS blir skrevet.</source>
        <translation>Intet sendes, så længe en SMS bliver skrevet.</translation>
    </message>
    <message>
        <source>Neste melding sendes ca. kl. %1.</source>
        <translation>Næste besked sendes ca. kl. %1.</translation>
    </message>
    <message>
        <source>og %1 mottakere til</source>
        <translation>og %1 modtagere til</translation>
    </message>
    <message>
        <source>Ingen meldinger venter på å bli sendt.</source>
        <translation>Ingen beskeder venter på at blive sendt.</translation>
    </message>
    <message>
        <source>1 melding venter på å bli sendt:</source>
        <translation>1 besked venter på at blive sendt:</translation>
    </message>
    <message>
        <source>%1 meldinger venter på å bli sendt:</source>
        <translation>%1 beskeder venter på at blive sendt:</translation>
    </message>
</context>
<context>
    <name>StatusWords</name>
    <message>
        <source>Kommandoen ligger i køen og er ikke sendt ennå.</source>
        <translation>Kommandoen ligger i køen og er ikke sendt endnu.</translation>
    </message>
    <message>
        <source>Nettet tok ikke imot kommandoen, og den sendes ikke igjen av seg selv.</source>
        <translation>Nettet tog ikke imod kommandoen, og den sendes ikke igen af sig selv.</translation>
    </message>
    <message>
        <source>Ingen kommando ligger i køen.</source>
        <translation>Ingen kommando ligger i køen.</translation>
    </message>
    <message>
        <source>Kommandoen ble sendt %1 kl. %2.</source>
        <translation>Kommandoen blev sendt %1 kl. %2.</translation>
    </message>
    <message>
        <source>Kommandoen er sendt.</source>
        <translation>Kommandoen er sendt.</translation>
    </message>
    <message>
        <source>Nettet melder at den ikke kom frem.</source>
        <translation>Nettet melder, at den ikke nåede frem.</translation>
    </message>
    <message>
        <source>Den kom frem %1 kl. %2.</source>
        <translation>Den nåede frem %1 kl. %2.</translation>
    </message>
    <message>
        <source>Døren har ikke svart ennå.</source>
        <translation>Døren har ikke svaret endnu.</translation>
    </message>
    <message>
        <source>Perioden venter på at brukerens forrige periode er borte fra døren.</source>
        <translation>Perioden venter på, at brugerens forrige periode er væk fra døren.</translation>
    </message>
    <message>
        <source>Perioden er lagret. Kommandoen legges snart i køen.</source>
        <translation>Perioden er gemt. Kommandoen lægges snart i køen.</translation>
    </message>
    <message>
        <source>Perioden er lagret. Kommandoen legges i køen når modemet er klart.</source>
        <translation>Perioden er gemt. Kommandoen lægges i køen, når modemmet er klart.</translation>
    </message>
    <message>
        <source>Døren har meldt at brukeren er lagt inn.</source>
        <translation>Døren har meldt, at brugeren er lagt ind.</translation>
    </message>
    <message>
        <source>En ny kommando ligger i køen og er ikke sendt ennå.</source>
        <translation>En ny kommando ligger i køen og er ikke sendt endnu.</translation>
    </message>
    <message>
        <source>Brukeren skal slettes fra døren.</source>
        <translation>Brugeren skal slettes fra døren.</translation>
    </message>
</context>
<context>
    <name>DoorSearch</name>
    <message>
        <source>Søk i alle dører</source>
        <translation>Søg i alle døre</translation>
    </message>
    <message>
        <source>Nummer eller navn</source>
        <translation>Navn eller nummer</translation>
    </message>
    <message>
        <source>Treff i alle dører</source>
        <translation>Fundet i alle døre</translation>
    </message>
    <message>
        <source>Dør</source>
        <translation>Dør</translation>
    </message>
    <message>
        <source>Nummer</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Navn</source>
        <translation>Navn</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>%1, venter fra %2</source>
        <translation>%1, venter fra %2</translation>
    </message>
    <message>
        <source>Ingen treff</source>
        <translation>Intet fundet</translation>
    </message>
    <message>
        <source>Søker …</source>
        <translation>Søger …</translation>
    </message>
    <message>
        <source>Det finnes flere treff. Skriv mer.</source>
        <translation>Der er flere. Skriv mere.</translation>
    </message>
    <message>
        <source>Søket feilet: %1</source>
        <translation>Søgningen mislykkedes: %1</translation>
    </message>
</context>
<context>
    <name>FreeSms</name>
    <message>
        <source>%1 av %2 tegn, 1 melding</source>
        <translation>%1 af %2 tegn, 1 besked</translation>
    </message>
    <message>
        <source>%1 tegn, %2 meldinger</source>
        <translation>%1 tegn, %2 beskeder</translation>
    </message>
    <message>
        <source>Over %1 tegn: Meldingen blir ikke sendt. Uten sendingsbekreftelse blir den liggende og sperrer for dem som venter.</source>
        <translation>Over %1 tegn: Beskeden bliver ikke sendt. Uden leveringsrapport bliver den liggende og spærrer for dem, der venter.</translation>
    </message>
    <message>
        <source>Over %1 tegn: Modemet får alt i ett stykke, og kan dele, kutte eller avvise det.</source>
        <translation>Over %1 tegn: Modemet får det hele i ét stykke og kan dele, afkorte eller afvise det.</translation>
    </message>
    <message>
        <source>Kommer fram som @: %1</source>
        <translation>Når frem som @: %1</translation>
    </message>
    <message>
        <source>Kommer fram som ?: %1</source>
        <translation>Når frem som ?: %1</translation>
    </message>
    <message>
        <source>Døren leser hele meldingen, med linjeskift, som én kommando.</source>
        <translation>Døren læser hele beskeden, også linjeskift, som én kommando.</translation>
    </message>
</context>
</TS>
