<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="sv_SE" sourcelanguage="nb_NO">
<context>
    <name>UserPanel</name>
    <message>
        <source>Fra time</source>
        <translation>Från klockan</translation>
    </message>
    <message>
        <source>Til time</source>
        <translation>Till klockan</translation>
    </message>
    <message>
        <source>Antall</source>
        <translation>Antal</translation>
    </message>
    <message>
        <source>I tabellen står en dato som ikke kan leses: %1</source>
        <translation>I tabellen står ett datum som inte kan läsas: %1</translation>
    </message>
    <message>
        <source>I tabellen står en dato som ikke kan leses: %1. Vil du registrere perioden slik den står på skjermen?</source>
        <translation>I tabellen står ett datum som inte kan läsas: %1. Vill du registrera perioden som den står på skärmen?</translation>
    </message>
    <message>
        <source>Brukeren står ikke lenger i tabellen.</source>
        <translation>Användaren står inte längre i tabellen.</translation>
    </message>
    <message>
        <source>Kolonnebredder som fra start</source>
        <translation>Ursprungliga kolumnbredder</translation>
    </message>
    <message>
        <source>Brukerne kunne ikke leses.</source>
        <translation>Användarna kunde inte läsas.</translation>
    </message>
    <message>
        <source>Ingen dør er valgt. Legg inn en dør i listen over dører.</source>
        <translation>Ingen dörr är vald. Lägg in en dörr i listan över dörrar.</translation>
    </message>
    <message>
        <source>Ingen perioder venter på denne døren.</source>
        <translation>Inga perioder väntar på den här dörren.</translation>
    </message>
    <message>
        <source>Døren har ingen brukere ennå. Trykk «%1» for å legge inn den første.</source>
        <translation>Dörren har inga användare ännu. Tryck på ”%1” för att lägga in den första.</translation>
    </message>
    <message>
        <source>Ingen brukere har denne kontoen. Velg en annen fane.</source>
        <translation>Inga användare har det här kontot. Välj en annan flik.</translation>
    </message>
    <message>
        <source>Hent tilbake</source>
        <translation>Hämta tillbaka</translation>
    </message>
    <message>
        <source>Henter tilbake det som sto i feltene før de ble tømt</source>
        <translation>Hämtar tillbaka det som stod i fälten innan de tömdes</translation>
    </message>
    <message>
        <source>Én adgang mer</source>
        <translation>Ett tillträde till</translation>
    </message>
    <message>
        <source>Én adgang mindre</source>
        <translation>Ett tillträde mindre</translation>
    </message>
    <message>
        <source>Antall adganger</source>
        <translation>Antal tillträden</translation>
    </message>
    <message>
        <source>Kontofaner</source>
        <translation>Kontoflikar</translation>
    </message>
    <message>
        <source>Brukere</source>
        <translation>Användare</translation>
    </message>
</context>
<context>
    <name>Commands</name>
    <message>
        <source>Perioden mangler en gyldig dato</source>
        <translation>Perioden saknar ett giltigt datum</translation>
    </message>
</context>
<context>
    <name>StartNyBruker</name>
    <message>
        <source>Teksten er ikke en dato: %1</source>
        <translation>Texten är inget datum: %1</translation>
    </message>
</context>
<context>
    <name>LineSelection</name>
    <message>
        <source>Portnummeret må være et helt tall fra 1 til 65535</source>
        <translation>Portnumret måste vara ett heltal från 1 till 65535</translation>
    </message>
    <message>
        <source>Maskinen har ingen serieport nå.</source>
        <translation>Datorn har ingen serieport just nu.</translation>
    </message>
</context>
<context>
    <name>SmsSubmitter</name>
    <message>
        <source>Mottakeren er ikke et telefonnummer</source>
        <translation>Mottagaren är inget telefonnummer</translation>
    </message>
</context>
<context>
    <name>CharacterTables</name>
    <message>
        <source>Tegnet finnes ikke i tegntabellen</source>
        <translation>Tecknet finns inte i teckentabellen</translation>
    </message>
</context>
<context>
    <name>MessageReader</name>
    <message>
        <source>Modemet sletter ikke melding %1. Meldingene etter den blir ikke lest før den er slettet.</source>
        <translation>Modemet raderar inte meddelande %1. Meddelandena efter det läses inte förrän det är raderat.</translation>
    </message>
</context>
<context>
    <name>ModemWatcher</name>
    <message>
        <source>Forbindelsen med modemet er brutt. Velg COM-porten på nytt.</source>
        <translation>Förbindelsen med modemet är bruten. Välj COM-porten på nytt.</translation>
    </message>
    <message>
        <source>Modemet settes opp på nytt</source>
        <translation>Modemet ställs in på nytt</translation>
    </message>
</context>
<context>
    <name>frmMain</name>
    <message>
        <source>Valget av database ble avbrutt.</source>
        <translation>Valet av databas avbröts.</translation>
    </message>
</context>
<context>
    <name>LanguagePass</name>
    <message>
        <source>Det er ingen forbindelse med databasen.</source>
        <translation>Det finns ingen förbindelse med databasen.</translation>
    </message>
</context>
<context>
    <name>LanguageTable</name>
    <message>
        <source>Landskode %1 har ikke noe språk</source>
        <translation>Landskod %1 har inget språk</translation>
    </message>
</context>
<context>
    <name>NewFile</name>
    <message>
        <source>Kan ikke lage filen %1: %2</source>
        <translation>Kan inte skapa filen %1: %2</translation>
    </message>
</context>
<context>
    <name>Connection</name>
    <message>
        <source>Det finnes allerede en rad med dette nummeret</source>
        <translation>Det finns redan en rad med det numret</translation>
    </message>
    <message>
        <source>Databasen er låst av et annet program</source>
        <translation>Databasen är låst av ett annat program</translation>
    </message>
    <message>
        <source>Disken er full. Ingenting ble lagret.</source>
        <translation>Disken är full. Inget sparades.</translation>
    </message>
    <message>
        <source>Filen er ikke en database, eller den har et annet passord</source>
        <translation>Filen är ingen databas, eller så har den ett annat lösenord</translation>
    </message>
    <message>
        <source>Finner ikke databasefilen: %1</source>
        <translation>Hittar inte databasfilen: %1</translation>
    </message>
    <message>
        <source>Spørringen har et annet antall verdier</source>
        <translation>Frågan har ett annat antal värden</translation>
    </message>
    <message>
        <source>Forbindelsen til databasen er lukket</source>
        <translation>Förbindelsen med databasen är stängd</translation>
    </message>
    <message>
        <source>Databasen er i bruk av et annet program: %1</source>
        <translation>Databasen används av ett annat program: %1</translation>
    </message>
    <message>
        <source>Kan ikke få databasen alene: %1 (%2)</source>
        <translation>Kan inte få databasen för sig själv: %1 (%2)</translation>
    </message>
