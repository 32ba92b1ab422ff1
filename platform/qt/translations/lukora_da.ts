<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="da_DK" sourcelanguage="nb_NO">
<context>
    <name>Commands</name>
    <message>
        <source>Perioden mangler en gyldig dato</source>
        <translation>Perioden mangler en gyldig dato</translation>
    </message>
</context>
<context>
    <name>StoredDays</name>
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
    <name>ModemWatcher</name>
    <message>
        <source>Forbindelsen med modemet er brutt. Velg COM-porten på nytt.</source>
        <translation>Forbindelsen til modemet er afbrudt. Vælg COM-porten igen.</translation>
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
        <source>Databasen er låst av et annet program</source>
        <translation>Databasen er låst af et andet program</translation>
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
        <source>Porten %1 finnes ikke.</source>
        <translation>Porten %1 findes ikke.</translation>
    </message>
    <message>
        <source>Porten %1 er i bruk av et annet program, eller du har ikke adgang til den.</source>
        <translation>Porten %1 er i brug af et andet program, eller du har ikke adgang til den.</translation>
    </message>
    <message>
        <source>Porten %1 kan ikke åpnes som serieport.</source>
        <translation>Porten %1 kan ikke åbnes som seriel port.</translation>
    </message>
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
</TS>
