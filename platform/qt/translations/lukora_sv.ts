<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="sv_SE" sourcelanguage="nb_NO">
<context>
    <name>Commands</name>
    <message>
        <source>Perioden mangler en gyldig dato</source>
        <translation>Perioden saknar ett giltigt datum</translation>
    </message>
</context>
<context>
    <name>StoredDays</name>
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
    <name>ModemWatcher</name>
    <message>
        <source>Forbindelsen med modemet er brutt. Velg COM-porten på nytt.</source>
        <translation>Förbindelsen med modemet är bruten. Välj COM-porten på nytt.</translation>
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
        <source>Databasen er låst av et annet program</source>
        <translation>Databasen är låst av ett annat program</translation>
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
        <source>Porten %1 finnes ikke.</source>
        <translation>Porten %1 finns inte.</translation>
    </message>
    <message>
        <source>Porten %1 er i bruk av et annet program, eller du har ikke adgang til den.</source>
        <translation>Porten %1 används av ett annat program, eller så har du inte tillgång till den.</translation>
    </message>
    <message>
        <source>Porten %1 kan ikke åpnes som serieport.</source>
        <translation>Porten %1 kan inte öppnas som serieport.</translation>
    </message>
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
</TS>