</context>
<context>
    <name>Recordset</name>
    <message>
        <source>Det er ingen gjeldende rad</source>
        <translation>Det finns ingen aktuell rad</translation>
    </message>
    <message>
        <source>Raden er endret eller slettet av en annen siden den ble lest</source>
        <translation>Raden har ändrats eller tagits bort av någon annan sedan den lästes</translation>
    </message>
    <message>
        <source>Tabellen er ikke åpnet</source>
        <translation>Tabellen är inte öppnad</translation>
    </message>
    <message>
        <source>Ingen database er åpen</source>
        <translation>Ingen databas är öppen</translation>
    </message>
    <message>
        <source>Kolonnen «%1» finnes ikke</source>
        <translation>Kolumnen ”%1” finns inte</translation>
    </message>
</context>
<context>
    <name>Compaction</name>
    <message>
        <source>Kan ikke slette %1: %2</source>
        <translation>Kan inte ta bort %1: %2</translation>
    </message>
    <message>
        <source>Kan ikke kopiere %1: %2</source>
        <translation>Kan inte kopiera %1: %2</translation>
    </message>
    <message>
        <source>Kan ikke gi %1 nytt navn: %2</source>
        <translation>Kan inte byta namn på %1: %2</translation>
    </message>
</context>
<context>
    <name>Criteria</name>
    <message>
        <source>Søkeverdien kan ikke ha apostrof: %1</source>
        <translation>Sökvärdet får inte innehålla apostrof: %1</translation>
    </message>
</context>
<context>
    <name>Text</name>
    <message>
        <source>Ugyldig argument</source>
        <translation>Ogiltigt argument</translation>
    </message>
    <message>
        <source>Teksten er ikke et tall</source>
        <translation>Texten är inget tal</translation>
    </message>
    <message>
        <source>Tallet er for stort</source>
        <translation>Talet är för stort</translation>
    </message>
</context>
<context>
    <name>QtOperator</name>
    <message>
        <source>%1 finnes allerede. Vil du erstatte filen?</source>
        <translation>%1 finns redan. Vill du ersätta filen?</translation>
    </message>
</context>
<context>
    <name>SerialPort</name>
    <message>
        <source>Porten er ikke åpen.</source>
        <translation>Porten är inte öppen.</translation>
    </message>
    <message>
        <source>Modemet på porten %1 tar ikke imot.</source>
        <translation>Modemet på porten %1 tar inte emot.</translation>
    </message>
    <message>
        <source>Forbindelsen med porten %1 er brutt.</source>
        <translation>Förbindelsen med porten %1 är bruten.</translation>
    </message>
    <message>
        <source>Porten %1 finnes ikke. Er modemet koblet til?</source>
        <translation>Porten %1 finns inte. Är modemet anslutet?</translation>
    </message>
    <message>
        <source>Porten %1 er i bruk av et annet program.</source>
        <translation>Porten %1 används av ett annat program.</translation>
    </message>
    <message>
        <source>Du har ikke adgang til porten %1. Du må være med i gruppen %2; be den som styrer maskinen, om det, og logg på maskinen på nytt.</source>
        <translation>Du har inte tillgång till porten %1. Du måste vara med i gruppen %2; be den som sköter datorn om det och logga in på datorn igen.</translation>
    </message>
    <message>
        <source>%1 er ingen serieport med et modem.</source>
        <translation>%1 är ingen serieport med ett modem.</translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>Look in:</source>
        <translation>Sök i:</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Bakåt</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Gå bakåt</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Framåt</translation>
    </message>
    <message>
        <source>Go forward</source>
        <translation>Gå framåt</translation>
    </message>
    <message>
        <source>Parent Directory</source>
        <translation>Överordnad mapp</translation>
    </message>
    <message>
        <source>Go to the parent directory</source>
        <translation>Gå till överordnad mapp</translation>
    </message>
    <message>
        <source>Create New Folder</source>
        <translation>Ny mapp</translation>
    </message>
    <message>
        <source>Create a New Folder</source>
        <translation>Skapa en ny mapp</translation>
    </message>
    <message>
        <source>List View</source>
        <translation>Lista</translation>
    </message>
    <message>
        <source>Change to list view mode</source>
        <translation>Visa som lista</translation>
    </message>
    <message>
        <source>Detail View</source>
        <translation>Detaljer</translation>
    </message>
    <message>
        <source>Change to detail view mode</source>
        <translation>Visa detaljer</translation>
    </message>
    <message>
        <source>Sidebar</source>
        <translation>Sidofält</translation>
    </message>
    <message>
        <source>List of places and bookmarks</source>
        <translation>Platser och bokmärken</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Filer</translation>
    </message>
    <message>
        <source>Files of type:</source>
        <translation>Filtyp:</translation>
    </message>
    <message>
        <source>File &amp;name:</source>
        <translation>Fil&amp;namn:</translation>
    </message>
    <message>
        <source>Directory:</source>
        <translation>Mapp:</translation>
    </message>
    <message>
        <source>Directories</source>
        <translation>Mappar</translation>
    </message>
    <message>
        <source>Find Directory</source>
        <translation>Hitta mapp</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öppna</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Öppna</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Spara som</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Spara</translation>
    </message>
    <message>
        <source>&amp;Choose</source>
        <translation>&amp;Välj</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Byt namn</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Ta bort</translation>
    </message>
    <message>
        <source>Show &amp;hidden files</source>
        <translation>Visa &amp;dolda filer</translation>
    </message>
    <message>
        <source>&amp;New Folder</source>
        <translation>&amp;Ny mapp</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Ny mapp</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Ta bort</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Ta bort</translation>
    </message>
    <message>
        <source>Show </source>
        <translation>Visa </translation>
    </message>
    <message>
        <source>All Files (*)</source>
        <translation>Alla filer (*)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alla filer (*)</translation>
    </message>
    <message>
        <source>Recent Places</source>
        <translation>Senaste platser</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Den här datorn</translation>
    </message>
    <message>
        <source>%1
