<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>AlbumTile</name>
    <message numerus="yes">
        <source>%1, %n pictures</source>
        <translation>
            <numerusform>%1, %n picture</numerusform>
            <numerusform>%1, %n pictures</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>IntervalLabel</name>
    <message numerus="yes">
        <source>%n hours</source>
        <comment>an interval of two or more</comment>
        <translation>
            <numerusform>%n hour</numerusform>
            <numerusform>%n hours</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ProgressText</name>
    <message numerus="yes">
        <source>%n s left</source>
        <comment>seconds</comment>
        <translation>
            <numerusform>%n s left</numerusform>
            <numerusform>%n s left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n min left</source>
        <comment>minutes</comment>
        <translation>
            <numerusform>about %n min left</numerusform>
            <numerusform>about %n min left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n tiles</source>
        <translation>
            <numerusform>%1 of %n tile</numerusform>
            <numerusform>%1 of %n tiles</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Reports</name>
    <message numerus="yes">
        <source>%1 of %n tiles</source>
        <translation>
            <numerusform>%1 of %n tile</numerusform>
            <numerusform>%1 of %n tiles</numerusform>
        </translation>
    </message>
</context>
</TS>
