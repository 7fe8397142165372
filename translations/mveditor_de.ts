<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About this program</source>
        <translation>Über dieses Programm</translation>
    </message>
    <message>
        <source>Copy report</source>
        <translation>Bericht kopieren</translation>
    </message>
    <message>
        <source>Copies versions, folders and settings for a report of a fault</source>
        <translation>Kopiert Versionen, Ordner und Einstellungen für eine Fehlermeldung</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>mveditor %1, with Qt %2</source>
        <translation>mveditor %1, mit Qt %2</translation>
    </message>
    <message>
        <source>Licence: %1</source>
        <translation>Lizenz: %1</translation>
    </message>
    <message>
        <source>Downloads: %1</source>
        <translation>Geladenes: %1</translation>
    </message>
    <message>
        <source>Favorites: %1</source>
        <translation>Favoriten: %1</translation>
    </message>
    <message>
        <source>Installed resources: %1</source>
        <translation>Installierte Ressourcen: %1</translation>
    </message>
</context>
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
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Kind or size</source>
        <translation>Art oder Größe</translation>
    </message>
    <message>
        <source>Show file names</source>
        <translation>Dateinamen zeigen</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation>Zu Favoriten hinzufügen</translation>
    </message>
    <message>
        <source>Remove favorite</source>
        <translation>Favorit entfernen</translation>
    </message>
</context>
<context>
    <name>DownloadsBar</name>
    <message>
        <source>Waiting for the server…</source>
        <translation>Wartet auf den Server…</translation>
    </message>
    <message numerus="yes">
        <source>Downloading %n item(s)</source>
        <translation>
            <numerusform>%n Element wird geladen</numerusform>
            <numerusform>%n Elemente werden geladen</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancel all</source>
        <translation>Alle abbrechen</translation>
    </message>
    <message numerus="yes">
        <source>, %n of them waiting for the server</source>
        <translation>
            <numerusform>, %n davon wartet auf den Server</numerusform>
            <numerusform>, %n davon warten auf den Server</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DownloadsMove</name>
    <message>
        <source>The folder cannot be created: %1</source>
        <translation>Der Ordner kann nicht angelegt werden: %1</translation>
    </message>
    <message>
        <source>One folder is within the other: %1</source>
        <translation>Ein Ordner liegt im anderen: %1</translation>
    </message>
    <message>
        <source>%1 cannot be created</source>
        <translation>%1 kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>There is not enough space: %1 are needed, %2 are free</source>
        <translation>Der Platz reicht nicht: %1 werden gebraucht, %2 sind frei</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Another program is working with the downloads</source>
        <translation>Ein anderes Programm arbeitet gerade mit den Downloads</translation>
    </message>
    <message>
        <source>The disk has not taken all files: %1</source>
        <translation>Der Datenträger hat nicht alle Dateien angenommen: %1</translation>
    </message>
    <message>
        <source>Downloads are not stored behind links: %1</source>
        <translation>Hinter Verknüpfungen wird nichts gespeichert: %1</translation>
    </message>
    <message>
        <source>The new folder already holds other downloads; choose an empty folder: %1</source>
        <translation>Der neue Ordner enthält schon andere Downloads; wählen Sie einen leeren Ordner: %1</translation>
    </message>
    <message>
        <source>The copy is damaged: %1</source>
        <translation>Die Kopie ist beschädigt: %1</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 kann nicht gelesen werden</translation>
    </message>
</context>
<context>
    <name>DownloadsMover</name>
    <message>
        <source>Move the downloads to the new folder?

From %1
to %2</source>
        <translation>Die heruntergeladenen Dateien in den neuen Ordner verschieben?

