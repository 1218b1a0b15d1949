<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru" sourcelanguage="en">
<context>
    <name>inventory</name>
    <message>
        <source>Lists every file below a folder with its size and its CRC-32 checksum.</source>
        <extracomment>Help text: what the program does. Files in subfolders are included.</extracomment>
        <translation>Выводит список всех файлов в папке и её подпапках с размером и контрольной суммой CRC-32.</translation>
    </message>
    <message>
        <source>The folder to list.</source>
        <extracomment>Help text of the argument that names the folder.</extracomment>
        <translation>Папка, содержимое которой нужно вывести.</translation>
    </message>
    <message>
        <source>Language of the output, such as de or fr.</source>
        <extracomment>Help text of an option. “de” and “fr” are language codes: keep them.</extracomment>
        <translation>Язык вывода, например de или fr.</translation>
    </message>
    <message>
        <source>Write JSON instead of text.</source>
        <extracomment>Help text of an option.</extracomment>
        <translation>Выводит JSON вместо текста.</translation>
    </message>
    <message>
        <source>Size</source>
        <extracomment>Column heading: the size of a file.</extracomment>
        <translation>Размер</translation>
    </message>
    <message>
        <source>CRC-32</source>
        <extracomment>Column heading: the CRC-32 checksum of a file.</extracomment>
        <translation>CRC-32</translation>
    </message>
    <message>
        <source>Path</source>
        <extracomment>Column heading: the path of a file below the folder.</extracomment>
        <translation>Путь</translation>
    </message>
    <message>
        <source>%1 is not a folder that can be read.</source>
        <extracomment>%1 is a path.</extracomment>
        <translation>%1 не является папкой, доступной для чтения.</translation>
    </message>
    <message>
        <source>Cannot read %1: %2</source>
        <extracomment>%1 is the path of a file, %2 is the reason that the system gives.</extracomment>
        <translation>Не удалось прочитать %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s), %1</source>
        <extracomment>Last line of the list: %n is the number of files, %1 their total size as text, such as “4.3 MiB”.</extracomment>
        <translation>
            <numerusform>%n файл, %1</numerusform>
            <numerusform>%n файла, %1</numerusform>
            <numerusform>%n файлов, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be read.</source>
        <extracomment>%n is the number of files.</extracomment>
        <translation>
            <numerusform>Не удалось прочитать %n файл.</numerusform>
            <numerusform>Не удалось прочитать %n файла.</numerusform>
            <numerusform>Не удалось прочитать %n файлов.</numerusform>
        </translation>
    </message>
    <message>
        <source>Show the system, its volumes and the user&apos;s folders.</source>
        <extracomment>Help text of an option. Volumes are disks and other file systems.</extracomment>
        <translation>Выводит сведения о системе, её томах и папках пользователя.</translation>
    </message>
    <message>
        <source>Write the licences of the components to this file, as a web page.</source>
        <extracomment>Help text of an option. The components are the libraries that the program uses.</extracomment>
        <translation>Записывает лицензии компонентов в этот файл в виде веб-страницы.</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <extracomment>%1 is the path of a file, %2 is the reason that the system gives.</extracomment>
        <translation>Не удалось записать %1: %2</translation>
    </message>
    <message>
        <source>Operating system</source>
        <extracomment>Label of a table row: name and version of the operating system.</extracomment>
        <translation>Операционная система</translation>
    </message>
    <message>
        <source>Kernel</source>
        <extracomment>Label of a table row: name and version of the kernel of the operating system.</extracomment>
        <translation>Ядро системы</translation>
    </message>
    <message>
        <source>Processor</source>
        <extracomment>Label of a table row: the model of the processor.</extracomment>
        <translation>Процессор</translation>
    </message>
    <message>
        <source>Processor type</source>
        <extracomment>Label of a table row: the architecture of the processor, such as “x86_64”.</extracomment>
        <translation>Тип процессора</translation>
    </message>
    <message>
        <source>Cores</source>
        <extracomment>Label of a table row: how many cores the processor has.</extracomment>
        <translation>Ядра процессора</translation>
    </message>
    <message>
        <source>Usable processors</source>
        <extracomment>Label of a table row: how many logical processors this process may use.</extracomment>
        <translation>Доступные процессоры</translation>
    </message>
    <message>
        <source>Processor features</source>
        <extracomment>Label of a table row: the instruction set extensions of the processor.</extracomment>
        <translation>Возможности процессора</translation>
    </message>
    <message>
        <source>Memory</source>
        <extracomment>Label of a table row: the main memory of the computer.</extracomment>
        <translation>Память</translation>
    </message>
    <message>
        <source>Usable memory</source>
        <extracomment>Label of a table row: how much memory this process may take up, for instance in a container.</extracomment>
        <translation>Доступная память</translation>
    </message>
    <message>
        <source>User</source>
        <extracomment>Label of a table row: the name of the user.</extracomment>
        <translation>Пользователь</translation>
    </message>
    <message>
        <source>Qt version</source>
        <extracomment>Label of a table row: the version of Qt. “Qt” is a name: keep it.</extracomment>
        <translation>Версия Qt</translation>
    </message>
    <message>
        <source>Volumes</source>
        <extracomment>Heading of a list: disks and other file systems.</extracomment>
        <translation>Тома</translation>
    </message>
    <message>
        <source>Folders</source>
        <extracomment>Heading of a list: the special folders of the user, such as those for documents and pictures.</extracomment>
        <translation>Папки</translation>
    </message>
    <message>
        <source>%1, %2 available</source>
        <extracomment>Memory: %1 is its total size as text, such as “23.5 GiB”, %2 the part that is available.</extracomment>
        <translation>%1, доступно %2</translation>
    </message>
    <message>
        <source>%1, %2 free</source>
        <extracomment>Volume: %1 is its size as text, such as “23.5 GiB”, %2 the part that is free.</extracomment>
        <translation>%1, свободно %2</translation>
    </message>
    <message>
        <source>Read every file, even if its checksum is known from an earlier run.</source>
        <extracomment>Help text of an option.</extracomment>
        <translation>Читать каждый файл, даже если его контрольная сумма известна с прошлого запуска.</translation>
    </message>
    <message>
        <source>Cached</source>
        <extracomment>Column heading: whether the checksum of a file was known from an earlier run. Keep it short.</extracomment>
        <translation>В кэше</translation>
    </message>
    <message>
        <source>yes</source>
        <extracomment>Under the heading “Cached”: the checksum was known.</extracomment>
        <translation>да</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) had to be read; the cache knew the others.</source>
        <extracomment>%n is the number of files. The cache keeps checksums from earlier runs.</extracomment>
        <translation>
            <numerusform>Пришлось прочитать %n файл; остальные были в кэше.</numerusform>
            <numerusform>Пришлось прочитать %n файла; остальные были в кэше.</numerusform>
            <numerusform>Пришлось прочитать %n файлов; остальные были в кэше.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Stopped: %n file(s) were left out.</source>
        <extracomment>The user stopped the program. %n is the number of files that are not in the list.</extracomment>
        <translation>
            <numerusform>Прервано: пропущен %n файл.</numerusform>
            <numerusform>Прервано: пропущено %n файла.</numerusform>
            <numerusform>Прервано: пропущено %n файлов.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1/s, %2 left</source>
        <extracomment>Beside a progress bar: %1 is a size such as “4.3 MiB”, read in each second, %2 the time that is left, such as 0:42.</extracomment>
        <translation>%1/с, осталось %2</translation>
    </message>
</context>
</TS>
