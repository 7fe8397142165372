<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About this program</source>
        <translation>Acerca de este programa</translation>
    </message>
    <message>
        <source>Copy report</source>
        <translation>Copiar informe</translation>
    </message>
    <message>
        <source>Copies versions, folders and settings for a report of a fault</source>
        <translation>Copia versiones, carpetas y ajustes para informar de un fallo</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>mveditor %1, with Qt %2</source>
        <translation>mveditor %1, con Qt %2</translation>
    </message>
    <message>
        <source>Licence: %1</source>
        <translation>Licencia: %1</translation>
    </message>
    <message>
        <source>Downloads: %1</source>
        <translation>Descargas: %1</translation>
    </message>
    <message>
        <source>Favorites: %1</source>
        <translation>Favoritos: %1</translation>
    </message>
    <message>
        <source>Installed resources: %1</source>
        <translation>Recursos instalados: %1</translation>
    </message>
</context>
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
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Kind or size</source>
        <translation>Tipo o tamaño</translation>
    </message>
    <message>
        <source>Show file names</source>
        <translation>Mostrar nombres de archivo</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Aplicar</translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation>Añadir a favoritos</translation>
    </message>
    <message>
        <source>Remove favorite</source>
        <translation>Quitar de favoritos</translation>
    </message>
</context>
<context>
    <name>DownloadsBar</name>
    <message>
        <source>Waiting for the server…</source>
        <translation>Esperando al servidor…</translation>
    </message>
    <message numerus="yes">
        <source>Downloading %n item(s)</source>
        <translation>
            <numerusform>Descargando %n elemento</numerusform>
            <numerusform>Descargando %n elementos</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Cancel all</source>
        <translation>Cancelar todo</translation>
    </message>
    <message numerus="yes">
        <source>, %n of them waiting for the server</source>
        <translation>
            <numerusform>, %n espera al servidor</numerusform>
            <numerusform>, %n esperan al servidor</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DownloadsMove</name>
    <message>
        <source>The folder cannot be created: %1</source>
        <translation>No se puede crear la carpeta: %1</translation>
    </message>
    <message>
        <source>One folder is within the other: %1</source>
        <translation>Una carpeta está dentro de la otra: %1</translation>
    </message>
    <message>
        <source>%1 cannot be created</source>
        <translation>No se puede crear %1</translation>
    </message>
    <message>
        <source>There is not enough space: %1 are needed, %2 are free</source>
        <translation>No hay suficiente espacio: se necesitan %1, hay %2 libres</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>No se puede leer %1: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>No se puede escribir %1: %2</translation>
    </message>
    <message>
        <source>Another program is working with the downloads</source>
        <translation>Otro programa está trabajando con las descargas</translation>
    </message>
    <message>
        <source>The disk has not taken all files: %1</source>
        <translation>El disco no ha guardado todos los archivos: %1</translation>
    </message>
    <message>
        <source>Downloads are not stored behind links: %1</source>
        <translation>Las descargas no se guardan detrás de enlaces: %1</translation>
    </message>
    <message>
        <source>The new folder already holds other downloads; choose an empty folder: %1</source>
        <translation>La nueva carpeta ya contiene otras descargas; elija una carpeta vacía: %1</translation>
    </message>
    <message>
        <source>The copy is damaged: %1</source>
        <translation>La copia está dañada: %1</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>No se puede leer %1</translation>
    </message>
</context>
<context>
    <name>DownloadsMover</name>
    <message>
        <source>Move the downloads to the new folder?

From %1
to %2</source>
        <translation>¿Mover las descargas a la carpeta nueva?

De %1
a %2</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>Carpeta de descargas</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Mover</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>Dejar</translation>
    </message>
    <message>
        <source>Moving the downloads…</source>
        <translation>Moviendo las descargas…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>They cannot be moved now, while downloads run, or a check runs or is about to.</source>
        <translation>Ahora no se pueden mover, porque hay descargas o una comprobación en curso o a punto de empezar.</translation>
    </message>
    <message>
        <source>Cancelling…</source>
        <translation>Cancelando…</translation>
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
    <name>FavouriteBar</name>
    <message>
        <source>“%1” was removed from the favorites</source>
        <translation>«%1» ya no es favorito</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
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
        <source>%1 is not a file of favorites</source>
        <translation>%1 no es un archivo de favoritos</translation>
    </message>
    <message>
        <source>%1 contains an entry that is not a favorite</source>
        <translation>%1 contiene una entrada que no es un favorito</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>All types</source>
        <translation>Todos los tipos</translation>
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
    <message>
        <source>Favorites</source>
        <translation>Favoritos</translation>
    </message>
    <message>
        <source>Shows only your favorites</source>
        <translation>Muestra solo sus favoritos</translation>
    </message>
    <message>
        <source>Downloaded</source>
        <translation>Descargados</translation>
    </message>
    <message>
        <source>Shows only what is ready on this computer</source>
        <translation>Muestra solo lo que está listo en este equipo</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Novedades</translation>
    </message>
    <message>
        <source>Shows only what can be updated</source>
        <translation>Muestra solo lo que se puede actualizar</translation>
    </message>
    <message>
        <source>As published</source>
        <translation>Orden original</translation>
    </message>
    <message>
        <source>By name</source>
        <translation>Por nombre</translation>
    </message>
    <message>
        <source>Newest first</source>
        <translation>Nuevos primero</translation>
    </message>
    <message>
        <source>Largest first</source>
        <translation>Grandes primero</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>Orden</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>Borrar la búsqueda</translation>
    </message>
