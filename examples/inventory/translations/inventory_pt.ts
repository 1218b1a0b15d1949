<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt" sourcelanguage="en">
<context>
    <name>inventory</name>
    <message>
        <source>Lists every file below a folder with its size and its CRC-32 checksum.</source>
        <extracomment>Help text: what the program does. Files in subfolders are included.</extracomment>
        <translation>Lista todos os ficheiros de uma pasta e das suas subpastas com o tamanho e a soma de verificação CRC-32.</translation>
    </message>
    <message>
        <source>The folder to list.</source>
        <extracomment>Help text of the argument that names the folder.</extracomment>
        <translation>A pasta a listar.</translation>
    </message>
    <message>
        <source>Language of the output, such as de or fr.</source>
        <extracomment>Help text of an option. “de” and “fr” are language codes: keep them.</extracomment>
        <translation>Idioma da saída, por exemplo &quot;de&quot; ou &quot;fr&quot;.</translation>
    </message>
    <message>
        <source>Write JSON instead of text.</source>
        <extracomment>Help text of an option.</extracomment>
        <translation>Escreve JSON em vez de texto.</translation>
    </message>
    <message>
        <source>Size</source>
        <extracomment>Column heading: the size of a file.</extracomment>
        <translation>Tamanho</translation>
    </message>
    <message>
        <source>CRC-32</source>
        <extracomment>Column heading: the CRC-32 checksum of a file.</extracomment>
        <translation>CRC-32</translation>
    </message>
    <message>
        <source>Path</source>
        <extracomment>Column heading: the path of a file below the folder.</extracomment>
        <translation>Caminho</translation>
    </message>
    <message>
        <source>%1 is not a folder that can be read.</source>
        <extracomment>%1 is a path.</extracomment>
        <translation>%1 não é uma pasta que possa ser lida.</translation>
    </message>
    <message>
        <source>Cannot read %1: %2</source>
        <extracomment>%1 is the path of a file, %2 is the reason that the system gives.</extracomment>
        <translation>Não é possível ler %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s), %1</source>
        <extracomment>Last line of the list: %n is the number of files, %1 their total size as text, such as “4.3 MiB”.</extracomment>
        <translation>
            <numerusform>%n ficheiro, %1</numerusform>
            <numerusform>%n ficheiros, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be read.</source>
        <extracomment>%n is the number of files.</extracomment>
        <translation>
            <numerusform>Não foi possível ler %n ficheiro.</numerusform>
            <numerusform>Não foi possível ler %n ficheiros.</numerusform>
        </translation>
    </message>
</context>
</TS>
