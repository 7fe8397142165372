<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>MVThemeItemSubwdgt_Preview</name>
    <message>
        <source>Remove from Favorites</source>
        <translation>Retirer des favoris</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Ajouter aux favoris</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Télécharger</translation>
    </message>
    <message>
        <source>Download failed!</source>
        <translation>Échec du téléchargement&#xa0;!</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Actuel</translation>
    </message>
    <message>
        <source>More&gt;&gt;</source>
        <translation>Plus&gt;&gt;</translation>
    </message>
    <message>
        <source>Internet error!</source>
        <translation>Erreur Internet&#xa0;!</translation>
    </message>
    <message>
        <source>Path error!</source>
        <translation>Erreur de chemin&#xa0;!</translation>
    </message>
    <message>
        <source>Element error!</source>
        <translation>Erreur d’élément&#xa0;!</translation>
    </message>
    <message>
        <source>Unknown error!</source>
        <translation>Erreur inconnue&#xa0;!</translation>
    </message>
</context>
</TS>