Von %1
nach %2</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>Download-Ordner</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>Dort lassen</translation>
    </message>
    <message>
        <source>Moving the downloads…</source>
        <translation>Dateien werden verschoben…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>They cannot be moved now, while downloads run, or a check runs or is about to.</source>
        <translation>Jetzt können sie nicht verschoben werden, weil Downloads oder eine Prüfung laufen oder eine Prüfung bevorsteht.</translation>
    </message>
    <message>
        <source>Cancelling…</source>
        <translation>Wird abgebrochen…</translation>
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
    <name>FavouriteBar</name>
    <message>
        <source>“%1” was removed from the favorites</source>
        <translation>„%1“ ist kein Favorit mehr</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
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
        <source>%1 is not a file of favorites</source>
        <translation>%1 ist keine Datei mit Favoriten</translation>
    </message>
    <message>
        <source>%1 contains an entry that is not a favorite</source>
        <translation>%1 enthält einen Eintrag, der kein Favorit ist</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>All types</source>
        <translation>Alle Arten</translation>
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
    <message>
        <source>Favorites</source>
        <translation>Favoriten</translation>
    </message>
    <message>
        <source>Shows only your favorites</source>
        <translation>Zeigt nur Ihre Favoriten</translation>
    </message>
    <message>
        <source>Downloaded</source>
        <translation>Geladen</translation>
    </message>
    <message>
        <source>Shows only what is ready on this computer</source>
        <translation>Zeigt nur, was auf diesem Computer bereit ist</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Neuerungen</translation>
    </message>
    <message>
        <source>Shows only what can be updated</source>
        <translation>Zeigt nur, was aktualisiert werden kann</translation>
    </message>
    <message>
        <source>As published</source>
        <translation>Wie angeboten</translation>
    </message>
    <message>
        <source>By name</source>
        <translation>Nach Namen</translation>
    </message>
    <message>
        <source>Newest first</source>
        <translation>Neueste zuerst</translation>
    </message>
    <message>
        <source>Largest first</source>
        <translation>Größte zuerst</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>Reihenfolge</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>Suche leeren</translation>
    </message>
</context>
<context>
    <name>FolderBar</name>
    <message>
        <source>The download folder is not available now: %1</source>
        <translation>Der Download-Ordner ist gerade nicht erreichbar: %1</translation>
    </message>
    <message>
        <source>Nothing can be downloaded: the download folder is not writable</source>
        <translation>Nichts kann geladen werden: Der Download-Ordner ist nicht beschreibbar</translation>
    </message>
    <message>
        <source>The disk of the download folder is almost full: %1 are free</source>
        <translation>Der Datenträger des Download-Ordners ist fast voll: %1 sind frei</translation>
    </message>
    <message>
        <source>Choose another folder…</source>
        <translation>Anderen Ordner wählen…</translation>
    </message>
</context>
<context>
    <name>FoldingPanes</name>
    <message>
        <source>Back to the list</source>
        <translation>Zurück zur Liste</translation>
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
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Definition</source>
        <translation>Definition</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Animated preview</source>
        <translation>Bewegte Vorschau</translation>
    </message>
    <message>
        <source>Music: %1</source>
        <translation>Musik: %1</translation>
    </message>
    <message>
        <source>Picture: %1</source>
        <translation>Bild: %1</translation>
    </message>
    <message>
        <source>Package: %1</source>
        <translation>Paket: %1</translation>
    </message>
