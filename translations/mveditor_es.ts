<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES">
<context>
    <name>CheckStatus</name>
    <message>
        <source>Checking for new resources…</source>
        <translation>Buscando recursos nuevos…</translation>
    </message>
    <message>
        <source>%1. Fetching previews…</source>
        <translation>%1. Descargando vistas previas…</translation>
    </message>
    <message>
        <source>%1. Previews %2 of %3</source>
        <translation>%1. Vistas previas: %2 de %3</translation>
    </message>
    <message>
        <source>Start the program again to check again</source>
        <translation>Reinicie el programa para volver a comprobar</translation>
    </message>
    <message>
        <source>Catalogue updated</source>
        <translation>Catálogo actualizado</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>Al día</translation>
    </message>
    <message>
        <source>The server has resources that need a newer application</source>
        <translation>El servidor tiene recursos que requieren una aplicación más reciente</translation>
    </message>
    <message>
        <source>The server&apos;s catalogue is older than this application</source>
        <translation>El catálogo del servidor es anterior a esta aplicación</translation>
    </message>
    <message numerus="yes">
        <source>, %n preview(s) fetched</source>
        <translation>
            <numerusform>, %n vista previa descargada</numerusform>
            <numerusform>, %n vistas previas descargadas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n preview(s) could not be fetched</source>
        <translation>
            <numerusform>, no se pudo descargar %n vista previa</numerusform>
            <numerusform>, no se pudieron descargar %n vistas previas</numerusform>
        </translation>
    </message>
    <message>
        <source>Offline: %1; %2</source>
        <translation>Sin conexión: %1; %2</translation>
    </message>
    <message>
        <source>Not updated: %1; %2</source>
        <translation>No actualizado: %1; %2</translation>
    </message>
    <message>
        <source>Check cancelled; %1</source>
        <translation>Comprobación cancelada; %1</translation>
    </message>
    <message>
        <source>, but there is no catalogue to fetch previews for</source>
        <translation>, pero no hay ningún catálogo del que obtener vistas previas</translation>
    </message>
    <message>
        <source>catalogue of %1</source>
        <translation>catálogo del %1</translation>
    </message>
    <message>
        <source>no catalogue has been downloaded yet</source>
        <translation>todavía no se ha descargado ningún catálogo</translation>
    </message>
</context>
<context>
    <name>DetailsPanel</name>
    <message>
        <source>Click, or press Space, to play or stop</source>
        <translation>Haga clic o pulse Espacio para reproducir o detener</translation>
    </message>
    <message>
        <source>What is used, and files</source>
        <translation>Lo que utiliza y archivos</translation>
    </message>
    <message>
        <source>Show files in folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Nothing applied yet</source>
        <translation>Todavía no hay nada aplicado</translation>
    </message>
    <message>
        <source>Click a cell, or move to it with the arrow keys and press Enter. What it lacks is downloaded first.</source>
        <translation>Haga clic en una celda, o vaya a ella con las flechas y pulse Intro. Lo que le falte se descarga antes.</translation>
    </message>
    <message>
        <source>Add to favourites</source>
        <translation>Añadir a favoritos</translation>
    </message>
    <message>
        <source>Remove favourite</source>
        <translation>Quitar de favoritos</translation>
    </message>
    <message>
        <source>Uses</source>
        <translation>Utiliza</translation>
    </message>
    <message>
        <source>Files: %1</source>
        <translation>Archivos: %1</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>falta</translation>
    </message>
    <message>
        <source>Preview of what is shown</source>
        <translation>Vista previa de lo mostrado</translation>
    </message>
</context>
<context>
    <name>FailureBox</name>
    <message>
        <source>Why the download failed</source>
        <translation>Por qué falló la descarga</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>“%1” could not be downloaded: %2</source>
        <translation>No se pudo descargar «%1»: %2</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Detalles</translation>
    </message>
</context>
<context>
    <name>FavouritesFile</name>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>No se puede escribir %1: %2</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>No se puede leer %1: %2</translation>
    </message>
    <message>
        <source>%1 is not a file of favourites</source>
        <translation>%1 no es un archivo de favoritos</translation>
    </message>
    <message>
        <source>%1 contains an entry that is not a favourite</source>
        <translation>%1 contiene una entrada que no es un favorito</translation>
    </message>
