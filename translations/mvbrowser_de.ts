<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CellAccessible</name>
    <message>
        <source>Download and apply</source>
        <translation>Herunterladen und anwenden</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Show details</source>
        <translation>Details anzeigen</translation>
    </message>
    <message>
        <source>Cancel the download</source>
        <translation>Download abbrechen</translation>
    </message>
</context>
<context>
    <name>CellText</name>
    <message>
        <source>favourite</source>
        <translation>Favorit</translation>
    </message>
    <message>
        <source>current</source>
        <translation>aktuell</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>on disk</source>
        <translation>auf diesem Computer</translation>
    </message>
    <message>
        <source>not downloaded</source>
        <translation>nicht heruntergeladen</translation>
    </message>
    <message>
        <source>update available</source>
        <translation>Aktualisierung verfügbar</translation>
    </message>
    <message>
        <source>downloading, %1 %</source>
        <translation>wird heruntergeladen, %1 %</translation>
    </message>
    <message>
        <source>download failed</source>
        <translation>Download fehlgeschlagen</translation>
    </message>
    <message>
        <source>new</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>festivals</source>
        <translation>Feste</translation>
    </message>
    <message>
        <source>travel</source>
        <translation>Reisen</translation>
    </message>
    <message>
        <source>banquets</source>
        <translation>Festessen</translation>
    </message>
    <message>
        <source>at least %1</source>
        <translation>mindestens %1</translation>
    </message>
</context>
<context>
    <name>MVThemeItemSubwdgt_Preview</name>
    <message>
        <source>Remove from Favorites</source>
        <translation>Aus Favoriten entfernen</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Zu Favoriten hinzufügen</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Download failed!</source>
        <translation>Downloadfehler!</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Aktuell</translation>
    </message>
    <message>
        <source>More&gt;&gt;</source>
        <translation>Mehr&gt;&gt;</translation>
    </message>
    <message>
        <source>Internet error!</source>
        <translation>Internetfehler!</translation>
    </message>
    <message>
        <source>Path error!</source>
        <translation>Pfadfehler!</translation>
    </message>
    <message>
        <source>Element error!</source>
        <translation>Elementfehler!</translation>
    </message>
    <message>
        <source>Unknown error!</source>
        <translation>Unbekannter Fehler!</translation>
    </message>
    <message>
        <source>Click to cancel the download</source>
        <translation>Klicken bricht den Download ab</translation>
    </message>
</context>
<context>
    <name>STransferFailure</name>
    <message>
        <source>the disk is full</source>
        <translation>der Datenträger ist voll</translation>
    </message>
    <message>
        <source>no permission to write the file</source>
        <translation>keine Berechtigung, die Datei zu schreiben</translation>
    </message>
    <message>
        <source>the file cannot be written</source>
        <translation>die Datei kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>der Server ist nicht erreichbar</translation>
    </message>
    <message>
        <source>the connection to the server was lost</source>
        <translation>die Verbindung zum Server ist abgebrochen</translation>
    </message>
    <message>
        <source>the file is not on the server</source>
        <translation>die Datei ist nicht auf dem Server</translation>
    </message>
    <message>
        <source>the server reports an error</source>
        <translation>der Server meldet einen Fehler</translation>
    </message>
    <message>
        <source>the file has no usable address</source>
        <translation>die Datei hat keine brauchbare Adresse</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>die Datei ist zu groß</translation>
    </message>
    <message>
        <source>the file on the server is damaged</source>
        <translation>die Datei auf dem Server ist beschädigt</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>abgebrochen</translation>
    </message>
</context>
</TS>