</context>
<context>
    <name>ItemMenu</name>
    <message>
        <source>Remove from &amp;favorites</source>
        <translation>Aus &amp;Favoriten entfernen</translation>
    </message>
    <message>
        <source>Add to &amp;favorites</source>
        <translation>Zu &amp;Favoriten hinzufügen</translation>
    </message>
    <message>
        <source>Show &amp;details</source>
        <translation>&amp;Einzelheiten zeigen</translation>
    </message>
    <message>
        <source>&amp;Show files in folder</source>
        <translation>&amp;Dateien im Ordner zeigen</translation>
    </message>
    <message>
        <source>Copy &amp;name</source>
        <translation>&amp;Namen kopieren</translation>
    </message>
    <message>
        <source>Copy &amp;GUID</source>
        <translation>&amp;GUID kopieren</translation>
    </message>
    <message>
        <source>&amp;Remove from this computer…</source>
        <translation>&amp;Vom Computer entfernen…</translation>
    </message>
    <message>
        <source>&amp;Cancel download</source>
        <translation>Download a&amp;bbrechen</translation>
    </message>
    <message>
        <source>Download and &amp;apply</source>
        <translation>Laden und &amp;anwenden</translation>
    </message>
    <message>
        <source>D&amp;ownload only</source>
        <translation>Nur &amp;laden</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Anwenden</translation>
    </message>
    <message>
        <source>&amp;Update</source>
        <translation>Akt&amp;ualisieren</translation>
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
    <message numerus="yes">
        <source>, %n of them not in the catalogue now</source>
        <translation>
            <numerusform>, %n davon zurzeit nicht im Katalog</numerusform>
            <numerusform>, %n davon zurzeit nicht im Katalog</numerusform>
        </translation>
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
    <message>
        <source>&amp;Export favorites…</source>
        <translation>Favoriten &amp;exportieren…</translation>
    </message>
    <message>
        <source>&amp;Import favorites…</source>
        <translation>Favoriten &amp;importieren…</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Tasten</translation>
    </message>
    <message>
        <source>&amp;About this program</source>
        <translation>&amp;Über dieses Programm</translation>
    </message>
    <message>
        <source>&amp;Details beside the list</source>
        <translation>&amp;Einzelheiten neben der Liste</translation>
    </message>
    <message>
        <source>The favorites cannot be saved: %1</source>
        <translation>Die Favoriten können nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Export favorites</source>
        <translation>Favoriten exportieren</translation>
    </message>
    <message numerus="yes">
        <source>%n favorite(s) written</source>
        <translation>
            <numerusform>%n Favorit geschrieben</numerusform>
            <numerusform>%n Favoriten geschrieben</numerusform>
        </translation>
    </message>
    <message>
        <source>Import favorites</source>
        <translation>Favoriten importieren</translation>
    </message>
    <message numerus="yes">
        <source>%n favorite(s) added</source>
        <translation>
            <numerusform>%n Favorit hinzugefügt</numerusform>
            <numerusform>%n Favoriten hinzugefügt</numerusform>
        </translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Keep downloading</source>
        <translation>Weiter laden</translation>
    </message>
    <message>
        <source>move between the cells</source>
        <translation>zwischen den Zellen wechseln</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>apply or download the current one</source>
        <translation>die aktuelle anwenden oder laden</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>play or stop its preview</source>
        <translation>ihre Vorschau abspielen oder anhalten</translation>
    </message>
    <message>
        <source>add it to the favorites or remove it</source>
        <translation>zu den Favoriten hinzufügen oder entfernen</translation>
    </message>
    <message>
        <source>Menu key</source>
        <translation>Menütaste</translation>
    </message>
    <message>
        <source>show everything that can be done with it</source>
        <translation>alles zeigen, was damit getan werden kann</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>cancel its download; clear the search</source>
        <translation>ihren Download abbrechen; die Suche leeren</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>Die Einstellungen können nicht gespeichert werden: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n download(s) would be cancelled</source>
        <translation>
            <numerusform>%n Download läuft noch und würde abgebrochen.</numerusform>
            <numerusform>%n Downloads laufen noch und würden abgebrochen.</numerusform>
        </translation>
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
        <source>Nothing passes all of these filters</source>
        <translation>Nichts erfüllt alle diese Filter</translation>
    </message>
    <message>
        <source>Remove all filters</source>
        <translation>Alle Filter entfernen</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>Suche leeren</translation>
    </message>
    <message>
        <source>Show all types</source>
        <translation>Alle Arten zeigen</translation>
    </message>
    <message>
        <source>None of these is a favorite</source>
        <translation>Nichts davon ist ein Favorit</translation>
    </message>
    <message>
        <source>No favorites yet
