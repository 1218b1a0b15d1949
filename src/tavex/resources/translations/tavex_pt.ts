<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>Copyright</source>
        <extracomment>Opens a copyright line, such as “Copyright 2020-2026 Some Company.”; a year follows.</extracomment>
        <translation>Copyright</translation>
    </message>
</context>
<context>
    <name>S3rdParty</name>
    <message>
        <source>en</source>
        <extracomment>Never shown: the tag (BCP 47) of the language that these texts are in.</extracomment>
        <translation>pt</translation>
    </message>
    <message>
        <source>Legal information</source>
        <extracomment>Title and heading of the page about the components that a program is built with.</extracomment>
        <translation>Informações legais</translation>
    </message>
    <message>
        <source>This program uses the components listed below, each under its own licence.</source>
        <extracomment>Opening sentence of the page; a table of the components follows.</extracomment>
        <translation>Este programa utiliza os componentes listados abaixo, cada um com a sua própria licença.</translation>
    </message>
    <message>
        <source>Component</source>
        <extracomment>Column heading: the name of a library or another part that the program is built with.</extracomment>
        <translation>Componente</translation>
    </message>
    <message>
        <source>Version</source>
        <extracomment>Column heading: the version number of a component.</extracomment>
        <translation>Versão</translation>
    </message>
    <message>
        <source>Website</source>
        <extracomment>Column heading: the address of a component&apos;s website.</extracomment>
        <translation>Site</translation>
    </message>
    <message>
        <source>Licence</source>
        <extracomment>Column heading: the name of the licence of a component.</extracomment>
        <translation>Licença</translation>
    </message>
    <message>
        <source>The text of this licence is not available.</source>
        <extracomment>Shown in the place of a licence text that the program does not contain.</extracomment>
        <translation>O texto desta licença não está disponível.</translation>
    </message>
</context>
</TS>
