<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About this program</source>
        <translation>À propos de ce programme</translation>
    </message>
    <message>
        <source>Copy report</source>
        <translation>Copier le rapport</translation>
    </message>
    <message>
        <source>Copies versions, folders and settings for a report of a fault</source>
        <translation>Copie versions, dossiers et réglages pour signaler un défaut</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>mveditor %1, with Qt %2</source>
        <translation>mveditor %1, avec Qt %2</translation>
    </message>
    <message>
        <source>Licence: %1</source>
        <translation>Licence&#xa0;: %1</translation>
    </message>
    <message>
        <source>Downloads: %1</source>
        <translation>Téléchargements&#xa0;: %1</translation>
    </message>
    <message>
        <source>Favorites: %1</source>
        <translation>Favoris&#xa0;: %1</translation>
    </message>
    <message>
        <source>Installed resources: %1</source>
        <translation>Ressources installées&#xa0;: %1</translation>
    </message>
</context>
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
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Kind or size</source>
        <translation>Type ou taille</translation>
    </message>
    <message>
        <source>Show file names</source>
        <translation>Afficher les noms de fichiers</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Appliquer</translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation>Ajouter aux favoris</translation>
    </message>
    <message>
        <source>Remove favorite</source>
        <translation>Retirer des favoris</translation>
    </message>
</context>
<context>
    <name>DownloadsBar</name>
    <message>
        <source>Waiting for the server…</source>
        <translation>En attente du serveur…</translation>
    </message>
    <message numerus="yes">
        <source>Downloading %n item(s)</source>
        <translation>
            <numerusform>Téléchargement de %n élément</numerusform>
            <numerusform>Téléchargement de %n éléments</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Cancel all</source>
        <translation>Tout annuler</translation>
    </message>
    <message numerus="yes">
        <source>, %n of them waiting for the server</source>
        <translation>
            <numerusform>, %n attend le serveur</numerusform>
            <numerusform>, %n attendent le serveur</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DownloadsMove</name>
    <message>
        <source>The folder cannot be created: %1</source>
        <translation>Impossible de créer le dossier : %1</translation>
    </message>
    <message>
        <source>One folder is within the other: %1</source>
        <translation>Un dossier se trouve dans l’autre : %1</translation>
    </message>
    <message>
        <source>%1 cannot be created</source>
        <translation>Impossible de créer %1</translation>
    </message>
    <message>
        <source>There is not enough space: %1 are needed, %2 are free</source>
        <translation>L’espace ne suffit pas : %1 nécessaires, %2 libres</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>Impossible de lire %1 : %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>Impossible d’écrire %1 : %2</translation>
    </message>
    <message>
        <source>Another program is working with the downloads</source>
        <translation>Un autre programme travaille avec les téléchargements</translation>
    </message>
    <message>
        <source>The disk has not taken all files: %1</source>
        <translation>Le disque n’a pas enregistré tous les fichiers : %1</translation>
    </message>
    <message>
        <source>Downloads are not stored behind links: %1</source>
        <translation>Les téléchargements ne sont pas enregistrés derrière des liens : %1</translation>
    </message>
    <message>
        <source>The new folder already holds other downloads; choose an empty folder: %1</source>
        <translation>Le nouveau dossier contient déjà d’autres téléchargements ; choisissez un dossier vide : %1</translation>
    </message>
    <message>
        <source>The copy is damaged: %1</source>
        <translation>La copie est endommagée : %1</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>Impossible de lire %1</translation>
    </message>
</context>
<context>
    <name>DownloadsMover</name>
    <message>
        <source>Move the downloads to the new folder?

From %1
to %2</source>
        <translation>Déplacer les téléchargements dans le nouveau dossier ?