File not found.
Please verify the correct file name was given.</source>
        <translation>%1
Filen hittades inte.
Kontrollera att filnamnet är rätt.</translation>
    </message>
    <message>
        <source>%1
Directory not found.
Please verify the correct directory name was given.</source>
        <translation>%1
Mappen hittades inte.
Kontrollera att mappnamnet är rätt.</translation>
    </message>
    <message>
        <source>'%1' is write protected.
Do you want to delete it anyway?</source>
        <translation>”%1” är skrivskyddad.
Vill du ta bort den ändå?</translation>
    </message>
    <message>
        <source>Are you sure you want to delete '%1'?</source>
        <translation>Är du säker på att du vill ta bort ”%1”?</translation>
    </message>
    <message>
        <source>Could not delete directory.</source>
        <translation>Mappen kunde inte tas bort.</translation>
    </message>
</context>
<context>
    <name>QAbstractFileIconProvider</name>
    <message>
        <source>Drive</source>
        <translation>Enhet</translation>
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
        <translation>Filmapp</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Mapp</translation>
    </message>
    <message>
        <source>Alias</source>
        <translation>Alias</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Genväg</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Okänd</translation>
    </message>
</context>
<context>
    <name>QFileSystemModel</name>
    <message>
        <source>Name</source>
        <translation>Namn</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Storlek</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Ändrad</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Dator</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Den här datorn</translation>
    </message>
    <message>
        <source>Invalid filename</source>
        <translation>Ogiltigt filnamn</translation>
    </message>
    <message>
        <source>&lt;b&gt;The name "%1" cannot be used.&lt;/b&gt;&lt;p&gt;Try using another name, with fewer characters or no punctuation marks.</source>
        <translation>&lt;b&gt;Namnet ”%1” kan inte användas.&lt;/b&gt;&lt;p&gt;Prova ett annat namn, med färre tecken eller utan skiljetecken.</translation>
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
        <translation>Avbryt</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öppna</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Spara</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Stäng</translation>
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
        <translation>Visa detaljer...</translation>
    </message>
    <message>
        <source>Hide Details...</source>
        <translation>Dölj detaljer...</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Ångra</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Gör om</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Klipp &amp;ut</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopiera</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>K&amp;listra in</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Ta bort</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Markera alla</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Ångra</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Gör om</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Klipp &amp;ut</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopiera</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>K&amp;listra in</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Ta bort</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Markera alla</translation>
    </message>
    <message>
        <source>Copy &amp;Link Location</source>
        <translation>Kopiera länka&amp;dress</translation>
    </message>
</context>
<context>
    <name>QAbstractSpinBox</name>
    <message>
        <source>&amp;Select All</source>
        <translation>&amp;Markera alla</translation>
    </message>
    <message>
        <source>&amp;Step up</source>
        <translation>&amp;Upp</translation>
    </message>
    <message>
        <source>Step &amp;down</source>
        <translation>&amp;Ner</translation>
    </message>
</context>
<context>
    <name>QIODevice</name>
    <message>
        <source>Permission denied</source>
        <translation>Åtkomst nekad</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>För många öppna filer</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>Filen eller mappen finns inte</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>Det finns inget mer utrymme på disken</translation>
    </message>
</context>
<context>
    <name>QScrollBar</name>
    <message>
        <source>Scroll here</source>
        <translation>Rulla hit</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Överst</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Nederst</translation>
    </message>
    <message>
        <source>Page up</source>
        <translation>Sida upp</translation>
    </message>
    <message>
        <source>Page down</source>
        <translation>Sida ner</translation>
    </message>
    <message>
        <source>Scroll up</source>
        <translation>Rulla upp</translation>
    </message>
    <message>
        <source>Scroll down</source>
        <translation>Rulla ner</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>Vänster kant</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>Höger kant</translation>
    </message>
    <message>
        <source>Page left</source>
        <translation>Sida åt vänster</translation>
    </message>
    <message>
        <source>Page right</source>
        <translation>Sida åt höger</translation>
    </message>
    <message>
        <source>Scroll left</source>
        <translation>Rulla åt vänster</translation>
    </message>
    <message>
        <source>Scroll right</source>
        <translation>Rulla åt höger</translation>
    </message>
</context>
<context>
    <name>QTabBar</name>
    <message>
        <source>Scroll Left</source>
        <translation>Rulla åt vänster</translation>
    </message>
    <message>
        <source>Scroll Right</source>
        <translation>Rulla åt höger</translation>
    </message>
</context>
<context>
    <name>TcpSocket</name>
    <message>
        <source>Ingen adgang til nettet</source>
        <translation>Ingen åtkomst till nätet</translation>
    </message>
    <message>
        <source>For mange åpne forbindelser</source>
        <translation>För många öppna förbindelser</translation>
    </message>
    <message>
        <source>Nettet kan ikke dette</source>
        <translation>Nätet kan inte detta</translation>
    </message>
    <message>
        <source>Adressen er i bruk</source>
        <translation>Adressen används redan</translation>
    </message>
    <message>
        <source>Adressen er ikke tilgjengelig</source>
        <translation>Adressen är inte tillgänglig</translation>
    </message>
    <message>
        <source>Nettet kan ikke nås</source>
        <translation>Nätet kan inte nås</translation>
    </message>
    <message>
        <source>Forbindelsen ble brutt av motparten</source>
        <translation>Förbindelsen bröts av motparten</translation>
    </message>
    <message>
        <source>Tiden for tilkobling løp ut</source>
        <translation>Tiden för anslutning gick ut</translation>
    </message>
    <message>
        <source>Tilkobling avvist</source>
        <translation>Anslutningen avvisades</translation>
    </message>
    <message>
        <source>Fant ikke verten</source>
        <translation>Hittade inte värden</translation>
    </message>
    <message>
        <source>Systemkallet feilet</source>
        <translation>Systemanropet misslyckades</translation>
    </message>
