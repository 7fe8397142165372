<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
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
