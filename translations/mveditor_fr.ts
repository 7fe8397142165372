<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>CheckStatus</name>
    <message>
        <source>Checking for new resources…</source>
        <translation>Recherche de nouvelles ressources…</translation>
    </message>
    <message>
        <source>%1. Fetching previews…</source>
        <translation>%1. Téléchargement des aperçus…</translation>
    </message>
    <message>
        <source>%1. Previews %2 of %3</source>
        <translation>%1. Aperçus : %2 sur %3</translation>
    </message>
    <message>
        <source>Start the program again to check again</source>
        <translation>Redémarrez le programme pour vérifier à nouveau</translation>
    </message>
    <message>
        <source>Catalogue updated</source>
        <translation>Catalogue mis à jour</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>À jour</translation>
    </message>
    <message>
        <source>The server has resources that need a newer application</source>
        <translation>Le serveur a des ressources qui demandent une application plus récente</translation>
    </message>
    <message>
        <source>The server&apos;s catalogue is older than this application</source>
        <translation>Le catalogue du serveur est plus ancien que cette application</translation>
    </message>
    <message numerus="yes">
        <source>, %n preview(s) fetched</source>
        <translation>
            <numerusform>, %n aperçu téléchargé</numerusform>
            <numerusform>, %n aperçus téléchargés</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n preview(s) could not be fetched</source>
        <translation>
            <numerusform>, %n aperçu n’a pas pu être téléchargé</numerusform>
            <numerusform>, %n aperçus n’ont pas pu être téléchargés</numerusform>
        </translation>
    </message>
    <message>
        <source>Offline: %1; %2</source>
        <translation>Hors ligne&#xa0;: %1&#xa0;; %2</translation>
    </message>
    <message>
        <source>Not updated: %1; %2</source>
        <translation>Pas de mise à jour&#xa0;: %1&#xa0;; %2</translation>
    </message>
    <message>
        <source>Check cancelled; %1</source>
        <translation>Vérification annulée&#xa0;; %1</translation>
    </message>
    <message>
        <source>, but there is no catalogue to fetch previews for</source>
        <translation>, mais il n’y a aucun catalogue dont récupérer les aperçus</translation>
    </message>
    <message>
        <source>catalogue of %1</source>
        <translation>catalogue du %1</translation>
    </message>
    <message>
        <source>no catalogue has been downloaded yet</source>
        <translation>aucun catalogue téléchargé pour l’instant</translation>
    </message>
</context>
<context>
    <name>DetailsPanel</name>
    <message>
        <source>Click, or press Space, to play or stop</source>
        <translation>Cliquez ou appuyez sur Espace pour lire ou arrêter</translation>
    </message>
    <message>
        <source>What is used, and files</source>
        <translation>Éléments utilisés et fichiers</translation>
    </message>
    <message>
        <source>Show files in folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message>
        <source>Nothing applied yet</source>
        <translation>Rien d’appliqué pour l’instant</translation>
    </message>
    <message>
        <source>Click a cell, or move to it with the arrow keys and press Enter. What it lacks is downloaded first.</source>
        <translation>Cliquez sur une cellule, ou allez-y avec les flèches et appuyez sur Entrée. Ce qui manque est d’abord téléchargé.</translation>
    </message>
    <message>
        <source>Add to favourites</source>
        <translation>Ajouter aux favoris</translation>
    </message>
    <message>
        <source>Remove favourite</source>
        <translation>Retirer des favoris</translation>
    </message>
    <message>
        <source>Uses</source>
        <translation>Utilise</translation>
    </message>
    <message>
        <source>Files: %1</source>
        <translation>Fichiers&#xa0;: %1</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>manquant</translation>
    </message>
    <message>
        <source>Preview of what is shown</source>
        <translation>Aperçu de l’élément affiché</translation>
    </message>
</context>
<context>
    <name>FailureBox</name>
    <message>
        <source>Why the download failed</source>
        <translation>Raison de l’échec</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>“%1” could not be downloaded: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être téléchargé&#xa0;: %2</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Détails</translation>
    </message>