</context>
<context>
    <name>ModemPanel</name>
    <message>
        <source>På</source>
        <translation>På</translation>
    </message>
    <message>
        <source>Av</source>
        <translation>Av</translation>
    </message>
    <message>
        <source>Modemet er av</source>
        <translation>Modemet är av</translation>
    </message>
    <message>
        <source>Modemet er på</source>
        <translation>Modemet är på</translation>
    </message>
    <message>
        <source>Modemets tilstand</source>
        <translation>Modemets tillstånd</translation>
    </message>
    <message>
        <source>Modemets navn</source>
        <translation>Modemets namn</translation>
    </message>
</context>
<context>
    <name>NetworkModemPanel</name>
    <message>
        <source>Vis Modemkommunikasjon</source>
        <translation>Visa modemkommunikation</translation>
    </message>
    <message>
        <source>Skjul Modemkommunikasjon</source>
        <translation>Dölj modemkommunikation</translation>
    </message>
    <message>
        <source>Meldinger fra nettverksmodemet</source>
        <translation>Meddelanden från nätverksmodemet</translation>
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
        <translation>Föregående meddelande</translation>
    </message>
    <message>
        <source>Neste melding</source>
        <translation>Nästa meddelande</translation>
    </message>
    <message>
        <source>Bla i meldinger</source>
        <translation>Bläddra bland meddelanden</translation>
    </message>
    <message>
        <source>Navn</source>
        <translation>Namn</translation>
    </message>
    <message>
        <source>Modemet er på</source>
        <translation>Modemet är på</translation>
    </message>
    <message>
        <source>Modemet er av</source>
        <translation>Modemet är av</translation>
    </message>
    <message>
        <source>Telefonens skjerm</source>
        <translation>Telefonens skärm</translation>
    </message>
</context>
<context>
    <name>UpDown</name>
    <message>
        <source>Opp</source>
        <translation>Upp</translation>
    </message>
    <message>
        <source>Ned</source>
        <translation>Ner</translation>
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
        <translation>A&amp;nvändare:</translation>
    </message>
    <message>
        <source>&amp;Passord:</source>
        <translation>&amp;Lösenord:</translation>
    </message>
    <message>
        <source>&amp;Maskin:</source>
        <translation>&amp;Dator:</translation>
    </message>
    <message>
        <source>Avbryt</source>
        <translation>Avbryt</translation>
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
        <translation>Stängd  (L)</translation>
    </message>
    <message>
        <source>Oppe    (O)</source>
        <translation>Öppen   (O)</translation>
    </message>
    <message>
        <source>Oppe hverdager</source>
        <translation>Öppen vardagar</translation>
    </message>
    <message>
        <source>Oppe alle dager</source>
        <translation>Öppen alla dagar</translation>
    </message>
    <message>
        <source>Bistabil hverdager</source>
        <translation>Bistabil vardagar</translation>
    </message>
    <message>
        <source>Bistabil alle dager</source>
        <translation>Bistabil alla dagar</translation>
    </message>
    <message>
        <source>Bare i dag</source>
        <translation>Bara i dag</translation>
    </message>
    <message>
        <source>Hverdager int. 2</source>
        <translation>Vardagar int. 2</translation>
    </message>
    <message>
        <source>Alle dager int. 2</source>
        <translation>Alla dagar int. 2</translation>
    </message>
    <message>
        <source>ALARM AV</source>
        <translation>LARM AV</translation>
    </message>
    <message>
        <source>ALARM PÅ</source>
        <translation>LARM PÅ</translation>
    </message>
    <message>
        <source>Åpnet ved ALARM</source>
        <translation>Öppnad vid LARM</translation>
    </message>
    <message>
        <source>Stengt ved ALARM</source>
        <translation>Stängd vid LARM</translation>
    </message>
    <message>
        <source>Endebryter A</source>
        <translation>Gränslägesbrytare A</translation>
    </message>
    <message>
        <source>Endebryter B</source>
        <translation>Gränslägesbrytare B</translation>
    </message>
    <message>
        <source>Endebr.A m/rapport</source>
        <translation>Gränsläge A m/rapport</translation>
    </message>
    <message>
        <source>Endebr.B m/rapport</source>
        <translation>Gränsläge B m/rapport</translation>
    </message>
    <message>
        <source>ALARM Enderbryter</source>
        <translation>LARM Gränslägesbrytare</translation>
    </message>