De %1
vers %2</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>Dossier de téléchargement</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Déplacer</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>Laisser</translation>
    </message>
    <message>
        <source>Moving the downloads…</source>
        <translation>Déplacement des téléchargements…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>They cannot be moved now, while downloads run, or a check runs or is about to.</source>
        <translation>Impossible de les déplacer maintenant : des téléchargements ou une vérification sont en cours ou sur le point de commencer.</translation>
    </message>
    <message>
        <source>Cancelling…</source>
        <translation>Annulation…</translation>
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
    <name>FavouriteBar</name>
    <message>
        <source>“%1” was removed from the favorites</source>
        <translation>«&#xa0;%1&#xa0;» n’est plus un favori</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
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
        <source>%1 is not a file of favorites</source>
        <translation>%1 n’est pas un fichier de favoris</translation>
    </message>
    <message>
        <source>%1 contains an entry that is not a favorite</source>
        <translation>%1 contient une entrée qui n’est pas un favori</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>All types</source>
        <translation>Tous les types</translation>
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
    <message>
        <source>Favorites</source>
        <translation>Favoris</translation>
    </message>
    <message>
        <source>Shows only your favorites</source>
        <translation>N’affiche que vos favoris</translation>
    </message>
    <message>
        <source>Downloaded</source>
        <translation>Téléchargés</translation>
    </message>
    <message>
        <source>Shows only what is ready on this computer</source>
        <translation>N’affiche que ce qui est prêt sur cet ordinateur</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Mises à jour</translation>
    </message>
    <message>
        <source>Shows only what can be updated</source>
        <translation>N’affiche que ce qui peut être mis à jour</translation>
    </message>
    <message>
        <source>As published</source>
        <translation>Ordre d’origine</translation>
    </message>
    <message>
        <source>By name</source>
        <translation>Par nom</translation>
    </message>
    <message>
        <source>Newest first</source>
        <translation>Récents d’abord</translation>
    </message>
    <message>
        <source>Largest first</source>
        <translation>Plus gros d’abord</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>Ordre</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>Effacer la recherche</translation>
    </message>
</context>
<context>
    <name>FolderBar</name>
    <message>
        <source>The download folder is not available now: %1</source>
        <translation>Le dossier de téléchargement n’est pas disponible&#xa0;: %1</translation>
    </message>
    <message>
        <source>Nothing can be downloaded: the download folder is not writable</source>
        <translation>Rien ne peut être téléchargé&#xa0;: le dossier n’est pas accessible en écriture</translation>
    </message>
    <message>
        <source>The disk of the download folder is almost full: %1 are free</source>
        <translation>Le disque du dossier de téléchargement est presque plein&#xa0;: %1 libres</translation>
    </message>
    <message>
        <source>Choose another folder…</source>
        <translation>Choisir un autre dossier…</translation>
    </message>
