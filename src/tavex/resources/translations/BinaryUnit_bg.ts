<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="bg" sourcelanguage="en">
<context>
    <name>BinaryUnit</name>
    <message>
        <source>Byte</source>
        <extracomment>Unit symbol, one byte. Written behind a number, as in “512 B”. A word only where the language has no symbol.</extracomment>
        <translation>Б</translation>
    </message>
    <message>
        <source>KiB</source>
        <extracomment>Unit symbol, 1024 bytes. Written behind a number, as in “4.3 KiB”.</extracomment>
        <translation>КиБ</translation>
    </message>
    <message>
        <source>MiB</source>
        <extracomment>Unit symbol, 1024² bytes. Written behind a number, as in “4.3 MiB”.</extracomment>
        <translation>МиБ</translation>
    </message>
    <message>
        <source>GiB</source>
        <extracomment>Unit symbol, 1024³ bytes. Written behind a number, as in “4.3 GiB”.</extracomment>
        <translation>ГиБ</translation>
    </message>
    <message>
        <source>TiB</source>
        <extracomment>Unit symbol, 1024⁴ bytes. Written behind a number, as in “4.3 TiB”.</extracomment>
        <translation>ТиБ</translation>
    </message>
    <message>
        <source>PiB</source>
        <extracomment>Unit symbol, 1024⁵ bytes. Written behind a number, as in “4.3 PiB”.</extracomment>
        <translation>ПиБ</translation>
    </message>
    <message>
        <source>EiB</source>
        <extracomment>Unit symbol, 1024⁶ bytes. Written behind a number, as in “4.3 EiB”.</extracomment>
        <translation>ЕиБ</translation>
    </message>
    <message>
        <source>ZiB</source>
        <extracomment>Unit symbol, 1024⁷ bytes. Written behind a number, as in “4.3 ZiB”.</extracomment>
        <translation>ЗиБ</translation>
    </message>
    <message>
        <source>YiB</source>
        <extracomment>Unit symbol, 1024⁸ bytes. Written behind a number, as in “4.3 YiB”.</extracomment>
        <translation>ЙиБ</translation>
    </message>
</context>
</TS>
