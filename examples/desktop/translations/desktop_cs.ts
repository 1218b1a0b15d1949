<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="cs" sourcelanguage="en">
<context>
    <name>Window</name>
    <message>
        <source>Checksums</source>
        <extracomment>Title of the window.</extracomment>
        <translation>Kontrolní součty</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <extracomment>Menu. A letter after &amp; opens it together with Alt: no two menus may share theirs.</extracomment>
        <translation>&amp;Soubor</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <extracomment>Menu entry: choose files. No two entries of a menu may share the letter after &amp;.</extracomment>
        <translation>&amp;Otevřít…</translation>
    </message>
    <message>
        <source>&amp;Abort all</source>
        <extracomment>Menu entry and button: no file is to be read any further.</extracomment>
        <translation>&amp;Přerušit vše</translation>
    </message>
    <message>
        <source>&amp;Remove finished</source>
        <extracomment>Menu entry: takes the files that are done, aborted or cannot be read off the list.</extracomment>
        <translation>O&amp;debrat dokončené</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <extracomment>Menu entry: ends the program.</extracomment>
        <translation>&amp;Ukončit</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <extracomment>Menu: the languages of the program.</extracomment>
        <translation>&amp;Jazyk</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>Menu.</extracomment>
        <translation>&amp;Nápověda</translation>
    </message>
    <message>
        <source>&amp;System information</source>
        <extracomment>Menu entry: what the program knows of the computer.</extracomment>
        <translation>&amp;Informace o systému</translation>
    </message>
    <message>
        <source>&amp;Legal information</source>
        <extracomment>Menu entry: the licences of the components.</extracomment>
        <translation>&amp;Právní informace</translation>
    </message>
    <message>
        <source>Drop files here</source>
        <extracomment>Shown in the empty window: the user can drag files into it.</extracomment>
        <translation>Sem přetáhněte soubory</translation>
    </message>
    <message>
        <source>Name</source>
        <extracomment>Column heading: the name of a file.</extracomment>
        <translation>Název</translation>
    </message>
    <message>
        <source>Size</source>
        <extracomment>Column heading: the size of a file.</extracomment>
        <translation>Velikost</translation>
    </message>
    <message>
        <source>Modified</source>
        <extracomment>Column heading: when a file was changed last.</extracomment>
        <translation>Změněno</translation>
    </message>
    <message>
        <source>Progress</source>
        <extracomment>Column heading: how far the reading of a file is, and what came of it.</extracomment>
        <translation>Průběh</translation>
    </message>
    <message>
        <source>Files</source>
        <extracomment>Name of the list, for those who hear it.</extracomment>
        <translation>Soubory</translation>
    </message>
    <message>
        <source>Progress of all files</source>
        <extracomment>Name of a progress bar, for those who hear it.</extracomment>
        <translation>Průběh všech souborů</translation>
    </message>
    <message>
        <source>Abort</source>
        <extracomment>Tip of a button: this file is not to be read any further.</extracomment>
        <translation>Přerušit</translation>
    </message>
    <message>
        <source>Abort %1</source>
        <extracomment>Name of that button, for those who hear it: %1 is the name of the file.</extracomment>
        <translation>Přerušit %1</translation>
    </message>
    <message>
        <source>Done</source>
        <extracomment>State of a file: its checksum is known.</extracomment>
        <translation>Hotovo</translation>
    </message>
    <message>
        <source>Aborted</source>
        <extracomment>State of a file: the user did not want it to be read any further.</extracomment>
        <translation>Přerušeno</translation>
    </message>
    <message>
        <source>Cannot be read</source>
        <extracomment>State of a file.</extracomment>
        <translation>Nelze přečíst</translation>
    </message>
    <message>
        <source>Open files</source>
        <extracomment>Title of the dialog in which the user chooses files.</extracomment>
        <translation>Otevřít soubory</translation>
    </message>
</context>
<context>
    <name>Page</name>
    <message>
        <source>&amp;Close</source>
        <extracomment>Button of a dialog.</extracomment>
        <translation>&amp;Zavřít</translation>
    </message>
    <message>
        <source>System information</source>
        <extracomment>Title of a dialog: what the program knows of the computer.</extracomment>
        <translation>Informace o systému</translation>
    </message>
    <message>
        <source>Legal information</source>
        <extracomment>Title of a dialog: the licences of the components.</extracomment>
        <translation>Právní informace</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Shows the CRC-32 checksums of files in a window.</source>
        <extracomment>Help text: what the program does.</extracomment>
        <translation>Zobrazuje kontrolní součty CRC-32 souborů v okně.</translation>
    </message>
    <message>
        <source>The files to begin with.</source>
        <extracomment>Help text of the arguments: files that are in the list when the window opens.</extracomment>
        <translation>Soubory, kterými se má začít.</translation>
    </message>
</context>
</TS>
