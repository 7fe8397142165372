<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>CellAccessible</name>
    <message>
        <source>Download and apply</source>
        <translation>Télécharger et appliquer</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Appliquer</translation>
    </message>
    <message>
        <source>Show details</source>
        <translation>Afficher les détails</translation>
    </message>
    <message>
        <source>Cancel the download</source>
        <translation>Annuler le téléchargement</translation>
    </message>
</context>
<context>
    <name>CellText</name>
    <message>
        <source>favourite</source>
        <translation>favori</translation>
    </message>
    <message>
        <source>current</source>
        <translation>actuel</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>on disk</source>
        <translation>sur cet ordinateur</translation>
    </message>
    <message>
        <source>not downloaded</source>
        <translation>non téléchargé</translation>
    </message>
    <message>
        <source>update available</source>
        <translation>mise à jour disponible</translation>
    </message>
    <message>
        <source>downloading, %1 %</source>
        <translation>téléchargement, %1 %</translation>
    </message>
    <message>
        <source>download failed</source>
        <translation>échec du téléchargement</translation>
    </message>
    <message>
        <source>new</source>
        <translation>nouveau</translation>
    </message>
    <message>
        <source>festivals</source>
        <translation>fêtes</translation>
    </message>
    <message>
        <source>travel</source>
        <translation>voyages</translation>
    </message>
    <message>
        <source>banquets</source>
        <translation>banquets</translation>
    </message>
    <message>
        <source>at least %1</source>
        <translation>au moins %1</translation>
    </message>
</context>
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
    <message>
        <source>Click to cancel the download</source>
        <translation>Cliquez pour annuler le téléchargement</translation>
    </message>
</context>
<context>
    <name>STransferFailure</name>
    <message>
        <source>the disk is full</source>
        <translation>le disque est plein</translation>
    </message>
    <message>
        <source>no permission to write the file</source>
        <translation>pas d’autorisation d’écrire le fichier</translation>
    </message>
    <message>
        <source>the file cannot be written</source>
        <translation>impossible d’écrire le fichier</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>le serveur est injoignable</translation>
    </message>
    <message>
        <source>the connection to the server was lost</source>
        <translation>la connexion au serveur a été perdue</translation>
    </message>
    <message>
        <source>the file is not on the server</source>
        <translation>le fichier n’est pas sur le serveur</translation>
    </message>
    <message>
        <source>the server reports an error</source>
        <translation>le serveur signale une erreur</translation>
    </message>
    <message>
        <source>the file has no usable address</source>
        <translation>le fichier n’a pas d’adresse utilisable</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>le fichier est trop volumineux</translation>
    </message>
    <message>
        <source>the file on the server is damaged</source>
        <translation>le fichier du serveur est endommagé</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>annulé</translation>
    </message>
</context>
</TS>