</context>
<context>
    <name>FoldingPanes</name>
    <message>
        <source>Back to the list</source>
        <translation>Retour à la liste</translation>
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
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Definition</source>
        <translation>Définition</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Animated preview</source>
        <translation>Aperçu animé</translation>
    </message>
    <message>
        <source>Music: %1</source>
        <translation>Musique&#xa0;: %1</translation>
    </message>
    <message>
        <source>Picture: %1</source>
        <translation>Image&#xa0;: %1</translation>
    </message>
    <message>
        <source>Package: %1</source>
        <translation>Paquet&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>ItemMenu</name>
    <message>
        <source>Remove from &amp;favorites</source>
        <translation>Retirer des &amp;favoris</translation>
    </message>
    <message>
        <source>Add to &amp;favorites</source>
        <translation>Ajouter aux &amp;favoris</translation>
    </message>
    <message>
        <source>Show &amp;details</source>
        <translation>Afficher les &amp;détails</translation>
    </message>
    <message>
        <source>&amp;Show files in folder</source>
        <translation>Afficher les fichiers dans le do&amp;ssier</translation>
    </message>
    <message>
        <source>Copy &amp;name</source>
        <translation>Copier le &amp;nom</translation>
    </message>
    <message>
        <source>Copy &amp;GUID</source>
        <translation>Copier le &amp;GUID</translation>
    </message>
    <message>
        <source>&amp;Remove from this computer…</source>
        <translation>&amp;Retirer de l’ordinateur…</translation>
    </message>
    <message>
        <source>&amp;Cancel download</source>
        <translation>Annu&amp;ler le téléchargement</translation>
    </message>
    <message>
        <source>Download and &amp;apply</source>
        <translation>Télécharger et &amp;appliquer</translation>
    </message>
    <message>
        <source>D&amp;ownload only</source>
        <translation>Télécharger seu&amp;lement</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Appliquer</translation>
    </message>
    <message>
        <source>&amp;Update</source>
        <translation>&amp;Mettre à jour</translation>
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
    <message numerus="yes">
        <source>, %n of them not in the catalogue now</source>
        <translation>
            <numerusform>, dont %n absent du catalogue actuel</numerusform>
            <numerusform>, dont %n absents du catalogue actuel</numerusform>
        </translation>
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
    <message>
        <source>&amp;Export favorites…</source>
        <translation>&amp;Exporter les favoris…</translation>
    </message>
    <message>
        <source>&amp;Import favorites…</source>
        <translation>&amp;Importer des favoris…</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Aid&amp;e</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Touches</translation>
    </message>
    <message>
        <source>&amp;About this program</source>
        <translation>À &amp;propos de ce programme</translation>
    </message>
    <message>
        <source>&amp;Details beside the list</source>
        <translation>&amp;Détails à côté de la liste</translation>
    </message>
    <message>
        <source>The favorites cannot be saved: %1</source>
        <translation>Impossible d’enregistrer les favoris&#xa0;: %1</translation>
    </message>
    <message>
        <source>Export favorites</source>
        <translation>Exporter les favoris</translation>
    </message>
    <message numerus="yes">
        <source>%n favorite(s) written</source>
        <translation>
            <numerusform>%n favori écrit</numerusform>
            <numerusform>%n favoris écrits</numerusform>
        </translation>
    </message>
    <message>
        <source>Import favorites</source>
        <translation>Importer des favoris</translation>
    </message>
    <message numerus="yes">
        <source>%n favorite(s) added</source>
        <translation>
            <numerusform>%n favori ajouté</numerusform>
            <numerusform>%n favoris ajoutés</numerusform>
        </translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Keep downloading</source>
        <translation>Continuer à télécharger</translation>
    </message>
    <message>
        <source>move between the cells</source>
        <translation>passer d’une cellule à l’autre</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>apply or download the current one</source>
        <translation>appliquer ou télécharger la cellule active</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>play or stop its preview</source>
        <translation>lire ou arrêter son aperçu</translation>
    </message>
    <message>
        <source>add it to the favorites or remove it</source>
        <translation>l’ajouter aux favoris ou l’en retirer</translation>
    </message>
    <message>
        <source>Menu key</source>
        <translation>Touche Menu</translation>
    </message>
    <message>
        <source>show everything that can be done with it</source>
        <translation>afficher toutes les actions possibles</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Échap</translation>
    </message>
    <message>
        <source>cancel its download; clear the search</source>
        <translation>annuler son téléchargement&#xa0;; effacer la recherche</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Touches</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>Impossible d’enregistrer les réglages&#xa0;: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n download(s) would be cancelled</source>
        <translation>
            <numerusform>%n téléchargement est en cours et serait annulé.</numerusform>
            <numerusform>%n téléchargements sont en cours et seraient annulés.</numerusform>
        </translation>
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
        <source>Nothing passes all of these filters</source>
        <translation>Rien ne correspond à tous ces filtres</translation>
    </message>
    <message>
        <source>Remove all filters</source>
        <translation>Retirer tous les filtres</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>Effacer la recherche</translation>
    </message>
    <message>
        <source>Show all types</source>
        <translation>Afficher tous les types</translation>
    </message>
    <message>
        <source>None of these is a favorite</source>
        <translation>Aucun de ceux-ci n’est un favori</translation>
    </message>
    <message>
        <source>No favorites yet
