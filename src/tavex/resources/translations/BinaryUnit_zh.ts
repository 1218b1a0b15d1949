<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh" sourcelanguage="en">
<context>
    <name>BinaryUnit</name>
    <message>
        <source>Byte</source>
        <extracomment>Unit symbol, one byte. Written behind a number, as in “512 B”. A word only where the language has no symbol.</extracomment>
        <translation>字节</translation>
    </message>
    <message>
        <source>KiB</source>
        <extracomment>Unit symbol, 1024 bytes. Written behind a number, as in “4.3 KiB”.</extracomment>
        <translation>KiB</translation>
    </message>
    <message>
        <source>MiB</source>
        <extracomment>Unit symbol, 1024² bytes. Written behind a number, as in “4.3 MiB”.</extracomment>
        <translation>MiB</translation>
    </message>
    <message>
        <source>GiB</source>
        <extracomment>Unit symbol, 1024³ bytes. Written behind a number, as in “4.3 GiB”.</extracomment>
        <translation>GiB</translation>
    </message>
    <message>
        <source>TiB</source>
        <extracomment>Unit symbol, 1024⁴ bytes. Written behind a number, as in “4.3 TiB”.</extracomment>
        <translation>TiB</translation>
    </message>
    <message>
        <source>PiB</source>
        <extracomment>Unit symbol, 1024⁵ bytes. Written behind a number, as in “4.3 PiB”.</extracomment>
        <translation>PiB</translation>
    </message>
    <message>
        <source>EiB</source>
        <extracomment>Unit symbol, 1024⁶ bytes. Written behind a number, as in “4.3 EiB”.</extracomment>
        <translation>EiB</translation>
    </message>
    <message>
        <source>ZiB</source>
        <extracomment>Unit symbol, 1024⁷ bytes. Written behind a number, as in “4.3 ZiB”.</extracomment>
        <translation>ZiB</translation>
    </message>
    <message>
        <source>YiB</source>
        <extracomment>Unit symbol, 1024⁸ bytes. Written behind a number, as in “4.3 YiB”.</extracomment>
        <translation>YiB</translation>
    </message>
</context>
</TS>