Point at a cell and press its heart, or press F</source>
        <translation>Noch keine Favoriten
Zeigen Sie auf eine Zelle und drücken Sie ihr Herz, oder drücken Sie F</translation>
    </message>
    <message>
        <source>Show more than favorites</source>
        <translation>Nicht nur Favoriten zeigen</translation>
    </message>
    <message>
        <source>None of these is on this computer yet</source>
        <translation>Nichts davon ist schon auf diesem Computer</translation>
    </message>
    <message>
        <source>Show what can be downloaded</source>
        <translation>Auch Ladbares zeigen</translation>
    </message>
    <message>
        <source>No updates are available</source>
        <translation>Hierfür gibt es keine Neuerungen</translation>
    </message>
    <message>
        <source>Show all items</source>
        <translation>Auch die anderen zeigen</translation>
    </message>
    <message>
        <source>Looking for what is on this computer…</source>
        <translation>Suche, was auf diesem Computer ist…</translation>
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
        <source>Backgrounds</source>
        <translation>Hintergründe</translation>
    </message>
    <message>
        <source>Kinds of resources</source>
        <translation>Arten von Ressourcen</translation>
    </message>
    <message>
        <source>Large pictures</source>
        <translation>Große Bilder</translation>
    </message>
    <message>
        <source>Shows the filters in larger cells</source>
        <translation>Zeigt die Filter in größeren Zellen</translation>
    </message>
</context>
<context>
    <name>ServerField</name>
    <message>
        <source>Address of the resource server</source>
        <translation>Adresse des Ressourcenservers</translation>
    </message>
    <message>
        <source>This is not an address such as https://example.com/resources/</source>
        <translation>Das ist keine Adresse wie https://example.com/resources/</translation>
    </message>
    <message>
        <source>Asking %1…</source>
        <translation>%1 wird gefragt…</translation>
    </message>
    <message>
        <source>The server answers, but has no resources at this address</source>
        <translation>Der Server antwortet, hat unter dieser Adresse aber keine Ressourcen</translation>
    </message>
    <message>
        <source>Nothing found: %1</source>
        <translation>Nichts gefunden: %1</translation>
    </message>
    <message>
        <source>Found: catalogue %1</source>
        <translation>Gefunden: Katalog %1</translation>
    </message>
    <message>
        <source>Found: catalogue %1, published on %2</source>
        <translation>Gefunden: Katalog %1 vom %2</translation>
    </message>
