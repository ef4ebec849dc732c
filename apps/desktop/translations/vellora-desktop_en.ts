<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en_US">
<context>
    <name>vellora::desktop::ExportDialog</name>
    <message numerus="yes">
        <source>Export %Ln photo(s)</source>
        <translation>
            <numerusform>Export %Ln photo</numerusform>
            <numerusform>Export %Ln photos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>vellora::desktop::ExportProgress</name>
    <message numerus="yes">
        <source>Cancelled after %Ln picture(s).</source>
        <translation>
            <numerusform>Cancelled after %Ln picture.</numerusform>
            <numerusform>Cancelled after %Ln pictures.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln picture(s) exported.</source>
        <translation>
            <numerusform>%Ln picture exported.</numerusform>
            <numerusform>%Ln pictures exported.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photo(s) could not be exported:</source>
        <translation>
            <numerusform>%Ln photo could not be exported:</numerusform>
            <numerusform>%Ln photos could not be exported:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photo(s) could be read in part only, the file is damaged or ends early:</source>
        <translation>
            <numerusform>%Ln photo could be read in part only, the file is damaged or ends early:</numerusform>
            <numerusform>%Ln photos could be read in part only, the files are damaged or end early:</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>vellora::desktop::MainWindow</name>
    <message numerus="yes">
        <source>%Ln photo(s)</source>
        <translation>
            <numerusform>%Ln photo</numerusform>
            <numerusform>%Ln photos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) are no readable photos.</source>
        <translation>
            <numerusform>%Ln file is no readable photo.</numerusform>
            <numerusform>%Ln files are no readable photos.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photo(s) found again</source>
        <translation>
            <numerusform>%Ln photo found again</numerusform>
            <numerusform>%Ln photos found again</numerusform>
        </translation>
    </message>
</context>
</TS>
