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
</context>
</TS>
