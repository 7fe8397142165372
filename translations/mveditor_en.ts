<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>CheckStatus</name>
    <message numerus="yes">
        <source>, %n preview(s) fetched</source>
        <translation>
            <numerusform>, %n preview fetched</numerusform>
            <numerusform>, %n previews fetched</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n preview(s) could not be fetched</source>
        <translation>
            <numerusform>, %n preview could not be fetched</numerusform>
            <numerusform>, %n previews could not be fetched</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DownloadsBar</name>
    <message numerus="yes">
        <source>Downloading %n item(s)</source>
        <translation>
            <numerusform>Downloading %n item</numerusform>
            <numerusform>Downloading %n items</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n of them waiting for the server</source>
        <translation>
            <numerusform>, %n of them waiting for the server</numerusform>
            <numerusform>, %n of them waiting for the server</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message numerus="yes">
        <source>, %n of them not in the catalogue now</source>
        <translation>
            <numerusform>, %n of them not in the catalogue now</numerusform>
            <numerusform>, %n of them not in the catalogue now</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n favorite(s) written</source>
        <translation>
            <numerusform>%n favorite written</numerusform>
            <numerusform>%n favorites written</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n favorite(s) added</source>
        <translation>
            <numerusform>%n favorite added</numerusform>
            <numerusform>%n favorites added</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n download(s) would be cancelled</source>
        <translation>
            <numerusform>%n download would be cancelled</numerusform>
            <numerusform>%n downloads would be cancelled</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SettingsControls</name>
    <message numerus="yes">
        <source>The downloads are in the new folder now; %n file(s) of the old one could not be removed</source>
        <translation>
            <numerusform>The downloads are in the new folder now; %n file of the old one could not be removed</numerusform>
            <numerusform>The downloads are in the new folder now; %n files of the old one could not be removed</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StorageControls</name>
    <message numerus="yes">
        <source>%n update(s) available</source>
        <translation>
            <numerusform>%n update available</numerusform>
            <numerusform>%n updates available</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) fetched</source>
        <translation>
            <numerusform>%n item fetched</numerusform>
            <numerusform>%n items fetched</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message numerus="yes">
        <source>Fetching %n item(s): %1 of %2</source>
        <translation>
            <numerusform>Fetching %n item: %1 of %2</numerusform>
            <numerusform>Fetching %n items: %1 of %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Fetching %n item(s)…</source>
        <translation>
            <numerusform>Fetching %n item…</numerusform>
            <numerusform>Fetching %n items…</numerusform>
        </translation>
    </message>
</context>
</TS>
