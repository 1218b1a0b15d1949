<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="tr" sourcelanguage="en">
<context>
    <name>Window</name>
    <message>
        <source>Checksums</source>
        <extracomment>Title of the window.</extracomment>
        <translation>Sağlama toplamları</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <extracomment>Menu. A letter after &amp; opens it together with Alt: no two menus may share theirs.</extracomment>
        <translation>&amp;Dosya</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <extracomment>Menu entry: choose files. No two entries of a menu may share the letter after &amp;.</extracomment>
        <translation>&amp;Aç…</translation>
    </message>
    <message>
        <source>&amp;Abort all</source>
        <extracomment>Menu entry and button: no file is to be read any further.</extracomment>
        <translation>Tümünü &amp;durdur</translation>
    </message>
    <message>
        <source>&amp;Remove finished</source>
        <extracomment>Menu entry: takes the files that are done, aborted or cannot be read off the list.</extracomment>
        <translation>&amp;Bitenleri kaldır</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <extracomment>Menu entry: ends the program.</extracomment>
        <translation>Çı&amp;kış</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <extracomment>Menu: the languages of the program.</extracomment>
        <translation>Di&amp;l</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>Menu.</extracomment>
        <translation>&amp;Yardım</translation>
    </message>
    <message>
        <source>&amp;System information</source>
        <extracomment>Menu entry: what the program knows of the computer.</extracomment>
        <translation>&amp;Sistem bilgileri</translation>
    </message>
    <message>
        <source>&amp;Legal information</source>
        <extracomment>Menu entry: the licences of the components.</extracomment>
        <translation>&amp;Yasal bilgiler</translation>
    </message>
    <message>
        <source>Drop files here</source>
        <extracomment>Shown in the empty window: the user can drag files into it.</extracomment>
        <translation>Dosyaları buraya bırakın</translation>
    </message>
    <message>
        <source>Name</source>
        <extracomment>Column heading: the name of a file.</extracomment>
        <translation>Ad</translation>
    </message>
    <message>
        <source>Size</source>
        <extracomment>Column heading: the size of a file.</extracomment>
        <translation>Boyut</translation>
    </message>
    <message>
        <source>Modified</source>
        <extracomment>Column heading: when a file was changed last.</extracomment>
        <translation>Değiştirilme</translation>
    </message>
    <message>
        <source>Progress</source>
        <extracomment>Column heading: how far the reading of a file is, and what came of it.</extracomment>
        <translation>İlerleme</translation>
    </message>
    <message>
        <source>Files</source>
        <extracomment>Name of the list, for those who hear it.</extracomment>
        <translation>Dosyalar</translation>
    </message>
    <message>
        <source>Progress of all files</source>
        <extracomment>Name of a progress bar, for those who hear it.</extracomment>
        <translation>Tüm dosyaların ilerlemesi</translation>
    </message>
    <message>
        <source>Abort</source>
        <extracomment>Tip of a button: this file is not to be read any further.</extracomment>
        <translation>Durdur</translation>
    </message>
    <message>
        <source>Abort %1</source>
        <extracomment>Name of that button, for those who hear it: %1 is the name of the file.</extracomment>
        <translation>%1 dosyasını durdur</translation>
    </message>
    <message>
        <source>Done</source>
        <extracomment>State of a file: its checksum is known.</extracomment>
        <translation>Tamamlandı</translation>
    </message>
    <message>
        <source>Aborted</source>
        <extracomment>State of a file: the user did not want it to be read any further.</extracomment>
        <translation>Durduruldu</translation>
    </message>
    <message>
        <source>Cannot be read</source>
        <extracomment>State of a file.</extracomment>
        <translation>Okunamıyor</translation>
    </message>
    <message>
        <source>Open files</source>
        <extracomment>Title of the dialog in which the user chooses files.</extracomment>
        <translation>Dosyaları aç</translation>
    </message>
</context>
<context>
    <name>Page</name>
    <message>
        <source>&amp;Close</source>
        <extracomment>Button of a dialog.</extracomment>
        <translation>&amp;Kapat</translation>
    </message>
    <message>
        <source>System information</source>
        <extracomment>Title of a dialog: what the program knows of the computer.</extracomment>
        <translation>Sistem bilgileri</translation>
    </message>
    <message>
        <source>Legal information</source>
        <extracomment>Title of a dialog: the licences of the components.</extracomment>
        <translation>Yasal bilgiler</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Shows the CRC-32 checksums of files in a window.</source>
        <extracomment>Help text: what the program does.</extracomment>
        <translation>Dosyaların CRC-32 sağlama toplamlarını bir pencerede gösterir.</translation>
    </message>
    <message>
        <source>The files to begin with.</source>
        <extracomment>Help text of the arguments: files that are in the list when the window opens.</extracomment>
        <translation>Başlangıçta açılacak dosyalar.</translation>
    </message>
</context>
</TS>
