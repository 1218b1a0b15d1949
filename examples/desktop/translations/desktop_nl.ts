<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nl" sourcelanguage="en">
<context>
    <name>Window</name>
    <message>
        <source>Checksums</source>
        <extracomment>Title of the window.</extracomment>
        <translation>Controlesommen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <extracomment>Menu. A letter after &amp; opens it together with Alt: no two menus may share theirs.</extracomment>
        <translation>&amp;Bestand</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <extracomment>Menu entry: choose files. No two entries of a menu may share the letter after &amp;.</extracomment>
        <translation>&amp;Openen…</translation>
    </message>
    <message>
        <source>&amp;Abort all</source>
        <extracomment>Menu entry and button: no file is to be read any further.</extracomment>
        <translation>Alles &amp;stoppen</translation>
    </message>
    <message>
        <source>&amp;Remove finished</source>
        <extracomment>Menu entry: takes the files that are done, aborted or cannot be read off the list.</extracomment>
        <translation>&amp;Voltooide verwijderen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <extracomment>Menu entry: ends the program.</extracomment>
        <translation>A&amp;fsluiten</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <extracomment>Menu: the languages of the program.</extracomment>
        <translation>&amp;Taal</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>Menu.</extracomment>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>&amp;System information</source>
        <extracomment>Menu entry: what the program knows of the computer.</extracomment>
        <translation>&amp;Systeeminformatie</translation>
    </message>
    <message>
        <source>&amp;Legal information</source>
        <extracomment>Menu entry: the licences of the components.</extracomment>
        <translation>&amp;Juridische informatie</translation>
    </message>
    <message>
        <source>Drop files here</source>
        <extracomment>Shown in the empty window: the user can drag files into it.</extracomment>
        <translation>Sleep bestanden hierheen</translation>
    </message>
    <message>
        <source>Name</source>
        <extracomment>Column heading: the name of a file.</extracomment>
        <translation>Naam</translation>
    </message>
    <message>
        <source>Size</source>
        <extracomment>Column heading: the size of a file.</extracomment>
        <translation>Grootte</translation>
    </message>
    <message>
        <source>Modified</source>
        <extracomment>Column heading: when a file was changed last.</extracomment>
        <translation>Gewijzigd</translation>
    </message>
    <message>
        <source>Progress</source>
        <extracomment>Column heading: how far the reading of a file is, and what came of it.</extracomment>
        <translation>Voortgang</translation>
    </message>
    <message>
        <source>Files</source>
        <extracomment>Name of the list, for those who hear it.</extracomment>
        <translation>Bestanden</translation>
    </message>
    <message>
        <source>Progress of all files</source>
        <extracomment>Name of a progress bar, for those who hear it.</extracomment>
        <translation>Voortgang van alle bestanden</translation>
    </message>
    <message>
        <source>Abort</source>
        <extracomment>Tip of a button: this file is not to be read any further.</extracomment>
        <translation>Stoppen</translation>
    </message>
    <message>
        <source>Abort %1</source>
        <extracomment>Name of that button, for those who hear it: %1 is the name of the file.</extracomment>
        <translation>%1 stoppen</translation>
    </message>
    <message>
        <source>Done</source>
        <extracomment>State of a file: its checksum is known.</extracomment>
        <translation>Voltooid</translation>
    </message>
    <message>
        <source>Aborted</source>
        <extracomment>State of a file: the user did not want it to be read any further.</extracomment>
        <translation>Gestopt</translation>
    </message>
    <message>
        <source>Cannot be read</source>
        <extracomment>State of a file.</extracomment>
        <translation>Niet leesbaar</translation>
    </message>
    <message>
        <source>Open files</source>
        <extracomment>Title of the dialog in which the user chooses files.</extracomment>
        <translation>Bestanden openen</translation>
    </message>
</context>
<context>
    <name>Page</name>
    <message>
        <source>&amp;Close</source>
        <extracomment>Button of a dialog.</extracomment>
        <translation>&amp;Sluiten</translation>
    </message>
    <message>
        <source>System information</source>
        <extracomment>Title of a dialog: what the program knows of the computer.</extracomment>
        <translation>Systeeminformatie</translation>
    </message>
    <message>
        <source>Legal information</source>
        <extracomment>Title of a dialog: the licences of the components.</extracomment>
        <translation>Juridische informatie</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Shows the CRC-32 checksums of files in a window.</source>
        <extracomment>Help text: what the program does.</extracomment>
        <translation>Toont de CRC-32-controlesommen van bestanden in een venster.</translation>
    </message>
    <message>
        <source>The files to begin with.</source>
        <extracomment>Help text of the arguments: files that are in the list when the window opens.</extracomment>
        <translation>De bestanden om mee te beginnen.</translation>
    </message>
</context>
</TS>
