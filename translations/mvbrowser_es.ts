<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
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
</context>
</TS>