</context>
<context>
    <name>FolderBar</name>
    <message>
        <source>The download folder is not available now: %1</source>
        <translation>La carpeta de descargas no está disponible ahora: %1</translation>
    </message>
    <message>
        <source>Nothing can be downloaded: the download folder is not writable</source>
        <translation>No se puede descargar nada: la carpeta de descargas no admite escritura</translation>
    </message>
    <message>
        <source>The disk of the download folder is almost full: %1 are free</source>
        <translation>El disco de la carpeta de descargas está casi lleno: quedan %1</translation>
    </message>
    <message>
        <source>Choose another folder…</source>
        <translation>Elegir otra carpeta…</translation>
    </message>
</context>
<context>
    <name>FoldingPanes</name>
    <message>
        <source>Back to the list</source>
        <translation>Volver a la lista</translation>
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
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Definition</source>
        <translation>Definición</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Imagen</translation>
    </message>
    <message>
        <source>Animated preview</source>
        <translation>Vista previa animada</translation>
    </message>
    <message>
        <source>Music: %1</source>
        <translation>Música: %1</translation>
    </message>
    <message>
        <source>Picture: %1</source>
        <translation>Imagen: %1</translation>
    </message>
    <message>
        <source>Package: %1</source>
        <translation>Paquete: %1</translation>
    </message>
</context>
<context>
    <name>ItemMenu</name>
    <message>
        <source>Remove from &amp;favorites</source>
        <translation>Quitar de &amp;favoritos</translation>
    </message>
    <message>
        <source>Add to &amp;favorites</source>
        <translation>Añadir a &amp;favoritos</translation>
    </message>
    <message>
        <source>Show &amp;details</source>
        <translation>Mostrar &amp;detalles</translation>
    </message>
    <message>
        <source>&amp;Show files in folder</source>
        <translation>&amp;Mostrar archivos en la carpeta</translation>
    </message>
    <message>
        <source>Copy &amp;name</source>
        <translation>Copiar &amp;nombre</translation>
    </message>
    <message>
        <source>Copy &amp;GUID</source>
        <translation>Copiar &amp;GUID</translation>
    </message>
    <message>
        <source>&amp;Remove from this computer…</source>
        <translation>&amp;Quitar del equipo…</translation>
    </message>
    <message>
        <source>&amp;Cancel download</source>
        <translation>&amp;Cancelar la descarga</translation>
    </message>
    <message>
        <source>Download and &amp;apply</source>
        <translation>Descargar y &amp;aplicar</translation>
    </message>
    <message>
        <source>D&amp;ownload only</source>
        <translation>Solo &amp;descargar</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Aplicar</translation>
    </message>
    <message>
        <source>&amp;Update</source>
        <translation>Act&amp;ualizar</translation>
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
    <message numerus="yes">
        <source>, %n of them not in the catalogue now</source>
        <translation>
            <numerusform>, %n no está ahora en el catálogo</numerusform>
            <numerusform>, %n no están ahora en el catálogo</numerusform>
        </translation>
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
    <message>
        <source>&amp;Export favorites…</source>
        <translation>&amp;Exportar favoritos…</translation>
    </message>
    <message>
        <source>&amp;Import favorites…</source>
        <translation>&amp;Importar favoritos…</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;yuda</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Teclas</translation>
    </message>
    <message>
        <source>&amp;About this program</source>
        <translation>&amp;Acerca de este programa</translation>
    </message>
    <message>
        <source>&amp;Details beside the list</source>
        <translation>&amp;Detalles junto a la lista</translation>
    </message>
    <message>
        <source>The favorites cannot be saved: %1</source>
        <translation>No se pueden guardar los favoritos: %1</translation>
    </message>
    <message>
        <source>Export favorites</source>
        <translation>Exportar favoritos</translation>
    </message>
    <message numerus="yes">
        <source>%n favorite(s) written</source>
        <translation>
            <numerusform>%n favorito guardado</numerusform>
            <numerusform>%n favoritos guardados</numerusform>
        </translation>
    </message>
    <message>
        <source>Import favorites</source>
        <translation>Importar favoritos</translation>
    </message>
    <message numerus="yes">
        <source>%n favorite(s) added</source>
        <translation>
            <numerusform>%n favorito añadido</numerusform>
            <numerusform>%n favoritos añadidos</numerusform>
        </translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Keep downloading</source>
        <translation>Seguir descargando</translation>
    </message>
    <message>
        <source>move between the cells</source>
        <translation>moverse entre las celdas</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Intro</translation>
    </message>
    <message>
        <source>apply or download the current one</source>
        <translation>aplicar o descargar la actual</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espacio</translation>
    </message>
    <message>
        <source>play or stop its preview</source>
        <translation>reproducir o detener su vista previa</translation>
    </message>
    <message>
        <source>add it to the favorites or remove it</source>
        <translation>añadirla a favoritos o quitarla</translation>
    </message>
    <message>
        <source>Menu key</source>
        <translation>Tecla Menú</translation>
    </message>
    <message>
        <source>show everything that can be done with it</source>
        <translation>mostrar todo lo que se puede hacer con ella</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>cancel its download; clear the search</source>
        <translation>cancelar su descarga; borrar la búsqueda</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Teclas</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>No se pueden guardar los ajustes: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n download(s) would be cancelled</source>
        <translation>
            <numerusform>%n descarga sigue en curso y se cancelaría.</numerusform>
            <numerusform>%n descargas siguen en curso y se cancelarían.</numerusform>
        </translation>
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
        <source>Nothing passes all of these filters</source>
        <translation>Nada cumple todos estos filtros</translation>
    </message>
    <message>
        <source>Remove all filters</source>
        <translation>Quitar todos los filtros</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>Borrar la búsqueda</translation>
    </message>
    <message>
        <source>Show all types</source>
        <translation>Mostrar todos los tipos</translation>
    </message>
    <message>
        <source>None of these is a favorite</source>
        <translation>Ninguno de estos es favorito</translation>
    </message>
    <message>
        <source>No favorites yet
