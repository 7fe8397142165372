<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>MVThemeItemSubwdgt_Preview</name>
    <message>
        <source>Remove from Favorites</source>
        <translation>从收藏夹中移除</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>添加到收藏夹</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Download failed!</source>
        <translation>下载失败！</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>当前</translation>
    </message>
    <message>
        <source>More&gt;&gt;</source>
        <translation>更多&gt;&gt;</translation>
    </message>
    <message>
        <source>Internet error!</source>
        <translation>网络错误！</translation>
    </message>
    <message>
        <source>Path error!</source>
        <translation>路径错误！</translation>
    </message>
    <message>
        <source>Element error!</source>
        <translation>元素错误！</translation>
    </message>
    <message>
        <source>Unknown error!</source>
        <translation>未知错误！</translation>
    </message>
</context>
</TS>