</context>
<context>
    <name>ItemFacts</name>
    <message>
        <source>Video filter</source>
        <translation>Filtro de vídeo</translation>
    </message>
    <message>
        <source>Transition</source>
        <translation>Transición</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Movimiento</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Tema</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Fondo</translation>
    </message>
    <message>
        <source>Festivals</source>
        <translation>Fiestas</translation>
    </message>
    <message>
        <source>Travel</source>
        <translation>Viajes</translation>
    </message>
    <message>
        <source>Banquets</source>
        <translation>Banquetes</translation>
    </message>
    <message>
        <source>Others</source>
        <translation>Otros</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Applied: %1</source>
        <translation>Aplicado: %1</translation>
    </message>
    <message>
        <source>The new scale applies from the next start on</source>
        <translation>La nueva escala se aplicará en el próximo inicio</translation>
    </message>
    <message>
        <source>Slideshow resources</source>
        <translation>Recursos para presentaciones</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>&amp;Export favourites…</source>
        <translation>&amp;Exportar favoritos…</translation>
    </message>
    <message>
        <source>&amp;Import favourites…</source>
        <translation>&amp;Importar favoritos…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>&amp;Resources</source>
        <translation>&amp;Recursos</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Buscar</translation>
    </message>
    <message>
        <source>Check now</source>
        <translation>Comprobar</translation>
    </message>
    <message>
        <source>Cancel check</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>No program opens the folder %1</source>
        <translation>Ningún programa abre la carpeta %1</translation>
    </message>
    <message>
        <source>No program opens the address %1</source>
        <translation>Ningún programa abre la dirección %1</translation>
    </message>
    <message>
        <source>Export favourites</source>
        <translation>Exportar favoritos</translation>
    </message>
    <message numerus="yes">
        <source>%n favourite(s) written</source>
        <translation>
            <numerusform>%n favorito guardado</numerusform>
            <numerusform>%n favoritos guardados</numerusform>
        </translation>
    </message>
    <message>
        <source>Import favourites</source>
        <translation>Importar favoritos</translation>
    </message>
    <message numerus="yes">
        <source>%n favourite(s) added</source>
        <translation>
            <numerusform>%n favorito añadido</numerusform>
            <numerusform>%n favoritos añadidos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n of them not in the catalogue now</source>
        <translation>
            <numerusform>, %n no está ahora en el catálogo</numerusform>
            <numerusform>, %n no están ahora en el catálogo</numerusform>
        </translation>
    </message>
    <message>
        <source>The favourites cannot be saved: %1</source>
        <translation>No se pueden guardar los favoritos: %1</translation>
    </message>
    <message>
        <source>Show &amp;details</source>
        <translation>Mostrar &amp;detalles</translation>
    </message>
    <message>
        <source>&amp;Open project…</source>
        <translation>&amp;Abrir proyecto…</translation>
    </message>
    <message>
        <source>Open project</source>
        <translation>Abrir proyecto</translation>
    </message>
</context>
<context>
    <name>NoticeBar</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>ProjectDialog</name>
    <message>
        <source>Project %1</source>
        <translation>Proyecto %1</translation>
    </message>
    <message>
        <source>Looking at the items…</source>
        <translation>Comprobando los elementos…</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Elemento</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>Items of the project</source>
        <translation>Elementos del proyecto</translation>
    </message>
    <message>
        <source>Download what is missing</source>
        <translation>Descargar lo que falta</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>ready</source>
        <translation>listo</translation>
    </message>
    <message>
        <source>not in the catalogue</source>
        <translation>no está en el catálogo</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>falta</translation>
    </message>
    <message>
        <source>Ready: %1 of %2 items</source>
        <translation>Listos: %1 de %2 elementos</translation>
    </message>
    <message>
        <source>Missing: %1; to be fetched: %2</source>
        <translation>Faltan: %1; por descargar: %2</translation>
    </message>
    <message>
        <source>Not in the catalogue: %1</source>
        <translation>No están en el catálogo: %1</translation>
    </message>
</context>
<context>
    <name>ProjectFile</name>
    <message>
        <source>not a file</source>
        <translation>no es un archivo</translation>
    </message>
    <message>
        <source>more than %1</source>
        <translation>más de %1</translation>
    </message>
    <message>
        <source>there is no list “items”</source>
        <translation>no hay ninguna lista «items»</translation>
    </message>
    <message>
        <source>item %1 has no GUID</source>
        <translation>el elemento %1 no tiene GUID</translation>
    </message>
    <message>
        <source>item %1: “%2” is not a GUID</source>
        <translation>elemento %1: «%2» no es un GUID</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>No se puede abrir %1: %2</translation>
    </message>
    <message>
        <source>line %1, column %2: </source>
        <translation>línea %1, columna %2: </translation>
    </message>
</context>
<context>
    <name>ResourceList</name>
    <message>
        <source>Themes</source>
        <translation>Temas</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filtros</translation>
    </message>
    <message>
        <source>Backgrounds</source>
        <translation>Fondos</translation>
    </message>
    <message>
        <source>No name contains “%1”</source>
        <translation>Ningún nombre contiene «%1»</translation>
    </message>
    <message>
        <source>No favourites yet
Point at a theme and press its heart, or press F</source>
        <translation>Todavía no hay favoritos
Señale un tema y pulse su corazón, o pulse F</translation>
    </message>
    <message>
        <source>No themes of this type</source>
        <translation>No hay temas de este tipo</translation>
    </message>
    <message>
        <source>Nothing is here yet
Resources come with the first check of the server</source>
        <translation>Aquí todavía no hay nada
Los recursos llegan con la primera comprobación del servidor</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Actualizable</translation>
    </message>
