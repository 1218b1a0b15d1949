<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh" sourcelanguage="en">
<context>
    <name>OperatingSystemType</name>
    <message>
        <source>macOS</source>
        <extracomment>Product name of an operating system.</extracomment>
        <translation>macOS</translation>
    </message>
    <message>
        <source>iOS</source>
        <extracomment>Product name of an operating system.</extracomment>
        <translation>iOS</translation>
    </message>
    <message>
        <source>Windows</source>
        <extracomment>Product name of an operating system.</extracomment>
        <translation>Windows</translation>
    </message>
    <message>
        <source>Linux</source>
        <extracomment>Product name of an operating system.</extracomment>
        <translation>Linux</translation>
    </message>
    <message>
        <source>BSD_</source>
        <extracomment>Family of operating systems. The underscore belongs to the program, not to the name.</extracomment>
        <translation>BSD</translation>
    </message>
    <message>
        <source>Unix</source>
        <extracomment>Any operating system of the Unix family.</extracomment>
        <translation>Unix</translation>
    </message>
    <message>
        <source>Android</source>
        <extracomment>Product name of an operating system.</extracomment>
        <translation>Android</translation>
    </message>
    <message>
        <source>Symbian</source>
        <extracomment>Product name of an operating system.</extracomment>
        <translation>Symbian</translation>
    </message>
</context>
</TS>
