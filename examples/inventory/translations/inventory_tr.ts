<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="tr" sourcelanguage="en">
<context>
    <name>inventory</name>
    <message>
        <source>Lists every file below a folder with its size and its CRC-32 checksum.</source>
        <extracomment>Help text: what the program does. Files in subfolders are included.</extracomment>
        <translation>Bir klasördeki ve alt klasörlerindeki tüm dosyaları boyutları ve CRC-32 sağlama toplamlarıyla listeler.</translation>
    </message>
    <message>
        <source>The folder to list.</source>
        <extracomment>Help text of the argument that names the folder.</extracomment>
        <translation>Listelenecek klasör.</translation>
    </message>
    <message>
        <source>Language of the output, such as de or fr.</source>
        <extracomment>Help text of an option. “de” and “fr” are language codes: keep them.</extracomment>
        <translation>Çıktının dili, örneğin “de” veya “fr”.</translation>
    </message>
    <message>
        <source>Write JSON instead of text.</source>
        <extracomment>Help text of an option.</extracomment>
        <translation>Metin yerine JSON yazar.</translation>
    </message>
    <message>
        <source>Size</source>
        <extracomment>Column heading: the size of a file.</extracomment>
        <translation>Boyut</translation>
    </message>
    <message>
        <source>CRC-32</source>
        <extracomment>Column heading: the CRC-32 checksum of a file.</extracomment>
        <translation>CRC-32</translation>
    </message>
    <message>
        <source>Path</source>
        <extracomment>Column heading: the path of a file below the folder.</extracomment>
        <translation>Yol</translation>
    </message>
    <message>
        <source>%1 is not a folder that can be read.</source>
        <extracomment>%1 is a path.</extracomment>
        <translation>%1 okunabilir bir klasör değil.</translation>
    </message>
    <message>
        <source>Cannot read %1: %2</source>
        <extracomment>%1 is the path of a file, %2 is the reason that the system gives.</extracomment>
        <translation>%1 okunamıyor: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s), %1</source>
        <extracomment>Last line of the list: %n is the number of files, %1 their total size as text, such as “4.3 MiB”.</extracomment>
        <translation>
            <numerusform>%n dosya, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be read.</source>
        <extracomment>%n is the number of files.</extracomment>
        <translation>
            <numerusform>%n dosya okunamadı.</numerusform>
        </translation>
    </message>
    <message>
        <source>Show the system, its volumes and the user&apos;s folders.</source>
        <extracomment>Help text of an option. Volumes are disks and other file systems.</extracomment>
        <translation>Sistemi, disk birimlerini ve kullanıcının klasörlerini gösterir.</translation>
    </message>
    <message>
        <source>Write the licences of the components to this file, as a web page.</source>
        <extracomment>Help text of an option. The components are the libraries that the program uses.</extracomment>
        <translation>Bileşenlerin lisanslarını bu dosyaya web sayfası olarak yazar.</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <extracomment>%1 is the path of a file, %2 is the reason that the system gives.</extracomment>
        <translation>%1 yazılamıyor: %2</translation>
    </message>
    <message>
        <source>Operating system</source>
        <extracomment>Label of a table row: name and version of the operating system.</extracomment>
        <translation>İşletim sistemi</translation>
    </message>
    <message>
        <source>Kernel</source>
        <extracomment>Label of a table row: name and version of the kernel of the operating system.</extracomment>
        <translation>Sistem çekirdeği</translation>
    </message>
    <message>
        <source>Processor</source>
        <extracomment>Label of a table row: the model of the processor.</extracomment>
        <translation>İşlemci</translation>
    </message>
    <message>
        <source>Processor type</source>
        <extracomment>Label of a table row: the architecture of the processor, such as “x86_64”.</extracomment>
        <translation>İşlemci türü</translation>
    </message>
    <message>
        <source>Cores</source>
        <extracomment>Label of a table row: how many cores the processor has.</extracomment>
        <translation>İşlemci çekirdekleri</translation>
    </message>
    <message>
        <source>Usable processors</source>
        <extracomment>Label of a table row: how many logical processors this process may use.</extracomment>
        <translation>Kullanılabilir işlemciler</translation>
    </message>
    <message>
        <source>Processor features</source>
        <extracomment>Label of a table row: the instruction set extensions of the processor.</extracomment>
        <translation>İşlemci özellikleri</translation>
    </message>
    <message>
        <source>Memory</source>
        <extracomment>Label of a table row: the main memory of the computer.</extracomment>
        <translation>Bellek</translation>
    </message>
    <message>
        <source>Usable memory</source>
        <extracomment>Label of a table row: how much memory this process may take up, for instance in a container.</extracomment>
        <translation>Kullanılabilir bellek</translation>
    </message>
    <message>
        <source>User</source>
        <extracomment>Label of a table row: the name of the user.</extracomment>
        <translation>Kullanıcı</translation>
    </message>
    <message>
        <source>Qt version</source>
        <extracomment>Label of a table row: the version of Qt. “Qt” is a name: keep it.</extracomment>
        <translation>Qt sürümü</translation>
    </message>
    <message>
        <source>Volumes</source>
        <extracomment>Heading of a list: disks and other file systems.</extracomment>
        <translation>Disk birimleri</translation>
    </message>
    <message>
        <source>Folders</source>
        <extracomment>Heading of a list: the special folders of the user, such as those for documents and pictures.</extracomment>
        <translation>Klasörler</translation>
    </message>
    <message>
        <source>%1, %2 available</source>
        <extracomment>Memory: %1 is its total size as text, such as “23.5 GiB”, %2 the part that is available.</extracomment>
        <translation>%1, %2 kullanılabilir</translation>
    </message>
    <message>
        <source>%1, %2 free</source>
        <extracomment>Volume: %1 is its size as text, such as “23.5 GiB”, %2 the part that is free.</extracomment>
        <translation>%1, %2 boş</translation>
    </message>
    <message>
        <source>Read every file, even if its checksum is known from an earlier run.</source>
        <extracomment>Help text of an option.</extracomment>
        <translation>Sağlama toplamı önceki bir çalıştırmadan bilinse bile her dosyayı okur.</translation>
    </message>
    <message>
        <source>Cached</source>
        <extracomment>Column heading: whether the checksum of a file was known from an earlier run. Keep it short.</extracomment>
        <translation>Önbellekte</translation>
    </message>
    <message>
        <source>yes</source>
        <extracomment>Under the heading “Cached”: the checksum was known.</extracomment>
        <translation>evet</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) had to be read; the cache knew the others.</source>
        <extracomment>%n is the number of files. The cache keeps checksums from earlier runs.</extracomment>
        <translation>
            <numerusform>%n dosyanın okunması gerekti; diğerleri önbellekteydi.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Stopped: %n file(s) were left out.</source>
        <extracomment>The user stopped the program. %n is the number of files that are not in the list.</extracomment>
        <translation>
            <numerusform>Durduruldu: %n dosya atlandı.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1/s, %2 left</source>
        <extracomment>Beside a progress bar: %1 is a size such as “4.3 MiB”, read in each second, %2 the time that is left, such as 0:42.</extracomment>
        <translation>%1/sn, kalan %2</translation>
    </message>
</context>
</TS>