Point at a cell and press its heart, or press F</source>
        <translation>Pas encore de favoris
Pointez une cellule et cliquez sur son cœur, ou appuyez sur F</translation>
    </message>
    <message>
        <source>Show more than favorites</source>
        <translation>Ne pas se limiter aux favoris</translation>
    </message>
    <message>
        <source>None of these is on this computer yet</source>
        <translation>Aucun de ceux-ci n’est encore sur cet ordinateur</translation>
    </message>
    <message>
        <source>Show what can be downloaded</source>
        <translation>Afficher ce qui peut être téléchargé</translation>
    </message>
    <message>
        <source>No updates are available</source>
        <translation>Pas de mises à jour pour ceux-ci</translation>
    </message>
    <message>
        <source>Show all items</source>
        <translation>Afficher aussi les autres</translation>
    </message>
    <message>
        <source>Looking for what is on this computer…</source>
        <translation>Recherche de ce qui est sur cet ordinateur…</translation>
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
        <source>Backgrounds</source>
        <translation>Arrière-plans</translation>
    </message>
    <message>
        <source>Kinds of resources</source>
        <translation>Types de ressources</translation>
    </message>
    <message>
        <source>Large pictures</source>
        <translation>Grandes images</translation>
    </message>
    <message>
        <source>Shows the filters in larger cells</source>
        <translation>Affiche les filtres dans de plus grandes cellules</translation>
    </message>
</context>
<context>
    <name>ServerField</name>
    <message>
        <source>Address of the resource server</source>
        <translation>Adresse du serveur de ressources</translation>
    </message>
    <message>
        <source>This is not an address such as https://example.com/resources/</source>
        <translation>Ce n’est pas une adresse comme https://example.com/resources/</translation>
    </message>
    <message>
        <source>Asking %1…</source>
        <translation>Interrogation de %1…</translation>
    </message>
    <message>
        <source>The server answers, but has no resources at this address</source>
        <translation>Le serveur répond, mais n’a pas de ressources à cette adresse</translation>
    </message>
    <message>
        <source>Nothing found: %1</source>
        <translation>Rien trouvé&#xa0;: %1</translation>
    </message>
    <message>
        <source>Found: catalogue %1</source>
        <translation>Trouvé&#xa0;: catalogue %1</translation>
    </message>
    <message>
        <source>Found: catalogue %1, published on %2</source>
        <translation>Trouvé&#xa0;: catalogue %1, publié le %2</translation>
    </message>