Point at a cell and press its heart, or press F</source>
        <translation>Todavía no hay favoritos
Señale una celda y pulse su corazón, o pulse F</translation>
    </message>
    <message>
        <source>Show more than favorites</source>
        <translation>Mostrar no solo favoritos</translation>
    </message>
    <message>
        <source>None of these is on this computer yet</source>
        <translation>Ninguno de estos está aún en este equipo</translation>
    </message>
    <message>
        <source>Show what can be downloaded</source>
        <translation>Mostrar lo que se puede descargar</translation>
    </message>
    <message>
        <source>No updates are available</source>
        <translation>No hay novedades para estos</translation>
    </message>
    <message>
        <source>Show all items</source>
        <translation>Mostrar también los demás</translation>
    </message>
    <message>
        <source>Looking for what is on this computer…</source>
        <translation>Buscando lo que hay en este equipo…</translation>
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
        <source>Backgrounds</source>
        <translation>Fondos</translation>
    </message>
    <message>
        <source>Kinds of resources</source>
        <translation>Tipos de recursos</translation>
    </message>
    <message>
        <source>Large pictures</source>
        <translation>Imágenes grandes</translation>
    </message>
    <message>
        <source>Shows the filters in larger cells</source>
        <translation>Muestra los filtros en celdas más grandes</translation>
    </message>
</context>
<context>
    <name>ServerField</name>
    <message>
        <source>Address of the resource server</source>
        <translation>Dirección del servidor de recursos</translation>
    </message>
    <message>
        <source>This is not an address such as https://example.com/resources/</source>
        <translation>No es una dirección como https://example.com/resources/</translation>
    </message>
    <message>
        <source>Asking %1…</source>
        <translation>Consultando %1…</translation>
    </message>
    <message>
        <source>The server answers, but has no resources at this address</source>
        <translation>El servidor responde, pero no tiene recursos en esta dirección</translation>
    </message>
    <message>
        <source>Nothing found: %1</source>
        <translation>No se encontró nada: %1</translation>
    </message>
    <message>
        <source>Found: catalogue %1</source>
        <translation>Encontrado: catálogo %1</translation>
    </message>
    <message>
        <source>Found: catalogue %1, published on %2</source>
        <translation>Encontrado: catálogo %1, publicado el %2</translation>
    </message>