</context>
<context>
    <name>frmKeyProperties</name>
    <message>
        <source>Dør Oppsett</source>
        <translation>Dörrinställningar</translation>
    </message>
    <message>
        <source>DØR NUMMER</source>
        <translation>DÖRRNUMMER</translation>
    </message>
    <message>
        <source>DØR NAVN</source>
        <translation>DÖRRNAMN</translation>
    </message>
    <message>
        <source>Bygning</source>
        <translation>Byggnad</translation>
    </message>
    <message>
        <source>Sikkerhetsnivå</source>
        <translation>Säkerhetsnivå</translation>
    </message>
    <message>
        <source>Type dørenhet</source>
        <translation>Typ av dörrenhet</translation>
    </message>
    <message>
        <source>N - Normal, L - Låst, O - Oppe</source>
        <translation>N - Normal, L - Låst, O - Öppen</translation>
    </message>
    <message>
        <source>Administratorer</source>
        <translation>Administratörer</translation>
    </message>
    <message>
        <source>Administrator</source>
        <translation>Administratör</translation>
    </message>
    <message>
        <source>Telefonnummer til Admin - 8 SIFFER</source>
        <translation>Telefonnummer till Admin - 8 SIFFROR</translation>
    </message>
    <message>
        <source>RESET ADMIN</source>
        <translation>RESET ADMIN</translation>
    </message>
    <message>
        <source>Administrator 1</source>
        <translation>Administratör 1</translation>
    </message>
    <message>
        <source>Administrator 2</source>
        <translation>Administratör 2</translation>
    </message>
    <message>
        <source>Administrator 3</source>
        <translation>Administratör 3</translation>
    </message>
    <message>
        <source>Administrator 4</source>
        <translation>Administratör 4</translation>
    </message>
    <message>
        <source>Administrator 5</source>
        <translation>Administratör 5</translation>
    </message>
    <message>
        <source>Telefonnummer til Admin1 - 8 SIFFER</source>
        <translation>Telefonnummer till Admin1 - 8 SIFFROR</translation>
    </message>
    <message>
        <source>Telefonnummer til Admin2 - 8 SIFFER</source>
        <translation>Telefonnummer till Admin2 - 8 SIFFROR</translation>
    </message>
    <message>
        <source>Telefonnummer til Admin3 - 8 SIFFER</source>
        <translation>Telefonnummer till Admin3 - 8 SIFFROR</translation>
    </message>
    <message>
        <source>Telefonnummer til Admin4 - 8 SIFFER</source>
        <translation>Telefonnummer till Admin4 - 8 SIFFROR</translation>
    </message>
    <message>
        <source>Telefonnummer til Admin5 - 8 SIFFER</source>
        <translation>Telefonnummer till Admin5 - 8 SIFFROR</translation>
    </message>
    <message>
        <source>Send ny ADMIN 1</source>
        <translation>Skicka ny ADMIN 1</translation>
    </message>
    <message>
        <source>Send ny ADMIN 2</source>
        <translation>Skicka ny ADMIN 2</translation>
    </message>
    <message>
        <source>Send ny ADMIN 3</source>
        <translation>Skicka ny ADMIN 3</translation>
    </message>
    <message>
        <source>Send ny ADMIN 4</source>
        <translation>Skicka ny ADMIN 4</translation>
    </message>
    <message>
        <source>Send ny ADMIN 5</source>
        <translation>Skicka ny ADMIN 5</translation>
    </message>
    <message>
        <source>Dørenhet</source>
        <translation>Dörrenhet</translation>
    </message>
    <message>
        <source>Eget Nummer</source>
        <translation>Eget Nummer</translation>
    </message>
    <message>
        <source>Nøkkelens eget nummer - 8 siffer</source>
        <translation>Nyckelns eget nummer - 8 siffror</translation>
    </message>
    <message>
        <source>Send EGET nr.</source>
        <translation>Skicka EGET nr.</translation>
    </message>
    <message>
        <source>Navn</source>
        <translation>Namn</translation>
    </message>
    <message>
        <source>Send Navn</source>
        <translation>Skicka Namn</translation>
    </message>
    <message>
        <source>Åpningstid (sek.)</source>
        <translation>Öppettid (sek.)</translation>
    </message>
    <message>
        <source>Pulslengde i sekund</source>
        <translation>Pulslängd i sekunder</translation>
    </message>
    <message>
        <source>Send Åpningstid</source>
        <translation>Skicka Öppettid</translation>
    </message>
    <message>
        <source>Velkommen SMS</source>
        <translation>Välkommen SMS</translation>
    </message>
    <message>
        <source>Utmelding SMS</source>
        <translation>Avanmälan SMS</translation>
    </message>
    <message>
        <source>Alarmtekst</source>
        <translation>Larmtext</translation>
    </message>
    <message>
        <source>Undertekst</source>
        <translation>Undertext</translation>
    </message>
    <message>
        <source>TEKST 1</source>
        <translation>TEXT 1</translation>
    </message>
    <message>
        <source>TEKST 2</source>
        <translation>TEXT 2</translation>
    </message>
    <message>
        <source>TEKST 3</source>
        <translation>TEXT 3</translation>
    </message>
    <message>
        <source>TEKST 4</source>
        <translation>TEXT 4</translation>
    </message>
    <message>
        <source>TEKST 5</source>
        <translation>TEXT 5</translation>
    </message>
    <message>
        <source>TEKST 6</source>
        <translation>TEXT 6</translation>
    </message>
    <message>
        <source>Del en av velkomstmelding</source>
        <translation>Del ett av välkomstmeddelandet</translation>
    </message>
    <message>
        <source>Del to av velkomstmeldingen</source>
        <translation>Del två av välkomstmeddelandet</translation>
    </message>
    <message>
        <source>Del en av utmeldingen</source>
        <translation>Del ett av avanmälan</translation>
    </message>
    <message>
        <source>Del to av utmeldingen</source>
        <translation>Del två av avanmälan</translation>
    </message>
    <message>
        <source>Tekst ved eventuell ALARM</source>
        <translation>Text vid eventuellt LARM</translation>
    </message>
    <message>
        <source>Undertekst i meldingene</source>
        <translation>Undertext i meddelandena</translation>
    </message>
    <message>
        <source>Send ny tekst 1</source>
        <translation>Skicka ny text 1</translation>
    </message>
    <message>
        <source>Send ny tekst 2</source>
        <translation>Skicka ny text 2</translation>
    </message>
    <message>
        <source>Send ny tekst 3</source>
        <translation>Skicka ny text 3</translation>
    </message>
    <message>
        <source>Send ny tekst4</source>
        <translation>Skicka ny text4</translation>
    </message>
    <message>
        <source>Send ny tekst5</source>
        <translation>Skicka ny text5</translation>
    </message>
    <message>
        <source>Send ny tekst 6</source>
        <translation>Skicka ny text 6</translation>
    </message>
    <message>
        <source>Denne delen av velkomsmeldingen er fast</source>
        <translation>Denna del av välkomstmeddelandet är fast</translation>
    </message>
    <message>
        <source>Fast del av velkomstmeldingen</source>
        <translation>Fast del av välkomstmeddelandet</translation>
    </message>
    <message>
        <source>Ring (nummer til dør)</source>
        <translation>Ring (nummer till dörr)</translation>
    </message>
    <message>
        <source>Tider og funksjoner</source>
        <translation>Tider och funktioner</translation>
    </message>
    <message>
        <source>Innmelding fra klokken:</source>
        <translation>Anmälan från klockan:</translation>
    </message>
    <message>
        <source>Utmelding fra klokken:</source>
        <translation>Avanmälan från klockan:</translation>
    </message>
    <message>
        <source>til</source>
        <translation>till</translation>
    </message>
    <message>
        <source>Innmelding fra klokken</source>
        <translation>Anmälan från klockan</translation>
    </message>
    <message>
        <source>Innmelding til klokken</source>
        <translation>Anmälan till klockan</translation>
    </message>
    <message>
        <source>Utmelding fra klokken</source>
        <translation>Avanmälan från klockan</translation>
    </message>
    <message>
        <source>Utmelding til klokken</source>
        <translation>Avanmälan till klockan</translation>
    </message>
    <message>
        <source>Send nye tider</source>
        <translation>Skicka nya tider</translation>
    </message>
    <message>
        <source>Alarmfunksjon</source>
        <translation>Larmfunktion</translation>
    </message>
    <message>
        <source>Send  Funksjon</source>
        <translation>Skicka  Funktion</translation>
    </message>
    <message>
        <source>Lås Status</source>
        <translation>Låsstatus</translation>
    </message>
    <message>
        <source>Send Lås Status</source>
        <translation>Skicka Låsstatus</translation>
    </message>
    <message>
        <source>HENT BRUKERE FRA LÅS</source>
        <translation>HÄMTA ANVÄNDARE FRÅN LÅS</translation>
    </message>
    <message>
        <source>Hent BRUKERE</source>
        <translation>Hämta ANVÄNDARE</translation>
    </message>
    <message>
        <source>Registrer ADMIN</source>
        <translation>Registrera ADMIN</translation>
    </message>
    <message>
        <source>Reset ADMIN</source>
        <translation>Reset ADMIN</translation>
    </message>
    <message>
        <source> Er det opprettet noen nøkkel under Key Data??</source>
        <translation> Har någon nyckel skapats under Key Data??</translation>
    </message>
    <message>
        <source>Eget nummer er ikke angitt. Du bør sende dette til nøkkelenhet!!</source>
        <translation>Eget nummer är inte angivet. Du bör skicka det till nyckelenheten!!</translation>
    </message>
    <message>
        <source>Sjekk om EGET NUMMER er riktig !!!</source>
        <translation>Kontrollera om EGET NUMMER är rätt !!!</translation>
    </message>
    <message>
        <source>Dette vil endre ALARMFUNKSJONEN. Vil du fortsette?</source>
        <translation>Detta kommer att ändra LARMFUNKTIONEN. Vill du fortsätta?</translation>
    </message>
    <message>
        <source>Dette vil Åpne eller Lukke port eller dør for alle brukere. Vil du fortsette?</source>
        <translation>Detta kommer att Öppna eller Stänga port eller dörr för alla användare. Vill du fortsätta?</translation>
    </message>
    <message>
        <source>Ny instilling (</source>
        <translation>Ny inställning (</translation>
    </message>
    <message>
        <source>) blir sendt til nøkkelenhet</source>
        <translation>) skickas till nyckelenheten</translation>
    </message>
    <message>
        <source>Tast inn ÅPNINGSTID hverdager</source>
        <translation>Ange ÖPPETTID vardagar</translation>
    </message>
    <message>
        <source>ÅPNE</source>
        <translation>ÖPPNA</translation>
    </message>
    <message>
        <source>Endringene er ikke lagret. Vil du lukke likevel?</source>
        <translation>Ändringarna är inte sparade. Vill du stänga ändå?</translation>
    </message>
    <message>
        <source>En dør må ha et nummer.</source>
        <translation>En dörr måste ha ett nummer.</translation>
    </message>
    <message>
        <source>Det er ikke valgt noen dør. Ingenting ble sendt.</source>
        <translation>Ingen dörr är vald. Inget skickades.</translation>
    </message>
    <message>
        <source>Velg alle fire klokkeslett. Ingenting ble sendt.</source>
        <translation>Välj alla fyra klockslagen. Inget skickades.</translation>
    </message>