</context>
<context>
    <name>FavouritesFile</name>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>Impossible d’écrire %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>Impossible de lire %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 is not a file of favourites</source>
        <translation>%1 n’est pas un fichier de favoris</translation>
    </message>
    <message>
        <source>%1 contains an entry that is not a favourite</source>
        <translation>%1 contient une entrée qui n’est pas un favori</translation>
    </message>
</context>
<context>
    <name>ItemFacts</name>
    <message>
        <source>Video filter</source>
        <translation>Filtre vidéo</translation>
    </message>
    <message>
        <source>Transition</source>
        <translation>Transition</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Mouvement</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Thème</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Arrière-plan</translation>
    </message>
    <message>
        <source>Festivals</source>
        <translation>Fêtes</translation>
    </message>
    <message>
        <source>Travel</source>
        <translation>Voyages</translation>
    </message>
    <message>
        <source>Banquets</source>
        <translation>Banquets</translation>
    </message>
    <message>
        <source>Others</source>
        <translation>Autres</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Applied: %1</source>
        <translation>Appliqué&#xa0;: %1</translation>
    </message>
    <message>
        <source>The new scale applies from the next start on</source>
        <translation>La nouvelle échelle s’appliquera au prochain démarrage</translation>
    </message>
    <message>
        <source>Slideshow resources</source>
        <translation>Ressources pour diaporamas</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Export favourites…</source>
        <translation>&amp;Exporter les favoris…</translation>
    </message>
    <message>
        <source>&amp;Import favourites…</source>
        <translation>&amp;Importer des favoris…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Resources</source>
        <translation>&amp;Ressources</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Rechercher</translation>
    </message>
    <message>
        <source>Check now</source>
        <translation>Vérifier</translation>
    </message>
    <message>
        <source>Cancel check</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>No program opens the folder %1</source>
        <translation>Aucun programme n’ouvre le dossier %1</translation>
    </message>
    <message>
        <source>No program opens the address %1</source>
        <translation>Aucun programme n’ouvre l’adresse %1</translation>
    </message>
    <message>
        <source>Export favourites</source>
        <translation>Exporter les favoris</translation>
    </message>
    <message numerus="yes">
        <source>%n favourite(s) written</source>
        <translation>
            <numerusform>%n favori écrit</numerusform>
            <numerusform>%n favoris écrits</numerusform>
        </translation>
    </message>
    <message>
        <source>Import favourites</source>
        <translation>Importer des favoris</translation>
    </message>
    <message numerus="yes">
        <source>%n favourite(s) added</source>
        <translation>
            <numerusform>%n favori ajouté</numerusform>
            <numerusform>%n favoris ajoutés</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n of them not in the catalogue now</source>
        <translation>
            <numerusform>, dont %n absent du catalogue actuel</numerusform>
            <numerusform>, dont %n absents du catalogue actuel</numerusform>
        </translation>
    </message>
    <message>
        <source>The favourites cannot be saved: %1</source>
        <translation>Impossible d’enregistrer les favoris&#xa0;: %1</translation>
    </message>
    <message>
        <source>Show &amp;details</source>
        <translation>Afficher les &amp;détails</translation>
    </message>
    <message>
        <source>&amp;Open project…</source>
        <translation>&amp;Ouvrir un projet…</translation>
    </message>
    <message>
        <source>Open project</source>
        <translation>Ouvrir un projet</translation>
    </message>
