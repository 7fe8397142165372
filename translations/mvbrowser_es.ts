<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>CellAccessible</name>
    <message>
        <source>Download and apply</source>
        <translation>Descargar y aplicar</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Aplicar</translation>
    </message>
    <message>
        <source>Show details</source>
        <translation>Mostrar detalles</translation>
    </message>
    <message>
        <source>Cancel the download</source>
        <translation>Cancelar la descarga</translation>
    </message>
</context>
<context>
    <name>CellText</name>
    <message>
        <source>favourite</source>
        <translation>favorito</translation>
    </message>
    <message>
        <source>current</source>
        <translation>actual</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>on disk</source>
        <translation>en este equipo</translation>
    </message>
    <message>
        <source>not downloaded</source>
        <translation>no descargado</translation>
    </message>
    <message>
        <source>update available</source>
        <translation>actualización disponible</translation>
    </message>
    <message>
        <source>downloading, %1 %</source>
        <translation>descargando, %1 %</translation>
    </message>
    <message>
        <source>download failed</source>
        <translation>descarga fallida</translation>
    </message>
    <message>
        <source>new</source>
        <translation>nuevo</translation>
    </message>
    <message>
        <source>festivals</source>
        <translation>fiestas</translation>
    </message>
    <message>
        <source>travel</source>
        <translation>viajes</translation>
    </message>
    <message>
        <source>banquets</source>
        <translation>banquetes</translation>
    </message>
    <message>
        <source>at least %1</source>
        <translation>al menos %1</translation>
    </message>
</context>
<context>
    <name>MVThemeItemSubwdgt_Preview</name>
    <message>
        <source>Remove from Favorites</source>
        <translation>Quitar de favoritos</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Añadir a favoritos</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Descargar</translation>
    </message>
    <message>
        <source>Download failed!</source>
        <translation>¡Descarga fallida!</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Actual</translation>
    </message>
    <message>
        <source>More&gt;&gt;</source>
        <translation>Más&gt;&gt;</translation>
    </message>
    <message>
        <source>Internet error!</source>
        <translation>¡Error de Internet!</translation>
    </message>
    <message>
        <source>Path error!</source>
        <translation>¡Error de ruta!</translation>
    </message>
    <message>
        <source>Element error!</source>
        <translation>¡Error de elemento!</translation>
    </message>
    <message>
        <source>Unknown error!</source>
        <translation>¡Error desconocido!</translation>
    </message>
    <message>
        <source>Click to cancel the download</source>
        <translation>Haga clic para cancelar la descarga</translation>
    </message>
</context>
<context>
    <name>STransferFailure</name>
    <message>
        <source>the disk is full</source>
        <translation>el disco está lleno</translation>
    </message>
    <message>
        <source>no permission to write the file</source>
        <translation>no hay permiso para escribir el archivo</translation>
    </message>
    <message>
        <source>the file cannot be written</source>
        <translation>no se puede escribir el archivo</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>no se puede conectar con el servidor</translation>
    </message>
    <message>
        <source>the connection to the server was lost</source>
        <translation>se perdió la conexión con el servidor</translation>
    </message>
    <message>
        <source>the file is not on the server</source>
        <translation>el archivo no está en el servidor</translation>
    </message>
    <message>
        <source>the server reports an error</source>
        <translation>el servidor comunica un error</translation>
    </message>
    <message>
        <source>the file has no usable address</source>
        <translation>el archivo no tiene una dirección válida</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>el archivo es demasiado grande</translation>
    </message>
    <message>
        <source>the file on the server is damaged</source>
        <translation>el archivo del servidor está dañado</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>cancelado</translation>
    </message>
</context>
</TS>
