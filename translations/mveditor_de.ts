<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>CheckStatus</name>
    <message>
        <source>Checking for new resources…</source>
        <translation>Suche nach neuen Ressourcen…</translation>
    </message>
    <message>
        <source>%1. Fetching previews…</source>
        <translation>%1. Vorschauen werden geladen…</translation>
    </message>
    <message>
        <source>%1. Previews %2 of %3</source>
        <translation>%1. Vorschauen: %2 von %3</translation>
    </message>
    <message>
        <source>Start the program again to check again</source>
        <translation>Für eine neue Prüfung das Programm neu starten</translation>
    </message>
    <message>
        <source>Catalogue updated</source>
        <translation>Katalog aktualisiert</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>Auf dem neuesten Stand</translation>
    </message>
    <message>
        <source>The server has resources that need a newer application</source>
        <translation>Der Server hat Ressourcen, die ein neueres Programm brauchen</translation>
    </message>
    <message>
        <source>The server&apos;s catalogue is older than this application</source>
        <translation>Der Katalog des Servers ist älter als dieses Programm</translation>
    </message>
    <message numerus="yes">
        <source>, %n preview(s) fetched</source>
        <translation>
            <numerusform>, %n Vorschau geladen</numerusform>
            <numerusform>, %n Vorschauen geladen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n preview(s) could not be fetched</source>
        <translation>
            <numerusform>, %n Vorschau konnte nicht geladen werden</numerusform>
            <numerusform>, %n Vorschauen konnten nicht geladen werden</numerusform>
        </translation>
    </message>
    <message>
        <source>Offline: %1; %2</source>
        <translation>Offline: %1; %2</translation>
    </message>
    <message>
        <source>Not updated: %1; %2</source>
        <translation>Nicht aktualisiert: %1; %2</translation>
    </message>
    <message>
        <source>Check cancelled; %1</source>
        <translation>Prüfung abgebrochen; %1</translation>
    </message>
    <message>
        <source>, but there is no catalogue to fetch previews for</source>
        <translation>, aber es ist kein Katalog da, zu dem Vorschauen gehören</translation>
    </message>
    <message>
        <source>catalogue of %1</source>
        <translation>Katalog vom %1</translation>
    </message>
    <message>
        <source>no catalogue has been downloaded yet</source>
        <translation>noch kein Katalog geladen</translation>
    </message>
</context>
<context>
    <name>DetailsPanel</name>
    <message>
        <source>Click, or press Space, to play or stop</source>
        <translation>Klicken oder Leertaste: abspielen und anhalten</translation>
    </message>
    <message>
        <source>What is used, and files</source>
        <translation>Verwendetes und Dateien</translation>
    </message>
    <message>
        <source>Show files in folder</source>
        <translation>Dateien im Ordner zeigen</translation>
    </message>
    <message>
        <source>Nothing applied yet</source>
        <translation>Noch nichts angewendet</translation>
    </message>
    <message>
        <source>Click a cell, or move to it with the arrow keys and press Enter. What it lacks is downloaded first.</source>
        <translation>Klicken Sie auf eine Zelle, oder gehen Sie mit den Pfeiltasten hin und drücken Sie die Eingabetaste. Was fehlt, wird zuerst geladen.</translation>
    </message>
    <message>
        <source>Add to favourites</source>
        <translation>Zu Favoriten hinzufügen</translation>
    </message>
    <message>
        <source>Remove favourite</source>
        <translation>Favorit entfernen</translation>
    </message>
    <message>
        <source>Uses</source>
        <translation>Verwendet</translation>
    </message>
    <message>
        <source>Files: %1</source>
        <translation>Dateien: %1</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>Preview of what is shown</source>
        <translation>Vorschau des gezeigten Elements</translation>
    </message>
</context>
<context>
    <name>FailureBox</name>
    <message>
        <source>Why the download failed</source>
        <translation>Warum der Download fehlschlug</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Noch einmal</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>“%1” could not be downloaded: %2</source>
        <translation>„%1“ konnte nicht geladen werden: %2</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
</context>
<context>
    <name>FavouritesFile</name>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>%1 is not a file of favourites</source>
        <translation>%1 ist keine Datei mit Favoriten</translation>
    </message>
    <message>
        <source>%1 contains an entry that is not a favourite</source>
        <translation>%1 enthält einen Eintrag, der kein Favorit ist</translation>
    </message>