</context>
<context>
    <name>BrowserTable</name>
    <message>
        <source>Bruker</source>
        <translation>Användare</translation>
    </message>
    <message>
        <source>Etternavn</source>
        <translation>Efternamn</translation>
    </message>
    <message>
        <source>Fornavn</source>
        <translation>Förnamn</translation>
    </message>
    <message>
        <source>Gate</source>
        <translation>Gata</translation>
    </message>
    <message>
        <source>PostNr.</source>
        <translation>Postnr</translation>
    </message>
    <message>
        <source>Sted</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Tillatelser</source>
        <translation>Tillstånd</translation>
    </message>
    <message>
        <source>&amp;Slett</source>
        <translation>&amp;Ta bort</translation>
    </message>
    <message>
        <source>&amp;Opp&amp;frisk</source>
        <translation>&amp;Uppdatera</translation>
    </message>
    <message>
        <source>Opp&amp;frisk</source>
        <translation>&amp;Uppdatera</translation>
    </message>
    <message>
        <source>&amp;Oppdater</source>
        <translation>&amp;Uppdatera</translation>
    </message>
    <message>
        <source>&amp;Avslutt</source>
        <translation>&amp;Avsluta</translation>
    </message>
    <message>
        <source>&amp;VELG</source>
        <translation>&amp;VÄLJ</translation>
    </message>
    <message>
        <source>&amp;Legg til</source>
        <translation>&amp;Lägg till</translation>
    </message>
    <message>
        <source>&amp;Rediger</source>
        <translation>&amp;Redigera</translation>
    </message>
    <message>
        <source>&amp;Update</source>
        <translation>&amp;Spara</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>Av&amp;bryt</translation>
    </message>
    <message>
        <source>Dør Nummer</source>
        <translation>Dörrnummer</translation>
    </message>
    <message>
        <source>Dør Navn</source>
        <translation>Dörrnamn</translation>
    </message>
    <message>
        <source>Bygning</source>
        <translation>Byggnad</translation>
    </message>
    <message>
        <source>Sikkerhetsnivå</source>
        <translation>Säkerhetsnivå</translation>
    </message>
    <message>
        <source>BRUKER</source>
        <translation>ANVÄNDARE</translation>
    </message>
    <message>
        <source>PASSORD</source>
        <translation>LÖSENORD</translation>
    </message>
    <message>
        <source>SIKKERHETSNIVÅ</source>
        <translation>SÄKERHETSNIVÅ</translation>
    </message>
    <message>
        <source>Alle Brukere</source>
        <translation>Alla Användare</translation>
    </message>
    <message>
        <source>SMS Mottatt</source>
        <translation>SMS Mottagna</translation>
    </message>
    <message>
        <source>SMS Sendt</source>
        <translation>SMS Skickade</translation>
    </message>
    <message>
        <source>Dør</source>
        <translation>Dörr</translation>
    </message>
    <message>
        <source>Passord</source>
        <translation>Lösenord</translation>
    </message>
    <message>
        <source>LOGG</source>
        <translation>LOGG</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Språk</translation>
    </message>
    <message>
        <source>ALLE</source>
        <translation>ALLA</translation>
    </message>
    <message>
        <source>Velkommen som ny bruker</source>
        <translation>Välkommen som ny användare</translation>
    </message>
    <message>
        <source>for å åpne porten</source>
        <translation>för att öppna porten</translation>
    </message>
    <message>
        <source>De er slettet som bruker</source>
        <translation>Ni är borttagen som användare</translation>
    </message>
    <message>
        <source>Takk for besøket og velkommen igjen</source>
        <translation>Tack för besöket och välkommen åter</translation>
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
        <translation>LARM AV</translation>
    </message>
    <message>
        <source>Normal (N)</source>
        <translation>Normal (N)</translation>
    </message>
    <message>
        <source> Husk Internasjonalt telefonnummer +47...</source>
        <translation> Kom ihåg internationellt telefonnummer +47...</translation>
    </message>
    <message>
        <source>Telefonnummer til nøkkelenhetene skal angis med internasjonalt telefonnummer +47....</source>
        <translation>Telefonnummer till nyckelenheterna ska anges som internationellt telefonnummer +47....</translation>
    </message>
    <message>
        <source>Er Du sikker. Dette vil slette NØKKEL og alle tilhørende brukere!!</source>
        <translation>Är du säker? Detta tar bort NYCKEL och alla tillhörande användare!!</translation>
    </message>
    <message>
        <source>Døren er lagret, men med dette sikkerhetsnivået vises den ikke for deg.</source>
        <translation>Dörren är sparad, men med denna säkerhetsnivå visas den inte för dig.</translation>
    </message>
    <message>
        <source>Denne brukeren er registrert på en eller flere nøkler. Kan ikke slettes!!!</source>
        <translation>Den här användaren är registrerad på en eller flera nycklar. Kan inte tas bort!!!</translation>
    </message>
    <message>
        <source>Det er ikke valgt noen dør.</source>
        <translation>Ingen dörr är vald.</translation>
    </message>
