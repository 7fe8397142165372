<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES">
<context>
    <name>CheckStatus</name>
    <message>
        <source>Checking for new resources…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fetching previews…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start the program again to check again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Catalogue updated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The server has resources that need a newer application</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The server&apos;s catalogue is older than this application</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Offline: catalogue of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The server&apos;s catalogue was refused: catalogue of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check cancelled: catalogue of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>, %n preview(s) fetched</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n preview(s) could not be fetched</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>no date, none is here</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DetailsPanel</name>
    <message>
        <source>Preview of what is applied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click, or press Space, to play or stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What is used, and files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show files in folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing applied yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click a cell, or move to it with the arrow keys and press Enter. What it lacks is downloaded first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add to favourites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove favourite</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Uses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>missing</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FailureBox</name>
    <message>
        <source>“%1” could not be downloaded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Why the download failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FavouritesFile</name>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is no file of favourites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 holds an entry that is no favourite</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Applied: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The new scale applies from the next start on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Slideshow resources</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Export favourites…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Import favourites…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Resources</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel check</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No program opens the folder %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No program opens the address %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export favourites</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n favourite(s) written</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Import favourites</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n favourite(s) added</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n of them not in the catalogue now</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ResourceList</name>
    <message>
        <source>Themes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backgrounds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No name contains “%1”</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No favourites yet
Point at a theme and press its heart, or press F</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No themes of this type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing is here yet
Resources come with the first check of the server</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ResourceTabs</name>
    <message>
        <source>Themes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filters (large)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backgrounds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kinds of resources</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Favourites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Others</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Festivals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Travel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Banquets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Theme type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search (Ctrl+F)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search by name</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Skin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>S&amp;cale (at the next start)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Reduce motion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pointing at a cell does not play its preview; Space does</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>As the screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
