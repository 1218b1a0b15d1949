<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="tr" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>Copyright</source>
        <extracomment>Opens a copyright line, such as “Copyright 2020-2026 Some Company.”; a year follows.</extracomment>
        <translation>Telif hakkı</translation>
    </message>
</context>
<context>
    <name>S3rdParty</name>
    <message>
        <source>en</source>
        <extracomment>Never shown: the tag (BCP 47) of the language that these texts are in.</extracomment>
        <translation>tr</translation>
    </message>
    <message>
        <source>Legal information</source>
        <extracomment>Title and heading of the page about the components that a program is built with.</extracomment>
        <translation>Yasal bilgiler</translation>
    </message>
    <message>
        <source>This program uses the components listed below, each under its own licence.</source>
        <extracomment>Opening sentence of the page; a table of the components follows.</extracomment>
        <translation>Bu program, her biri kendi lisansına tabi olan aşağıdaki bileşenleri kullanır.</translation>
    </message>
    <message>
        <source>Component</source>
        <extracomment>Column heading: the name of a library or another part that the program is built with.</extracomment>
        <translation>Bileşen</translation>
    </message>
    <message>
        <source>Version</source>
        <extracomment>Column heading: the version number of a component.</extracomment>
        <translation>Sürüm</translation>
    </message>
    <message>
        <source>Website</source>
        <extracomment>Column heading: the address of a component&apos;s website.</extracomment>
        <translation>Web sitesi</translation>
    </message>
    <message>
        <source>Licence</source>
        <extracomment>Column heading: the name of the licence of a component.</extracomment>
        <translation>Lisans</translation>
    </message>
    <message>
        <source>The text of this licence is not available.</source>
        <extracomment>Shown in the place of a licence text that the program does not contain.</extracomment>
        <translation>Bu lisansın metni mevcut değil.</translation>
    </message>
</context>
</TS>
