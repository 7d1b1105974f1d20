<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW" sourcelanguage="zh_CN">
<context>
    <name>MainWindow</name>
    <message>
        <source>关闭</source>
        <translation>關閉</translation>
    </message>
    <message>
        <source>最小化</source>
        <translation>最小化</translation>
    </message>
</context>
</TS>