</context>
<context>
    <name>SettingsControls</name>
    <message>
        <source>&amp;Settings…</source>
        <translation>&amp;Einstellungen…</translation>
    </message>
    <message>
        <source>The new folder is used from the next start on; what is in the old one stays there</source>
        <translation>Der neue Ordner gilt ab dem nächsten Start; was im alten ist, bleibt dort</translation>
    </message>
    <message>
        <source>The new server is used from the next start on</source>
        <translation>Der neue Server gilt ab dem nächsten Start</translation>
    </message>
    <message>
        <source>The number of connections applies from the next start on</source>
        <translation>Die Zahl der Verbindungen gilt ab dem nächsten Start</translation>
    </message>
    <message>
        <source>Nothing was moved</source>
        <translation>Nichts wurde verschoben</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>Download-Ordner</translation>
    </message>
    <message>
        <source>Nothing was moved: %1</source>
        <translation>Nichts wurde verschoben: %1</translation>
    </message>
    <message>
        <source>The downloads are in the new folder now</source>
        <translation>Die Dateien sind jetzt im neuen Ordner</translation>
    </message>
    <message numerus="yes">
        <source>The downloads are in the new folder now; %n file(s) of the old one could not be removed</source>
        <translation>
            <numerusform>Die Dateien sind jetzt im neuen Ordner; %n Datei im alten konnte nicht gelöscht werden</numerusform>
            <numerusform>Die Dateien sind jetzt im neuen Ordner; %n Dateien im alten konnten nicht gelöscht werden</numerusform>
        </translation>
    </message>
    <message>
        <source>The downloads stay in this folder</source>
        <translation>Die Downloads bleiben in diesem Ordner</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>Die Einstellungen können nicht gespeichert werden: %1</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Change…</source>
        <translation>Ändern…</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>applies the item</source>
        <translation>wendet das Element an</translation>
    </message>
    <message>
        <source>selects the item and shows its details</source>
        <translation>wählt es aus und zeigt Einzelheiten</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>Wie der Desktop</translation>
    </message>
    <message>
        <source>Less motion</source>
        <translation>Weniger Bewegung</translation>
    </message>
    <message>
        <source>All previews move</source>
        <translation>Alle Vorschauen bewegen sich</translation>
    </message>
    <message>
        <source>As the screen</source>
        <translation>Wie der Bildschirm</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Ser&amp;ver:</source>
        <translation>Ser&amp;ver:</translation>
    </message>
    <message>
        <source>&amp;Download folder:</source>
        <translation>&amp;Download-Ordner:</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>Download-Ordner</translation>
    </message>
    <message>
        <source>&amp;Connections:</source>
        <translation>&amp;Verbindungen:</translation>
    </message>
    <message>
        <source>A cl&amp;ick:</source>
        <translation>Ein Kl&amp;ick:</translation>
    </message>
    <message>
        <source>&amp;Motion:</source>
        <translation>&amp;Bewegung:</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Sprache:</translation>
    </message>
    <message>
        <source>&amp;Skin:</source>
        <translation>&amp;Aussehen:</translation>
    </message>
    <message>
        <source>Sc&amp;ale:</source>
        <translation>&amp;Größe:</translation>
    </message>
    <message>
        <source>Files that are fetched at the same time</source>
        <translation>Dateien, die gleichzeitig geladen werden</translation>
    </message>
    <message>
        <source>Measuring the folder…</source>
        <translation>Der Ordner wird gemessen…</translation>
    </message>
    <message>
        <source>This folder is not writable</source>
        <translation>Dieser Ordner ist nicht beschreibbar</translation>
    </message>
    <message>
        <source>Used: %1, free: %2</source>
        <translation>Belegt: %1, frei: %2</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>Die Einstellungen können nicht gespeichert werden: %1</translation>
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
    <message>
        <source>There is not enough space on the disk: %1 are free. Remove something, or choose another download folder in the settings.</source>
        <translation>Auf dem Datenträger ist nicht genug Platz: %1 sind frei. Entfernen Sie etwas, oder wählen Sie in den Einstellungen einen anderen Ordner.</translation>
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
    <name>UndoAction</name>
    <message>
        <source>U&amp;ndo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>U&amp;ndo removal</source>
        <translation>Entfernen &amp;rückgängig</translation>
    </message>
    <message>
        <source>U&amp;ndo change of favorites</source>
        <translation>Änderung der Favoriten &amp;rückgängig</translation>
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
    <message>
        <source>Waiting for the server…</source>
        <translation>Wartet auf den Server…</translation>
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
<context>
    <name>WelcomePage</name>
    <message>
        <source>Where do your resources come from?</source>
        <translation>Woher kommen Ihre Ressourcen?</translation>
    </message>
    <message>
        <source>Themes, filters and backgrounds come from a resource server. Enter the address that you have been given; it can be changed in the settings.</source>
        <translation>Themen, Filter und Hintergründe kommen von einem Ressourcenserver. Geben Sie die Adresse ein, die Sie erhalten haben; sie lässt sich in den Einstellungen ändern.</translation>
    </message>
    <message>
        <source>Continue without a server</source>
        <translation>Ohne Server weiter</translation>
    </message>
    <message>
        <source>Use this server</source>
        <translation>Diesen Server verwenden</translation>
    </message>
    <message>
        <source>Use it anyway</source>
        <translation>Trotzdem verwenden</translation>
    </message>
</context>
</TS>
