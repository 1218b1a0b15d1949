<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nl" sourcelanguage="en">
<context>
    <name>inventory</name>
    <message>
        <source>Lists every file below a folder with its size and its CRC-32 checksum.</source>
        <extracomment>Help text: what the program does. Files in subfolders are included.</extracomment>
        <translation>Toont alle bestanden in een map en de submappen ervan, met hun grootte en CRC-32-controlesom.</translation>
    </message>
    <message>
        <source>The folder to list.</source>
        <extracomment>Help text of the argument that names the folder.</extracomment>
        <translation>De map waarvan de inhoud wordt getoond.</translation>
    </message>
    <message>
        <source>Language of the output, such as de or fr.</source>
        <extracomment>Help text of an option. “de” and “fr” are language codes: keep them.</extracomment>
        <translation>Taal van de uitvoer, bijvoorbeeld ‘de’ of ‘fr’.</translation>
    </message>
    <message>
        <source>Write JSON instead of text.</source>
        <extracomment>Help text of an option.</extracomment>
        <translation>JSON in plaats van tekst uitvoeren.</translation>
    </message>
    <message>
        <source>Size</source>
        <extracomment>Column heading: the size of a file.</extracomment>
        <translation>Grootte</translation>
    </message>
    <message>
        <source>CRC-32</source>
        <extracomment>Column heading: the CRC-32 checksum of a file.</extracomment>
        <translation>CRC-32</translation>
    </message>
    <message>
        <source>Path</source>
        <extracomment>Column heading: the path of a file below the folder.</extracomment>
        <translation>Pad</translation>
    </message>
    <message>
        <source>%1 is not a folder that can be read.</source>
        <extracomment>%1 is a path.</extracomment>
        <translation>%1 is geen leesbare map.</translation>
    </message>
    <message>
        <source>Cannot read %1: %2</source>
        <extracomment>%1 is the path of a file, %2 is the reason that the system gives.</extracomment>
        <translation>Kan %1 niet lezen: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s), %1</source>
        <extracomment>Last line of the list: %n is the number of files, %1 their total size as text, such as “4.3 MiB”.</extracomment>
        <translation>
            <numerusform>%n bestand, %1</numerusform>
            <numerusform>%n bestanden, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be read.</source>
        <extracomment>%n is the number of files.</extracomment>
        <translation>
            <numerusform>%n bestand kon niet worden gelezen.</numerusform>
            <numerusform>%n bestanden konden niet worden gelezen.</numerusform>
        </translation>
    </message>
</context>
</TS>
