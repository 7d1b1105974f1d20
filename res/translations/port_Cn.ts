<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="zh_CN">
<context>
    <name>MainWindow</name>
    <message>
        <source>关闭</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>最小化</source>
        <translation>最小化</translation>
    </message>
</context>
</TS>
