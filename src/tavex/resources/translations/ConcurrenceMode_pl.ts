<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>ConcurrenceMode</name>
    <message>
        <source>Default</source>
        <extracomment>Entry of a combo box labelled “Processors used”: the program&apos;s usual choice.</extracomment>
        <translation>Domyślny</translation>
    </message>
    <message>
        <source>Half</source>
        <extracomment>Entry of a combo box labelled “Processors used”: half of the machine&apos;s processors.</extracomment>
        <translation>Połowa</translation>
    </message>
    <message>
        <source>MoreThanHalf</source>
        <extracomment>Entry of a combo box labelled “Processors used”: more than half of the machine&apos;s processors, but not nearly all.</extracomment>
        <translation>Więcej niż połowa</translation>
    </message>
    <message>
        <source>AlmostFull</source>
        <extracomment>Entry of a combo box labelled “Processors used”: almost all of the machine&apos;s processors.</extracomment>
        <translation>Prawie wszystkie</translation>
    </message>
    <message>
        <source>Full</source>
        <extracomment>Entry of a combo box labelled “Processors used”: all of the machine&apos;s processors.</extracomment>
        <translation>Wszystkie</translation>
    </message>
</context>
</TS>