</context>
<context>
    <name>SettingsControls</name>
    <message>
        <source>&amp;Settings…</source>
        <translation>&amp;Réglages…</translation>
    </message>
    <message>
        <source>The new folder is used from the next start on; what is in the old one stays there</source>
        <translation>Le nouveau dossier servira au prochain démarrage&#xa0;; le contenu de l’ancien y reste</translation>
    </message>
    <message>
        <source>The new server is used from the next start on</source>
        <translation>Le nouveau serveur servira au prochain démarrage</translation>
    </message>
    <message>
        <source>The number of connections applies from the next start on</source>
        <translation>Le nombre de connexions s’appliquera au prochain démarrage</translation>
    </message>
    <message>
        <source>Nothing was moved</source>
        <translation>Rien n’a été déplacé</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>Dossier de téléchargement</translation>
    </message>
    <message>
        <source>Nothing was moved: %1</source>
        <translation>Rien n’a été déplacé : %1</translation>
    </message>
    <message>
        <source>The downloads are in the new folder now</source>
        <translation>Les téléchargements sont maintenant dans le nouveau dossier</translation>
    </message>
    <message numerus="yes">
        <source>The downloads are in the new folder now; %n file(s) of the old one could not be removed</source>
        <translation>
            <numerusform>Les téléchargements sont maintenant dans le nouveau dossier ; %n fichier de l’ancien n’a pas pu être supprimé</numerusform>
            <numerusform>Les téléchargements sont maintenant dans le nouveau dossier ; %n fichiers de l’ancien n’ont pas pu être supprimés</numerusform>
        </translation>
    </message>
    <message>
        <source>The downloads stay in this folder</source>
        <translation>Les téléchargements restent dans ce dossier</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>Impossible d’enregistrer les réglages&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Change…</source>
        <translation>Modifier…</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>applies the item</source>
        <translation>applique l’élément</translation>
    </message>
    <message>
        <source>selects the item and shows its details</source>
        <translation>le sélectionne et affiche ses détails</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>Comme le bureau</translation>
    </message>
    <message>
        <source>Less motion</source>
        <translation>Moins d’animations</translation>
    </message>
    <message>
        <source>All previews move</source>
        <translation>Tous les aperçus sont animés</translation>
    </message>
    <message>
        <source>As the screen</source>
        <translation>Comme l’écran</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Ser&amp;ver:</source>
        <translation>Ser&amp;veur&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Download folder:</source>
        <translation>&amp;Dossier de téléchargement&#xa0;:</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>Dossier de téléchargement</translation>
    </message>
    <message>
        <source>&amp;Connections:</source>
        <translation>&amp;Connexions&#xa0;:</translation>
    </message>
    <message>
        <source>A cl&amp;ick:</source>
        <translation>Un cl&amp;ic&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Motion:</source>
        <translation>&amp;Animations&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Langue&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Skin:</source>
        <translation>A&amp;pparence&#xa0;:</translation>
    </message>
    <message>
        <source>Sc&amp;ale:</source>
        <translation>&amp;Échelle&#xa0;:</translation>
    </message>
    <message>
        <source>Files that are fetched at the same time</source>
        <translation>Fichiers téléchargés en même temps</translation>
    </message>
    <message>
        <source>Measuring the folder…</source>
        <translation>Mesure du dossier…</translation>
    </message>
    <message>
        <source>This folder is not writable</source>
        <translation>Ce dossier n’est pas accessible en écriture</translation>
    </message>
    <message>
        <source>Used: %1, free: %2</source>
        <translation>Utilisé&#xa0;: %1, libre&#xa0;: %2</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>Impossible d’enregistrer les réglages&#xa0;: %1</translation>
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
    <message>
        <source>There is not enough space on the disk: %1 are free. Remove something, or choose another download folder in the settings.</source>
        <translation>Il n’y a pas assez de place sur le disque&#xa0;: %1 libres. Retirez quelque chose ou choisissez un autre dossier dans les réglages.</translation>
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
    <name>UndoAction</name>
    <message>
        <source>U&amp;ndo</source>
        <translation>A&amp;nnuler</translation>
    </message>
    <message>
        <source>U&amp;ndo removal</source>
        <translation>A&amp;nnuler le retrait</translation>
    </message>
    <message>
        <source>U&amp;ndo change of favorites</source>
        <translation>A&amp;nnuler le changement de favoris</translation>
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
    <message>
        <source>Waiting for the server…</source>
        <translation>En attente du serveur…</translation>
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
<context>
    <name>WelcomePage</name>
    <message>
        <source>Where do your resources come from?</source>
        <translation>D’où viennent vos ressources&#xa0;?</translation>
    </message>
    <message>
        <source>Themes, filters and backgrounds come from a resource server. Enter the address that you have been given; it can be changed in the settings.</source>
        <translation>Thèmes, filtres et arrière-plans viennent d’un serveur de ressources. Saisissez l’adresse que l’on vous a donnée&#xa0;; elle peut être modifiée dans les réglages.</translation>
    </message>
    <message>
        <source>Continue without a server</source>
        <translation>Continuer sans serveur</translation>
    </message>
    <message>
        <source>Use this server</source>
        <translation>Utiliser ce serveur</translation>
    </message>
    <message>
        <source>Use it anyway</source>
        <translation>L’utiliser quand même</translation>
    </message>
</context>
</TS>