</context>
<context>
    <name>RecordBrowser</name>
    <message>
        <source>S&amp;øk:</source>
        <translation>S&amp;ök:</translation>
    </message>
    <message>
        <source>Tekst i en av kolonnene</source>
        <translation>Text i någon av kolumnerna</translation>
    </message>
    <message>
        <source>Esc stopper</source>
        <translation>Esc stoppar</translation>
    </message>
    <message>
        <source>Lagre so&amp;m CSV</source>
        <translation>Spara so&amp;m CSV</translation>
    </message>
    <message>
        <source>Første rad</source>
        <translation>Första raden</translation>
    </message>
    <message>
        <source>Forrige rad</source>
        <translation>Föregående rad</translation>
    </message>
    <message>
        <source>Neste rad</source>
        <translation>Nästa rad</translation>
    </message>
    <message>
        <source>Siste rad</source>
        <translation>Sista raden</translation>
    </message>
    <message>
        <source>%1 rad</source>
        <translation>%1 rad</translation>
    </message>
    <message>
        <source>%1 rader</source>
        <translation>%1 rader</translation>
    </message>
    <message>
        <source>%1 treff</source>
        <translation>%1 träffar</translation>
    </message>
    <message>
        <source>Tabellen er tom.</source>
        <translation>Tabellen är tom.</translation>
    </message>
    <message>
        <source>Ingen rad har denne teksten.</source>
        <translation>Ingen rad har den texten.</translation>
    </message>
    <message>
        <source>Filen kunne ikke skrives. %1</source>
        <translation>Filen kunde inte skrivas. %1</translation>
    </message>
    <message>
        <source>Mappen finnes ikke.</source>
        <translation>Mappen finns inte.</translation>
    </message>
    <message>
        <source>Du har ikke adgang til å skrive der.</source>
        <translation>Du har inte rätt att skriva där.</translation>
    </message>
    <message>
        <source>Det er ikke mer plass på disken.</source>
        <translation>Det finns inte mer plats på disken.</translation>
    </message>
</context>
<context>
    <name>NumberCheck</name>
    <message>
        <source>Nummeret har tegn som ikke er siffer.</source>
        <translation>Numret har tecken som inte är siffror.</translation>
    </message>
    <message>
        <source>Uten «+» og landkode mister nummeret de tre første sifrene.</source>
        <translation>Utan ”+” och landskod förlorar numret de tre första siffrorna.</translation>
    </message>
    <message>
        <source>Siffer som mangler: %1</source>
        <translation>Siffror som saknas: %1</translation>
    </message>
    <message>
        <source>Siffer for mye: %1</source>
        <translation>Siffror för mycket: %1</translation>
    </message>
    <message>
        <source>Nummeret står ikke i katalogen.</source>
        <translation>Numret finns inte i katalogen.</translation>
    </message>
    <message>
        <source>I katalogen: %1</source>
        <translation>I katalogen: %1</translation>
    </message>
</context>
<context>
    <name>DoorPanel</name>
    <message>
        <source>Neste dør</source>
        <translation>Nästa dörr</translation>
    </message>
    <message>
        <source>Forrige dør</source>
        <translation>Föregående dörr</translation>
    </message>
    <message>
        <source>Dørens nummer</source>
        <translation>Dörrens nummer</translation>
    </message>
</context>
<context>
    <name>ReceivedPanel</name>
    <message>
        <source>Nyere melding</source>
        <translation>Nyare meddelande</translation>
    </message>
    <message>
        <source>Eldre melding</source>
        <translation>Äldre meddelande</translation>
    </message>
    <message>
        <source>Meldingens nummer</source>
        <translation>Meddelandets nummer</translation>
    </message>
    <message>
        <source>Avsenderens navn</source>
        <translation>Avsändarens namn</translation>
    </message>
    <message>
        <source>Telefonen er på</source>
        <translation>Telefonen är på</translation>
    </message>
    <message>
        <source>Telefonen er av</source>
        <translation>Telefonen är av</translation>
    </message>
</context>
<context>
    <name>ModemInitialiser</name>
    <message>
        <source>Venter på modemet: forsøk %1 av %2</source>
        <translation>Väntar på modemet: försök %1 av %2</translation>
    </message>
    <message>
        <source>Modemet svarer ikke</source>
        <translation>Modemet svarar inte</translation>
    </message>
</context>
<context>
    <name>QtHost</name>
    <message>
        <source>Kan ikke lage lenken %1 til porten %2.</source>
        <translation>Kan inte skapa länken %1 till porten %2.</translation>
    </message>