</context>
<context>
    <name>ResourceTabs</name>
    <message>
        <source>Themes</source>
        <translation>Temas</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filtros</translation>
    </message>
    <message>
        <source>Filters (large)</source>
        <translation>Filtros (grandes)</translation>
    </message>
    <message>
        <source>Backgrounds</source>
        <translation>Fondos</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Todos</translation>
    </message>
    <message>
        <source>Favourites</source>
        <translation>Favoritos</translation>
    </message>
    <message>
        <source>Others</source>
        <translation>Otros</translation>
    </message>
    <message>
        <source>Festivals</source>
        <translation>Fiestas</translation>
    </message>
    <message>
        <source>Travel</source>
        <translation>Viajes</translation>
    </message>
    <message>
        <source>Banquets</source>
        <translation>Banquetes</translation>
    </message>
    <message>
        <source>Theme type</source>
        <translation>Tipo de tema</translation>
    </message>
    <message>
        <source>Search (Ctrl+F)</source>
        <translation>Buscar (Ctrl+F)</translation>
    </message>
    <message>
        <source>Search by name</source>
        <translation>Buscar por nombre</translation>
    </message>
</context>
<context>
    <name>StateText</name>
    <message>
        <source>at least %1</source>
        <translation>al menos %1</translation>
    </message>
    <message>
        <source>size unknown</source>
        <translation>tamaño desconocido</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>Actualizado</translation>
    </message>
    <message>
        <source>Not downloaded yet, %1</source>
        <translation>Aún sin descargar, %1</translation>
    </message>
    <message>
        <source>Update available, %1</source>
        <translation>Actualización disponible, %1</translation>
    </message>
    <message>
        <source>Damaged: fetch it again, %1</source>
        <translation>Dañado: vuelva a descargarlo, %1</translation>
    </message>
    <message>
        <source>Ready to use</source>
        <translation>Listo para usar</translation>
    </message>
    <message>
        <source>On this computer: %1</source>
        <translation>En este equipo: %1</translation>
    </message>
    <message>
        <source>On this computer: %1, of which other items share %2</source>
        <translation>En este equipo: %1, de ellos %2 compartidos con otros</translation>
    </message>
</context>
<context>
    <name>StorageBox</name>
    <message>
        <source>Remove from this computer</source>
        <translation>Quitar del equipo</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Descargar</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Actualizar</translation>
    </message>
</context>
<context>
    <name>StorageControls</name>
    <message>
        <source>“%1” is back</source>
        <translation>«%1» vuelve a estar disponible</translation>
    </message>
    <message>
        <source>Some files of “%1” could not be brought back</source>
        <translation>Algunos archivos de «%1» no se pudieron recuperar</translation>
    </message>
    <message>
        <source>U&amp;ndo removal</source>
        <translation>&amp;Deshacer la retirada</translation>
    </message>
    <message>
        <source>Cancel &amp;update</source>
        <translation>Cancelar la act&amp;ualización</translation>
    </message>
    <message>
        <source>&amp;Update all (%1)</source>
        <translation>Act&amp;ualizar todo (%1)</translation>
    </message>
    <message numerus="yes">
        <source>%n update(s) available</source>
        <translation>
            <numerusform>%n actualización disponible</numerusform>
            <numerusform>%n actualizaciones disponibles</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) fetched</source>
        <translation>
            <numerusform>%n elemento descargado</numerusform>
            <numerusform>%n elementos descargados</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled; what has arrived is kept for the next time</source>
        <translation>Cancelado; lo descargado se conserva para la próxima vez</translation>
    </message>
    <message>
        <source>Remove from this computer</source>
        <translation>Quitar del equipo</translation>
    </message>
    <message>
        <source>Remove “%1” from this computer? This frees %2. It can be downloaded again.</source>
        <translation>¿Quitar «%1» de este equipo? Se liberan %2. Se puede volver a descargar.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>“%1” was not removed while a download works. Try again when it has ended.</source>
        <translation>«%1» no se quitó porque hay una descarga en curso. Inténtelo cuando termine.</translation>
    </message>
    <message>
        <source>“%1” was not removed: %2</source>
        <translation>«%1» no se quitó: %2</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>“%1” was removed: %2 will be free after the next start</source>
        <translation>Se quitó «%1»: %2 quedarán libres tras el próximo inicio</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Not everything could be fetched: %1</source>
        <translation>No se pudo descargar todo: %1</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Reintentar</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %n item(s): %1 of %2</source>
        <translation>
            <numerusform>Descargando %n elemento: %1 de %2</numerusform>
            <numerusform>Descargando %n elementos: %1 de %2</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %n item(s)…</source>
        <translation>
            <numerusform>Descargando %n elemento…</numerusform>
            <numerusform>Descargando %n elementos…</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>&amp;Skin</source>
        <translation>&amp;Aspecto</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Idioma</translation>
    </message>
    <message>
        <source>S&amp;cale (at the next start)</source>
        <translation>&amp;Escala (en el próximo inicio)</translation>
    </message>
    <message>
        <source>&amp;Reduce motion</source>
        <translation>&amp;Reducir movimiento</translation>
    </message>
    <message>
        <source>Pointing at a cell does not play its preview; Space does</source>
        <translation>Señalar una celda no reproduce su vista previa; Espacio sí</translation>
    </message>
    <message>
        <source>As the screen</source>
        <translation>Como la pantalla</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
</TS>