</context>
<context>
    <name>ItemFacts</name>
    <message>
        <source>Video filter</source>
        <translation>Videofilter</translation>
    </message>
    <message>
        <source>Transition</source>
        <translation>Übergang</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Bewegung</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Thema</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Festivals</source>
        <translation>Feste</translation>
    </message>
    <message>
        <source>Travel</source>
        <translation>Reisen</translation>
    </message>
    <message>
        <source>Banquets</source>
        <translation>Festessen</translation>
    </message>
    <message>
        <source>Others</source>
        <translation>Andere</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Applied: %1</source>
        <translation>Angewendet: %1</translation>
    </message>
    <message>
        <source>The new scale applies from the next start on</source>
        <translation>Die neue Größe gilt ab dem nächsten Start</translation>
    </message>
    <message>
        <source>Slideshow resources</source>
        <translation>Ressourcen für Diaschauen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Export favourites…</source>
        <translation>Favoriten &amp;exportieren…</translation>
    </message>
    <message>
        <source>&amp;Import favourites…</source>
        <translation>Favoriten &amp;importieren…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Resources</source>
        <translation>&amp;Ressourcen</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>Check now</source>
        <translation>Jetzt prüfen</translation>
    </message>
    <message>
        <source>Cancel check</source>
        <translation>Prüfung abbrechen</translation>
    </message>
    <message>
        <source>No program opens the folder %1</source>
        <translation>Kein Programm öffnet den Ordner %1</translation>
    </message>
    <message>
        <source>No program opens the address %1</source>
        <translation>Kein Programm öffnet die Adresse %1</translation>
    </message>
    <message>
        <source>Export favourites</source>
        <translation>Favoriten exportieren</translation>
    </message>
    <message numerus="yes">
        <source>%n favourite(s) written</source>
        <translation>
            <numerusform>%n Favorit geschrieben</numerusform>
            <numerusform>%n Favoriten geschrieben</numerusform>
        </translation>
    </message>
    <message>
        <source>Import favourites</source>
        <translation>Favoriten importieren</translation>
    </message>
    <message numerus="yes">
        <source>%n favourite(s) added</source>
        <translation>
            <numerusform>%n Favorit hinzugefügt</numerusform>
            <numerusform>%n Favoriten hinzugefügt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n of them not in the catalogue now</source>
        <translation>
            <numerusform>, %n davon zurzeit nicht im Katalog</numerusform>
            <numerusform>, %n davon zurzeit nicht im Katalog</numerusform>
        </translation>
    </message>
    <message>
        <source>The favourites cannot be saved: %1</source>
        <translation>Die Favoriten können nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Show &amp;details</source>
        <translation>&amp;Einzelheiten zeigen</translation>
    </message>
    <message>
        <source>&amp;Open project…</source>
        <translation>Projekt ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>Open project</source>
        <translation>Projekt öffnen</translation>
    </message>
</context>
<context>
    <name>NoticeBar</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>ProjectDialog</name>
    <message>
        <source>Project %1</source>
        <translation>Projekt %1</translation>
    </message>
    <message>
        <source>Looking at the items…</source>
        <translation>Die Elemente werden geprüft…</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Element</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Items of the project</source>
        <translation>Elemente des Projekts</translation>
    </message>
    <message>
        <source>Download what is missing</source>
        <translation>Fehlendes herunterladen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>ready</source>
        <translation>bereit</translation>
    </message>
    <message>
        <source>not in the catalogue</source>
        <translation>nicht im Katalog</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>Ready: %1 of %2 items</source>
        <translation>Bereit: %1 von %2 Elementen</translation>
    </message>
    <message>
        <source>Missing: %1; to be fetched: %2</source>
        <translation>Es fehlen: %1; zu laden: %2</translation>
    </message>
    <message>
        <source>Not in the catalogue: %1</source>
        <translation>Nicht im Katalog: %1</translation>
    </message>
</context>
<context>
    <name>ProjectFile</name>
    <message>
        <source>not a file</source>
        <translation>keine Datei</translation>
    </message>
    <message>
        <source>more than %1</source>
        <translation>größer als %1</translation>
    </message>
    <message>
        <source>there is no list “items”</source>
        <translation>es gibt keine Liste „items“</translation>
    </message>
    <message>
        <source>item %1 has no GUID</source>
        <translation>Element %1 hat keine GUID</translation>
    </message>
    <message>
        <source>item %1: “%2” is not a GUID</source>
        <translation>Element %1: „%2“ ist keine GUID</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>line %1, column %2: </source>
        <translation>Zeile %1, Spalte %2: </translation>
    </message>
</context>
<context>
    <name>ResourceList</name>
    <message>
        <source>Themes</source>
        <translation>Themen</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Backgrounds</source>
        <translation>Hintergründe</translation>
    </message>
    <message>
        <source>No name contains “%1”</source>
        <translation>Kein Name enthält „%1“</translation>
    </message>
    <message>
        <source>No favourites yet
Point at a theme and press its heart, or press F</source>
        <translation>Noch keine Favoriten
Zeigen Sie auf ein Thema und drücken Sie sein Herz, oder drücken Sie F</translation>
    </message>
    <message>
        <source>No themes of this type</source>
        <translation>Keine Themen dieser Art</translation>
    </message>
    <message>
        <source>Nothing is here yet
Resources come with the first check of the server</source>
        <translation>Hier ist noch nichts
Ressourcen kommen mit der ersten Prüfung des Servers</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Update</translation>
    </message>