</context>
<context>
    <name>NoticeBar</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>ProjectDialog</name>
    <message>
        <source>Project %1</source>
        <translation>Projet %1</translation>
    </message>
    <message>
        <source>Looking at the items…</source>
        <translation>Vérification des éléments…</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Élément</translation>
    </message>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Items of the project</source>
        <translation>Éléments du projet</translation>
    </message>
    <message>
        <source>Download what is missing</source>
        <translation>Télécharger ce qui manque</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>ready</source>
        <translation>prêt</translation>
    </message>
    <message>
        <source>not in the catalogue</source>
        <translation>absent du catalogue</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>manquant</translation>
    </message>
    <message>
        <source>Ready: %1 of %2 items</source>
        <translation>Prêts : %1 éléments sur %2</translation>
    </message>
    <message>
        <source>Missing: %1; to be fetched: %2</source>
        <translation>Manquants : %1 ; à télécharger : %2</translation>
    </message>
    <message>
        <source>Not in the catalogue: %1</source>
        <translation>Absents du catalogue : %1</translation>
    </message>
</context>
<context>
    <name>ProjectFile</name>
    <message>
        <source>not a file</source>
        <translation>ce n’est pas un fichier</translation>
    </message>
    <message>
        <source>more than %1</source>
        <translation>plus de %1</translation>
    </message>
    <message>
        <source>there is no list “items”</source>
        <translation>il n’y a pas de liste « items »</translation>
    </message>
    <message>
        <source>item %1 has no GUID</source>
        <translation>l’élément %1 n’a pas de GUID</translation>
    </message>
    <message>
        <source>item %1: “%2” is not a GUID</source>
        <translation>élément %1 : « %2 » n’est pas un GUID</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>Impossible d’ouvrir %1 : %2</translation>
    </message>
    <message>
        <source>line %1, column %2: </source>
        <translation>ligne %1, colonne %2 : </translation>
    </message>
</context>
<context>
    <name>ResourceList</name>
    <message>
        <source>Themes</source>
        <translation>Thèmes</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filtres</translation>
    </message>
    <message>
        <source>Backgrounds</source>
        <translation>Arrière-plans</translation>
    </message>
    <message>
        <source>No name contains “%1”</source>
        <translation>Aucun nom ne contient «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>No favourites yet
Point at a theme and press its heart, or press F</source>
        <translation>Pas encore de favoris
Pointez un thème et cliquez sur son cœur, ou appuyez sur F</translation>
    </message>
    <message>
        <source>No themes of this type</source>
        <translation>Aucun thème de ce type</translation>
    </message>
    <message>
        <source>Nothing is here yet
Resources come with the first check of the server</source>
        <translation>Il n’y a encore rien ici
Les ressources arrivent avec la première vérification du serveur</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Mise à jour</translation>
    </message>
</context>
<context>
    <name>ResourceTabs</name>
    <message>
        <source>Themes</source>
        <translation>Thèmes</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filtres</translation>
    </message>
    <message>
        <source>Filters (large)</source>
        <translation>Filtres (grands)</translation>
    </message>
    <message>
        <source>Backgrounds</source>
        <translation>Arrière-plans</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Tous</translation>
    </message>
    <message>
        <source>Favourites</source>
        <translation>Favoris</translation>
    </message>
    <message>
        <source>Others</source>
        <translation>Autres</translation>
    </message>
    <message>
        <source>Festivals</source>
        <translation>Fêtes</translation>
    </message>
    <message>
        <source>Travel</source>
        <translation>Voyages</translation>
    </message>
    <message>
        <source>Banquets</source>
        <translation>Banquets</translation>
    </message>
    <message>
        <source>Theme type</source>
        <translation>Type de thème</translation>
    </message>
    <message>
        <source>Search (Ctrl+F)</source>
        <translation>Rechercher (Ctrl+F)</translation>
    </message>
    <message>
        <source>Search by name</source>
        <translation>Rechercher par nom</translation>
    </message>
