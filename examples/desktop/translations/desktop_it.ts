<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>Window</name>
    <message>
        <source>Checksums</source>
        <extracomment>Title of the window.</extracomment>
        <translation>Somme di controllo</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <extracomment>Menu. A letter after &amp; opens it together with Alt: no two menus may share theirs.</extracomment>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <extracomment>Menu entry: choose files. No two entries of a menu may share the letter after &amp;.</extracomment>
        <translation>&amp;Apri…</translation>
    </message>
    <message>
        <source>&amp;Abort all</source>
        <extracomment>Menu entry and button: no file is to be read any further.</extracomment>
        <translation>&amp;Interrompi tutto</translation>
    </message>
    <message>
        <source>&amp;Remove finished</source>
        <extracomment>Menu entry: takes the files that are done, aborted or cannot be read off the list.</extracomment>
        <translation>&amp;Rimuovi completati</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <extracomment>Menu entry: ends the program.</extracomment>
        <translation>&amp;Esci</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <extracomment>Menu: the languages of the program.</extracomment>
        <translation>&amp;Lingua</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>Menu.</extracomment>
        <translation>&amp;Aiuto</translation>
    </message>
    <message>
        <source>&amp;System information</source>
        <extracomment>Menu entry: what the program knows of the computer.</extracomment>
        <translation>Informazioni sul &amp;sistema</translation>
    </message>
    <message>
        <source>&amp;Legal information</source>
        <extracomment>Menu entry: the licences of the components.</extracomment>
        <translation>Informazioni &amp;legali</translation>
    </message>
    <message>
        <source>Drop files here</source>
        <extracomment>Shown in the empty window: the user can drag files into it.</extracomment>
        <translation>Trascina qui i file</translation>
    </message>
    <message>
        <source>Name</source>
        <extracomment>Column heading: the name of a file.</extracomment>
        <translation>Nome</translation>
    </message>
    <message>
        <source>Size</source>
        <extracomment>Column heading: the size of a file.</extracomment>
        <translation>Dimensione</translation>
    </message>
    <message>
        <source>Modified</source>
        <extracomment>Column heading: when a file was changed last.</extracomment>
        <translation>Modificato</translation>
    </message>
    <message>
        <source>Progress</source>
        <extracomment>Column heading: how far the reading of a file is, and what came of it.</extracomment>
        <translation>Avanzamento</translation>
    </message>
    <message>
        <source>Files</source>
        <extracomment>Name of the list, for those who hear it.</extracomment>
        <translation>File</translation>
    </message>
    <message>
        <source>Progress of all files</source>
        <extracomment>Name of a progress bar, for those who hear it.</extracomment>
        <translation>Avanzamento di tutti i file</translation>
    </message>
    <message>
        <source>Abort</source>
        <extracomment>Tip of a button: this file is not to be read any further.</extracomment>
        <translation>Interrompi</translation>
    </message>
    <message>
        <source>Abort %1</source>
        <extracomment>Name of that button, for those who hear it: %1 is the name of the file.</extracomment>
        <translation>Interrompi %1</translation>
    </message>
    <message>
        <source>Done</source>
        <extracomment>State of a file: its checksum is known.</extracomment>
        <translation>Completato</translation>
    </message>
    <message>
        <source>Aborted</source>
        <extracomment>State of a file: the user did not want it to be read any further.</extracomment>
        <translation>Interrotto</translation>
    </message>
    <message>
        <source>Cannot be read</source>
        <extracomment>State of a file.</extracomment>
        <translation>Non leggibile</translation>
    </message>
    <message>
        <source>Open files</source>
        <extracomment>Title of the dialog in which the user chooses files.</extracomment>
        <translation>Apri file</translation>
    </message>
</context>
<context>
    <name>Page</name>
    <message>
        <source>&amp;Close</source>
        <extracomment>Button of a dialog.</extracomment>
        <translation>&amp;Chiudi</translation>
    </message>
    <message>
        <source>System information</source>
        <extracomment>Title of a dialog: what the program knows of the computer.</extracomment>
        <translation>Informazioni sul sistema</translation>
    </message>
    <message>
        <source>Legal information</source>
        <extracomment>Title of a dialog: the licences of the components.</extracomment>
        <translation>Informazioni legali</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Shows the CRC-32 checksums of files in a window.</source>
        <extracomment>Help text: what the program does.</extracomment>
        <translation>Mostra in una finestra le somme di controllo CRC-32 dei file.</translation>
    </message>
    <message>
        <source>The files to begin with.</source>
        <extracomment>Help text of the arguments: files that are in the list when the window opens.</extracomment>
        <translation>I file con cui iniziare.</translation>
    </message>
</context>
</TS>
