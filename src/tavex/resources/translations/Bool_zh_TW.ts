<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW" sourcelanguage="en">
<context>
    <name>Bool</name>
    <message>
        <source>True</source>
        <extracomment>Value of a yes/no setting as shown to the user: the opposite of “False”.</extracomment>
        <translation>真</translation>
    </message>
    <message>
        <source>False</source>
        <extracomment>Value of a yes/no setting as shown to the user: the opposite of “True”.</extracomment>
        <translation>假</translation>
    </message>
</context>
</TS>