</context>
<context>
    <name>StateText</name>
    <message>
        <source>at least %1</source>
        <translation>au moins %1</translation>
    </message>
    <message>
        <source>size unknown</source>
        <translation>taille inconnue</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>À jour</translation>
    </message>
    <message>
        <source>Not downloaded yet, %1</source>
        <translation>Pas encore téléchargé, %1</translation>
    </message>
    <message>
        <source>Update available, %1</source>
        <translation>Mise à jour disponible, %1</translation>
    </message>
    <message>
        <source>Damaged: fetch it again, %1</source>
        <translation>Endommagé : à télécharger de nouveau, %1</translation>
    </message>
    <message>
        <source>Ready to use</source>
        <translation>Prêt à l’emploi</translation>
    </message>
    <message>
        <source>On this computer: %1</source>
        <translation>Sur cet ordinateur : %1</translation>
    </message>
    <message>
        <source>On this computer: %1, of which other items share %2</source>
        <translation>Sur cet ordinateur : %1, dont %2 partagés avec d’autres</translation>
    </message>
</context>
<context>
    <name>StorageBox</name>
    <message>
        <source>Remove from this computer</source>
        <translation>Retirer de l’ordinateur</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Télécharger</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Mettre à jour</translation>
    </message>
</context>
<context>
    <name>StorageControls</name>
    <message>
        <source>“%1” is back</source>
        <translation>« %1 » est de retour</translation>
    </message>
    <message>
        <source>Some files of “%1” could not be brought back</source>
        <translation>Certains fichiers de « %1 » n’ont pas pu être rétablis</translation>
    </message>
    <message>
        <source>U&amp;ndo removal</source>
        <translation>A&amp;nnuler le retrait</translation>
    </message>
    <message>
        <source>Cancel &amp;update</source>
        <translation>Annuler la &amp;mise à jour</translation>
    </message>
    <message>
        <source>&amp;Update all (%1)</source>
        <translation>&amp;Tout mettre à jour (%1)</translation>
    </message>
    <message numerus="yes">
        <source>%n update(s) available</source>
        <translation>
            <numerusform>%n mise à jour disponible</numerusform>
            <numerusform>%n mises à jour disponibles</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) fetched</source>
        <translation>
            <numerusform>%n élément téléchargé</numerusform>
            <numerusform>%n éléments téléchargés</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled; what has arrived is kept for the next time</source>
        <translation>Annulé ; ce qui est arrivé est conservé</translation>
    </message>
    <message>
        <source>Remove from this computer</source>
        <translation>Retirer de l’ordinateur</translation>
    </message>
    <message>
        <source>Remove “%1” from this computer? This frees %2. It can be downloaded again.</source>
        <translation>Retirer « %1 » de cet ordinateur ? Cela libère %2. Un nouveau téléchargement reste possible.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>“%1” was not removed while a download works. Try again when it has ended.</source>
        <translation>« %1 » n’a pas été retiré : un téléchargement est en cours. Réessayez ensuite.</translation>
    </message>
    <message>
        <source>“%1” was not removed: %2</source>
        <translation>« %1 » n’a pas été retiré : %2</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>“%1” was removed: %2 will be free after the next start</source>
        <translation>« %1 » a été retiré : %2 seront libres au prochain démarrage</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Not everything could be fetched: %1</source>
        <translation>Tout n’a pas pu être téléchargé : %1</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Réessayer</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %n item(s): %1 of %2</source>
        <translation>
            <numerusform>Téléchargement de %n élément : %1 sur %2</numerusform>
            <numerusform>Téléchargement de %n éléments : %1 sur %2</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %n item(s)…</source>
        <translation>
            <numerusform>Téléchargement de %n élément…</numerusform>
            <numerusform>Téléchargement de %n éléments…</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>&amp;Skin</source>
        <translation>&amp;Apparence</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Langue</translation>
    </message>
    <message>
        <source>S&amp;cale (at the next start)</source>
        <translation>É&amp;chelle (au prochain démarrage)</translation>
    </message>
    <message>
        <source>&amp;Reduce motion</source>
        <translation>&amp;Réduire les animations</translation>
    </message>
    <message>
        <source>Pointing at a cell does not play its preview; Space does</source>
        <translation>Pointer une cellule ne lit pas son aperçu&#xa0;; Espace le lit</translation>
    </message>
    <message>
        <source>As the screen</source>
        <translation>Comme l’écran</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
</TS>