</context>
<context>
    <name>ResourceTabs</name>
    <message>
        <source>Themes</source>
        <translation>Themen</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Filters (large)</source>
        <translation>Filter (groß)</translation>
    </message>
    <message>
        <source>Backgrounds</source>
        <translation>Hintergründe</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Favourites</source>
        <translation>Favoriten</translation>
    </message>
    <message>
        <source>Others</source>
        <translation>Andere</translation>
    </message>
    <message>
        <source>Festivals</source>
        <translation>Feste</translation>
    </message>
    <message>
        <source>Travel</source>
        <translation>Reisen</translation>
    </message>
    <message>
        <source>Banquets</source>
        <translation>Festessen</translation>
    </message>
    <message>
        <source>Theme type</source>
        <translation>Art der Themen</translation>
    </message>
    <message>
        <source>Search (Ctrl+F)</source>
        <translation>Suchen (Strg+F)</translation>
    </message>
    <message>
        <source>Search by name</source>
        <translation>Nach Namen suchen</translation>
    </message>
</context>
<context>
    <name>StateText</name>
    <message>
        <source>at least %1</source>
        <translation>mindestens %1</translation>
    </message>
    <message>
        <source>size unknown</source>
        <translation>Größe unbekannt</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>Auf dem neuesten Stand</translation>
    </message>
    <message>
        <source>Not downloaded yet, %1</source>
        <translation>Noch nicht geladen, %1</translation>
    </message>
    <message>
        <source>Update available, %1</source>
        <translation>Aktualisierung verfügbar, %1</translation>
    </message>
    <message>
        <source>Damaged: fetch it again, %1</source>
        <translation>Beschädigt: neu laden, %1</translation>
    </message>
    <message>
        <source>Ready to use</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>On this computer: %1</source>
        <translation>Belegt: %1</translation>
    </message>
    <message>
        <source>On this computer: %1, of which other items share %2</source>
        <translation>Belegt: %1, davon geteilt: %2</translation>
    </message>
</context>
<context>
    <name>StorageBox</name>
    <message>
        <source>Remove from this computer</source>
        <translation>Vom Computer entfernen</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
</context>
<context>
    <name>StorageControls</name>
    <message>
        <source>“%1” is back</source>
        <translation>„%1“ ist wieder da</translation>
    </message>
    <message>
        <source>Some files of “%1” could not be brought back</source>
        <translation>Einige Dateien von „%1“ ließen sich nicht zurückholen</translation>
    </message>
    <message>
        <source>U&amp;ndo removal</source>
        <translation>Entfernen &amp;rückgängig</translation>
    </message>
    <message>
        <source>Cancel &amp;update</source>
        <translation>Aktualisierung a&amp;bbrechen</translation>
    </message>
    <message>
        <source>&amp;Update all (%1)</source>
        <translation>&amp;Alle aktualisieren (%1)</translation>
    </message>
    <message numerus="yes">
        <source>%n update(s) available</source>
        <translation>
            <numerusform>%n Aktualisierung verfügbar</numerusform>
            <numerusform>%n Aktualisierungen verfügbar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) fetched</source>
        <translation>
            <numerusform>%n Element geladen</numerusform>
            <numerusform>%n Elemente geladen</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled; what has arrived is kept for the next time</source>
        <translation>Abgebrochen; das Geladene bleibt für das nächste Mal</translation>
    </message>
    <message>
        <source>Remove from this computer</source>
        <translation>Vom Computer entfernen</translation>
    </message>
    <message>
        <source>Remove “%1” from this computer? This frees %2. It can be downloaded again.</source>
        <translation>„%1“ von diesem Computer entfernen? Das macht %2 frei. Ein erneutes Herunterladen ist möglich.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>“%1” was not removed while a download works. Try again when it has ended.</source>
        <translation>„%1“ wurde nicht entfernt, weil etwas heruntergeladen wird. Bitte danach erneut versuchen.</translation>
    </message>
    <message>
        <source>“%1” was not removed: %2</source>
        <translation>„%1“ wurde nicht entfernt: %2</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>“%1” was removed: %2 will be free after the next start</source>
        <translation>„%1“ wurde entfernt: %2 sind nach dem nächsten Start frei</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Not everything could be fetched: %1</source>
        <translation>Nicht alles konnte geladen werden: %1</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %n item(s): %1 of %2</source>
        <translation>
            <numerusform>%n Element wird geladen: %1 von %2</numerusform>
            <numerusform>%n Elemente werden geladen: %1 von %2</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %n item(s)…</source>
        <translation>
            <numerusform>%n Element wird geladen…</numerusform>
            <numerusform>%n Elemente werden geladen…</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Skin</source>
        <translation>&amp;Aussehen</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>S&amp;cale (at the next start)</source>
        <translation>&amp;Größe (beim nächsten Start)</translation>
    </message>
    <message>
        <source>&amp;Reduce motion</source>
        <translation>&amp;Weniger Bewegung</translation>
    </message>
    <message>
        <source>Pointing at a cell does not play its preview; Space does</source>
        <translation>Zeigen auf eine Zelle spielt ihre Vorschau nicht ab, die Leertaste schon</translation>
    </message>
    <message>
        <source>As the screen</source>
        <translation>Wie der Bildschirm</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
</TS>
