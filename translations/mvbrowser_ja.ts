<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>MVThemeItemSubwdgt_Preview</name>
    <message>
        <source>Remove from Favorites</source>
        <translation>お気に入りから削除</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>お気に入りに追加</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>ダウンロード</translation>
    </message>
    <message>
        <source>Download failed!</source>
        <translation>ダウンロード失敗</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>使用中</translation>
    </message>
    <message>
        <source>More&gt;&gt;</source>
        <translation>もっと見る&gt;&gt;</translation>
    </message>
    <message>
        <source>Internet error!</source>
        <translation>通信エラー</translation>
    </message>
    <message>
        <source>Path error!</source>
        <translation>パスエラー</translation>
    </message>
    <message>
        <source>Element error!</source>
        <translation>エレメントエラー</translation>
    </message>
    <message>
        <source>Unknown error!</source>
        <translation>不明なエラー</translation>
    </message>
</context>
</TS>