</context>
<context>
    <name>SettingsControls</name>
    <message>
        <source>&amp;Settings…</source>
        <translation>A&amp;justes…</translation>
    </message>
    <message>
        <source>The new folder is used from the next start on; what is in the old one stays there</source>
        <translation>La carpeta nueva se usará desde el próximo inicio; lo que hay en la anterior se queda allí</translation>
    </message>
    <message>
        <source>The new server is used from the next start on</source>
        <translation>El servidor nuevo se usará desde el próximo inicio</translation>
    </message>
    <message>
        <source>The number of connections applies from the next start on</source>
        <translation>El número de conexiones se aplicará en el próximo inicio</translation>
    </message>
    <message>
        <source>Nothing was moved</source>
        <translation>No se ha movido nada</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>Carpeta de descargas</translation>
    </message>
    <message>
        <source>Nothing was moved: %1</source>
        <translation>No se ha movido nada: %1</translation>
    </message>
    <message>
        <source>The downloads are in the new folder now</source>
        <translation>Las descargas están ahora en la carpeta nueva</translation>
    </message>
    <message numerus="yes">
        <source>The downloads are in the new folder now; %n file(s) of the old one could not be removed</source>
        <translation>
            <numerusform>Las descargas están ahora en la carpeta nueva; no se pudo eliminar %n archivo de la antigua</numerusform>
            <numerusform>Las descargas están ahora en la carpeta nueva; no se pudieron eliminar %n archivos de la antigua</numerusform>
        </translation>
    </message>
    <message>
        <source>The downloads stay in this folder</source>
        <translation>Las descargas permanecen en esta carpeta</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>No se pueden guardar los ajustes: %1</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Change…</source>
        <translation>Cambiar…</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>applies the item</source>
        <translation>aplica el elemento</translation>
    </message>
    <message>
        <source>selects the item and shows its details</source>
        <translation>lo selecciona y muestra sus detalles</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>Como el escritorio</translation>
    </message>
    <message>
        <source>Less motion</source>
        <translation>Menos movimiento</translation>
    </message>
    <message>
        <source>All previews move</source>
        <translation>Se mueven todas las vistas previas</translation>
    </message>
    <message>
        <source>As the screen</source>
        <translation>Como la pantalla</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Ser&amp;ver:</source>
        <translation>Ser&amp;vidor:</translation>
    </message>
    <message>
        <source>&amp;Download folder:</source>
        <translation>Carpeta de &amp;descargas:</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>Carpeta de descargas</translation>
    </message>
    <message>
        <source>&amp;Connections:</source>
        <translation>&amp;Conexiones:</translation>
    </message>
    <message>
        <source>A cl&amp;ick:</source>
        <translation>Un cl&amp;ic:</translation>
    </message>
    <message>
        <source>&amp;Motion:</source>
        <translation>&amp;Movimiento:</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Idioma:</translation>
    </message>
    <message>
        <source>&amp;Skin:</source>
        <translation>&amp;Aspecto:</translation>
    </message>
    <message>
        <source>Sc&amp;ale:</source>
        <translation>&amp;Escala:</translation>
    </message>
    <message>
        <source>Files that are fetched at the same time</source>
        <translation>Archivos que se descargan a la vez</translation>
    </message>
    <message>
        <source>Measuring the folder…</source>
        <translation>Midiendo la carpeta…</translation>
    </message>
    <message>
        <source>This folder is not writable</source>
        <translation>Esta carpeta no admite escritura</translation>
    </message>
    <message>
        <source>Used: %1, free: %2</source>
        <translation>Usado: %1, libre: %2</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>No se pueden guardar los ajustes: %1</translation>
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
    <message>
        <source>There is not enough space on the disk: %1 are free. Remove something, or choose another download folder in the settings.</source>
        <translation>No hay espacio suficiente en el disco: quedan %1. Quite algo o elija otra carpeta en los ajustes.</translation>
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
    <name>UndoAction</name>
    <message>
        <source>U&amp;ndo</source>
        <translation>&amp;Deshacer</translation>
    </message>
    <message>
        <source>U&amp;ndo removal</source>
        <translation>&amp;Deshacer la retirada</translation>
    </message>
    <message>
        <source>U&amp;ndo change of favorites</source>
        <translation>&amp;Deshacer cambio de favoritos</translation>
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
    <message>
        <source>Waiting for the server…</source>
        <translation>Esperando al servidor…</translation>
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
<context>
    <name>WelcomePage</name>
    <message>
        <source>Where do your resources come from?</source>
        <translation>¿De dónde vienen sus recursos?</translation>
    </message>
    <message>
        <source>Themes, filters and backgrounds come from a resource server. Enter the address that you have been given; it can be changed in the settings.</source>
        <translation>Los temas, filtros y fondos vienen de un servidor de recursos. Introduzca la dirección que le han dado; se puede cambiar en los ajustes.</translation>
    </message>
    <message>
        <source>Continue without a server</source>
        <translation>Continuar sin servidor</translation>
    </message>
    <message>
        <source>Use this server</source>
        <translation>Usar este servidor</translation>
    </message>
    <message>
        <source>Use it anyway</source>
        <translation>Usarlo de todos modos</translation>
    </message>
</context>
</TS>
