<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh" sourcelanguage="en">
<context>
    <name>Window</name>
    <message>
        <source>Checksums</source>
        <extracomment>Title of the window.</extracomment>
        <translation>校验和</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <extracomment>Menu. A letter after &amp; opens it together with Alt: no two menus may share theirs.</extracomment>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <extracomment>Menu entry: choose files. No two entries of a menu may share the letter after &amp;.</extracomment>
        <translation>打开(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Abort all</source>
        <extracomment>Menu entry and button: no file is to be read any further.</extracomment>
        <translation>全部停止(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Remove finished</source>
        <extracomment>Menu entry: takes the files that are done, aborted or cannot be read off the list.</extracomment>
        <translation>移除已结束的文件(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <extracomment>Menu entry: ends the program.</extracomment>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <extracomment>Menu: the languages of the program.</extracomment>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>Menu.</extracomment>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;System information</source>
        <extracomment>Menu entry: what the program knows of the computer.</extracomment>
        <translation>系统信息(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Legal information</source>
        <extracomment>Menu entry: the licences of the components.</extracomment>
        <translation>法律信息(&amp;L)</translation>
    </message>
    <message>
        <source>Drop files here</source>
        <extracomment>Shown in the empty window: the user can drag files into it.</extracomment>
        <translation>将文件拖放到此处</translation>
    </message>
    <message>
        <source>Name</source>
        <extracomment>Column heading: the name of a file.</extracomment>
        <translation>名称</translation>
    </message>
    <message>
        <source>Size</source>
        <extracomment>Column heading: the size of a file.</extracomment>
        <translation>大小</translation>
    </message>
    <message>
        <source>Modified</source>
        <extracomment>Column heading: when a file was changed last.</extracomment>
        <translation>修改时间</translation>
    </message>
    <message>
        <source>Progress</source>
        <extracomment>Column heading: how far the reading of a file is, and what came of it.</extracomment>
        <translation>进度</translation>
    </message>
    <message>
        <source>Files</source>
        <extracomment>Name of the list, for those who hear it.</extracomment>
        <translation>文件</translation>
    </message>
    <message>
        <source>Progress of all files</source>
        <extracomment>Name of a progress bar, for those who hear it.</extracomment>
        <translation>所有文件的进度</translation>
    </message>
    <message>
        <source>Abort</source>
        <extracomment>Tip of a button: this file is not to be read any further.</extracomment>
        <translation>停止</translation>
    </message>
    <message>
        <source>Abort %1</source>
        <extracomment>Name of that button, for those who hear it: %1 is the name of the file.</extracomment>
        <translation>停止 %1</translation>
    </message>
    <message>
        <source>Done</source>
        <extracomment>State of a file: its checksum is known.</extracomment>
        <translation>已完成</translation>
    </message>
    <message>
        <source>Aborted</source>
        <extracomment>State of a file: the user did not want it to be read any further.</extracomment>
        <translation>已停止</translation>
    </message>
    <message>
        <source>Cannot be read</source>
        <extracomment>State of a file.</extracomment>
        <translation>无法读取</translation>
    </message>
    <message>
        <source>Open files</source>
        <extracomment>Title of the dialog in which the user chooses files.</extracomment>
        <translation>打开文件</translation>
    </message>
</context>
<context>
    <name>Page</name>
    <message>
        <source>&amp;Close</source>
        <extracomment>Button of a dialog.</extracomment>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>System information</source>
        <extracomment>Title of a dialog: what the program knows of the computer.</extracomment>
        <translation>系统信息</translation>
    </message>
    <message>
        <source>Legal information</source>
        <extracomment>Title of a dialog: the licences of the components.</extracomment>
        <translation>法律信息</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Shows the CRC-32 checksums of files in a window.</source>
        <extracomment>Help text: what the program does.</extracomment>
        <translation>在窗口中显示文件的 CRC-32 校验和。</translation>
    </message>
    <message>
        <source>The files to begin with.</source>
        <extracomment>Help text of the arguments: files that are in the list when the window opens.</extracomment>
        <translation>启动时打开的文件。</translation>
    </message>
</context>
</TS>
