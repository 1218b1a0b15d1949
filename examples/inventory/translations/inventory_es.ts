<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>inventory</name>
    <message>
        <source>Lists every file below a folder with its size and its CRC-32 checksum.</source>
        <extracomment>Help text: what the program does. Files in subfolders are included.</extracomment>
        <translation>Enumera todos los archivos de una carpeta y de sus subcarpetas con su tamaño y su suma de comprobación CRC-32.</translation>
    </message>
    <message>
        <source>The folder to list.</source>
        <extracomment>Help text of the argument that names the folder.</extracomment>
        <translation>La carpeta cuyo contenido se enumerará.</translation>
    </message>
    <message>
        <source>Language of the output, such as de or fr.</source>
        <extracomment>Help text of an option. “de” and “fr” are language codes: keep them.</extracomment>
        <translation>Idioma de la salida, por ejemplo «de» o «fr».</translation>
    </message>
    <message>
        <source>Write JSON instead of text.</source>
        <extracomment>Help text of an option.</extracomment>
        <translation>Escribe JSON en lugar de texto.</translation>
    </message>
    <message>
        <source>Size</source>
        <extracomment>Column heading: the size of a file.</extracomment>
        <translation>Tamaño</translation>
    </message>
    <message>
        <source>CRC-32</source>
        <extracomment>Column heading: the CRC-32 checksum of a file.</extracomment>
        <translation>CRC-32</translation>
    </message>
    <message>
        <source>Path</source>
        <extracomment>Column heading: the path of a file below the folder.</extracomment>
        <translation>Ruta</translation>
    </message>
    <message>
        <source>%1 is not a folder that can be read.</source>
        <extracomment>%1 is a path.</extracomment>
        <translation>%1 no es una carpeta que se pueda leer.</translation>
    </message>
    <message>
        <source>Cannot read %1: %2</source>
        <extracomment>%1 is the path of a file, %2 is the reason that the system gives.</extracomment>
        <translation>No se puede leer %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s), %1</source>
        <extracomment>Last line of the list: %n is the number of files, %1 their total size as text, such as “4.3 MiB”.</extracomment>
        <translation>
            <numerusform>%n archivo, %1</numerusform>
            <numerusform>%n archivos, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be read.</source>
        <extracomment>%n is the number of files.</extracomment>
        <translation>
            <numerusform>No se pudo leer %n archivo.</numerusform>
            <numerusform>No se pudieron leer %n archivos.</numerusform>
        </translation>
    </message>
</context>
</TS>
