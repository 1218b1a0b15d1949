<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>Copyright</source>
        <extracomment>Opens a copyright line, such as “Copyright 2020-2026 Some Company.”; a year follows.</extracomment>
        <translation>版權所有</translation>
    </message>
</context>
<context>
    <name>S3rdParty</name>
    <message>
        <source>en</source>
        <extracomment>Never shown: the tag (BCP 47) of the language that these texts are in.</extracomment>
        <translation>zh-Hant</translation>
    </message>
    <message>
        <source>Legal information</source>
        <extracomment>Title and heading of the page about the components that a program is built with.</extracomment>
        <translation>法律資訊</translation>
    </message>
    <message>
        <source>This program uses the components listed below, each under its own licence.</source>
        <extracomment>Opening sentence of the page; a table of the components follows.</extracomment>
        <translation>本程式使用下列元件，各元件均適用其各自的授權條款。</translation>
    </message>
    <message>
        <source>Component</source>
        <extracomment>Column heading: the name of a library or another part that the program is built with.</extracomment>
        <translation>元件</translation>
    </message>
    <message>
        <source>Version</source>
        <extracomment>Column heading: the version number of a component.</extracomment>
        <translation>版本</translation>
    </message>
    <message>
        <source>Website</source>
        <extracomment>Column heading: the address of a component&apos;s website.</extracomment>
        <translation>網站</translation>
    </message>
    <message>
        <source>Licence</source>
        <extracomment>Column heading: the name of the licence of a component.</extracomment>
        <translation>授權條款</translation>
    </message>
    <message>
        <source>The text of this licence is not available.</source>
        <extracomment>Shown in the place of a licence text that the program does not contain.</extracomment>
        <translation>無法提供此授權條款的內容。</translation>
    </message>
</context>
</TS>