</context>
<context>
    <name>QueueWords</name>
    <message>
        <source>En melding sendes nå.</source>
        <translation>Ett meddelande skickas nu.</translation>
    </message>
    <message>
        <source>Ingenting sendes før modemet er klart.</source>
        <translation>Inget skickas förrän modemet är klart.</translation>
    </message>
    <message>
        <source>Ingenting sendes så lenge en SMS blir skrevet.</source>
        <translation>Inget skickas så länge ett SMS skrivs.</translation>
    </message>
    <message>
        <source>Neste melding sendes ca. kl. %1.</source>
        <translation>Nästa meddelande skickas ca kl. %1.</translation>
    </message>
    <message>
        <source>og %1 mottakere til</source>
        <translation>och %1 mottagare till</translation>
    </message>
    <message>
        <source>Ingen meldinger venter på å bli sendt.</source>
        <translation>Inga meddelanden väntar på att skickas.</translation>
    </message>
    <message>
        <source>1 melding venter på å bli sendt:</source>
        <translation>1 meddelande väntar på att skickas:</translation>
    </message>
    <message>
        <source>%1 meldinger venter på å bli sendt:</source>
        <translation>%1 meddelanden väntar på att skickas:</translation>
    </message>
</context>
<context>
    <name>StatusWords</name>
    <message>
        <source>Kommandoen ligger i køen og er ikke sendt ennå.</source>
        <translation>Kommandot ligger i kön och är inte skickat ännu.</translation>
    </message>
    <message>
        <source>Nettet tok ikke imot kommandoen, og den sendes ikke igjen av seg selv.</source>
        <translation>Nätet tog inte emot kommandot, och det skickas inte igen av sig självt.</translation>
    </message>
    <message>
        <source>Ingen kommando ligger i køen.</source>
        <translation>Inget kommando ligger i kön.</translation>
    </message>
    <message>
        <source>Kommandoen ble sendt %1 kl. %2.</source>
        <translation>Kommandot skickades %1 kl. %2.</translation>
    </message>
    <message>
        <source>Kommandoen er sendt.</source>
        <translation>Kommandot är skickat.</translation>
    </message>
    <message>
        <source>Nettet melder at den ikke kom frem.</source>
        <translation>Nätet meddelar att det inte kom fram.</translation>
    </message>
    <message>
        <source>Den kom frem %1 kl. %2.</source>
        <translation>Det kom fram %1 kl. %2.</translation>
    </message>
    <message>
        <source>Døren har ikke svart ennå.</source>
        <translation>Dörren har inte svarat ännu.</translation>
    </message>
    <message>
        <source>Perioden venter på at brukerens forrige periode er borte fra døren.</source>
        <translation>Perioden väntar på att användarens förra period är borta från dörren.</translation>
    </message>
    <message>
        <source>Perioden er lagret. Kommandoen legges snart i køen.</source>
        <translation>Perioden är sparad. Kommandot läggs snart i kön.</translation>
    </message>
    <message>
        <source>Perioden er lagret. Kommandoen legges i køen når modemet er klart.</source>
        <translation>Perioden är sparad. Kommandot läggs i kön när modemet är klart.</translation>
    </message>
    <message>
        <source>Døren har meldt at brukeren er lagt inn.</source>
        <translation>Dörren har meddelat att användaren är inlagd.</translation>
    </message>
    <message>
        <source>En ny kommando ligger i køen og er ikke sendt ennå.</source>
        <translation>Ett nytt kommando ligger i kön och är inte skickat ännu.</translation>
    </message>
    <message>
        <source>Brukeren skal slettes fra døren.</source>
        <translation>Användaren ska raderas från dörren.</translation>
    </message>
</context>
<context>
    <name>DoorSearch</name>
    <message>
        <source>Søk i alle dører</source>
        <translation>Sök i alla dörrar</translation>
    </message>
    <message>
        <source>Nummer eller navn</source>
        <translation>Nummer eller namn</translation>
    </message>
    <message>
        <source>Treff i alle dører</source>
        <translation>Träffar i alla dörrar</translation>
    </message>
    <message>
        <source>Dør</source>
        <translation>Dörr</translation>
    </message>
    <message>
        <source>Nummer</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Navn</source>
        <translation>Namn</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>%1, venter fra %2</source>
        <translation>%1, väntar från %2</translation>
    </message>
    <message>
        <source>Ingen treff</source>
        <translation>Inga träffar</translation>
    </message>
    <message>
        <source>Søker …</source>
        <translation>Söker …</translation>
    </message>
    <message>
        <source>Det finnes flere treff. Skriv mer.</source>
        <translation>Det finns fler träffar. Skriv mer.</translation>
    </message>
    <message>
        <source>Søket feilet: %1</source>
        <translation>Sökningen misslyckades: %1</translation>
    </message>
</context>
<context>
    <name>FreeSms</name>
    <message>
        <source>%1 av %2 tegn, 1 melding</source>
        <translation>%1 av %2 tecken, 1 meddelande</translation>
    </message>
    <message>
        <source>%1 tegn, %2 meldinger</source>
        <translation>%1 tecken, %2 meddelanden</translation>
    </message>
    <message>
        <source>Over %1 tegn: Meldingen blir ikke sendt. Uten sendingsbekreftelse blir den liggende og sperrer for dem som venter.</source>
        <translation>Över %1 tecken: Meddelandet skickas inte. Utan leveransrapport ligger det kvar och spärrar för dem som väntar.</translation>
    </message>
    <message>
        <source>Over %1 tegn: Modemet får alt i ett stykke, og kan dele, kutte eller avvise det.</source>
        <translation>Över %1 tecken: Modemet får allt i ett stycke och kan dela, korta av eller avvisa det.</translation>
    </message>
    <message>
        <source>Kommer fram som @: %1</source>
        <translation>Kommer fram som @: %1</translation>
    </message>
    <message>
        <source>Kommer fram som ?: %1</source>
        <translation>Kommer fram som ?: %1</translation>
    </message>
    <message>
        <source>Døren leser hele meldingen, med linjeskift, som én kommando.</source>
        <translation>Dörren läser hela meddelandet, med radbrytning, som ett enda kommando.</translation>
    </message>
</context>
</TS>
