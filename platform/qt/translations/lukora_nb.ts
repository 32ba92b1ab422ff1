<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nb_NO">
<!-- Our own texts are Norwegian as they stand; these are those of the standard dialogues and fields. -->
<context>
    <name>QFileDialog</name>
    <message>
        <source>Look in:</source>
        <translation>Se i:</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Tilbake</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Gå tilbake</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Fram</translation>
    </message>
    <message>
        <source>Go forward</source>
        <translation>Gå fram</translation>
    </message>
    <message>
        <source>Parent Directory</source>
        <translation>Mappen over</translation>
    </message>
    <message>
        <source>Go to the parent directory</source>
        <translation>Gå til mappen over</translation>
    </message>
    <message>
        <source>Create New Folder</source>
        <translation>Ny mappe</translation>
    </message>
    <message>
        <source>Create a New Folder</source>
        <translation>Lag en ny mappe</translation>
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
        <translation>Sidefelt</translation>
    </message>
    <message>
        <source>List of places and bookmarks</source>
        <translation>Steder og bokmerker</translation>
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
        <translation>Finn mappe</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Åpne</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Åpne</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Lagre som</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Lagre</translation>
    </message>
    <message>
        <source>&amp;Choose</source>
        <translation>&amp;Velg</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Gi nytt navn</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Slett</translation>
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
        <translation>Slett</translation>
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
        <translation>Siste steder</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Min datamaskin</translation>
    </message>
    <message>
        <source>%1
File not found.
Please verify the correct file name was given.</source>
        <translation>%1
Finner ikke filen.
Kontroller at filnavnet er riktig.</translation>
    </message>
    <message>
        <source>%1
Directory not found.
Please verify the correct directory name was given.</source>
        <translation>%1
Finner ikke mappen.
Kontroller at mappenavnet er riktig.</translation>
    </message>
    <message>
        <source>'%1' is write protected.
Do you want to delete it anyway?</source>
        <translation>«%1» er skrivebeskyttet.
Vil du slette den likevel?</translation>
    </message>
    <message>
        <source>Are you sure you want to delete '%1'?</source>
        <translation>Er du sikker på at du vil slette «%1»?</translation>
    </message>
    <message>
        <source>Could not delete directory.</source>
        <translation>Kunne ikke slette mappen.</translation>
    </message>
</context>
<context>
    <name>QAbstractFileIconProvider</name>
    <message>
        <source>Drive</source>
        <translation>Stasjon</translation>
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
        <translation>Snarvei</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Ukjent</translation>
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
        <translation>Endret</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Datamaskin</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Min datamaskin</translation>
    </message>
    <message>
        <source>Invalid filename</source>
        <translation>Ugyldig filnavn</translation>
    </message>
    <message>
        <source>&lt;b&gt;The name "%1" cannot be used.&lt;/b&gt;&lt;p&gt;Try using another name, with fewer characters or no punctuation marks.</source>
        <translation>&lt;b&gt;Navnet «%1» kan ikke brukes.&lt;/b&gt;&lt;p&gt;Prøv et annet navn, med færre tegn eller uten skilletegn.</translation>
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
        <translation>Åpne</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Lagre</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Lukk</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nei</translation>
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
        <translation>&amp;Angre</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Gjør om</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Klipp &amp;ut</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopier</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Lim inn</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Slett</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Merk alt</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Angre</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Gjør om</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Klipp &amp;ut</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopier</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Lim inn</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Slett</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Merk alt</translation>
    </message>
    <message>
        <source>Copy &amp;Link Location</source>
        <translation>Kopier len&amp;keadresse</translation>
    </message>
</context>
<context>
    <name>QAbstractSpinBox</name>
    <message>
        <source>&amp;Select All</source>
        <translation>&amp;Merk alt</translation>
    </message>
    <message>
        <source>&amp;Step up</source>
        <translation>&amp;Opp</translation>
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
        <translation>Ingen tilgang</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>For mange åpne filer</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>Filen eller mappen finnes ikke</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>Det er ikke mer plass på disken</translation>
    </message>
</context>
<context>
    <name>QScrollBar</name>
    <message>
        <source>Scroll here</source>
        <translation>Rull hit</translation>
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
        <translation>Side opp</translation>
    </message>
    <message>
        <source>Page down</source>
        <translation>Side ned</translation>
    </message>
    <message>
        <source>Scroll up</source>
        <translation>Rull opp</translation>
    </message>
    <message>
        <source>Scroll down</source>
        <translation>Rull ned</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>Venstre kant</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>Høyre kant</translation>
    </message>
    <message>
        <source>Page left</source>
        <translation>Side til venstre</translation>
    </message>
    <message>
        <source>Page right</source>
        <translation>Side til høyre</translation>
    </message>
    <message>
        <source>Scroll left</source>
        <translation>Rull til venstre</translation>
    </message>
    <message>
        <source>Scroll right</source>
        <translation>Rull til høyre</translation>
    </message>
</context>
<context>
    <name>QTabBar</name>
    <message>
        <source>Scroll Left</source>
        <translation>Rull til venstre</translation>
    </message>
    <message>
        <source>Scroll Right</source>
        <translation>Rull til høyre</translation>
    </message>
</context>
</TS>
