<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>CellAccessible</name>
    <message>
        <source>Download and apply</source>
        <translation>ダウンロードして適用</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>適用</translation>
    </message>
    <message>
        <source>Show details</source>
        <translation>詳細を表示</translation>
    </message>
    <message>
        <source>Cancel the download</source>
        <translation>ダウンロードを中止</translation>
    </message>
</context>
<context>
    <name>CellText</name>
    <message>
        <source>favourite</source>
        <translation>お気に入り</translation>
    </message>
    <message>
        <source>current</source>
        <translation>適用中</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%2 件中 %1 件目</translation>
    </message>
    <message>
        <source>on disk</source>
        <translation>保存済み</translation>
    </message>
    <message>
        <source>not downloaded</source>
        <translation>未ダウンロード</translation>
    </message>
    <message>
        <source>update available</source>
        <translation>更新あり</translation>
    </message>
    <message>
        <source>downloading, %1 %</source>
        <translation>ダウンロード中、%1 %</translation>
    </message>
    <message>
        <source>download failed</source>
        <translation>ダウンロード失敗</translation>
    </message>
    <message>
        <source>new</source>
        <translation>新着</translation>
    </message>
    <message>
        <source>festivals</source>
        <translation>お祭り</translation>
    </message>
    <message>
        <source>travel</source>
        <translation>旅行</translation>
    </message>
    <message>
        <source>banquets</source>
        <translation>宴会</translation>
    </message>
    <message>
        <source>at least %1</source>
        <translation>%1 以上</translation>
    </message>
</context>
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
    <message>
        <source>Click to cancel the download</source>
        <translation>クリックするとダウンロードを中止します</translation>
    </message>
</context>
<context>
    <name>STransferFailure</name>
    <message>
        <source>the disk is full</source>
        <translation>ディスクに空きがありません</translation>
    </message>
    <message>
        <source>no permission to write the file</source>
        <translation>ファイルに書き込む権限がありません</translation>
    </message>
    <message>
        <source>the file cannot be written</source>
        <translation>ファイルに書き込めません</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>サーバーに接続できません</translation>
    </message>
    <message>
        <source>the connection to the server was lost</source>
        <translation>サーバーとの接続が切れました</translation>
    </message>
    <message>
        <source>the file is not on the server</source>
        <translation>サーバーにファイルがありません</translation>
    </message>
    <message>
        <source>the server reports an error</source>
        <translation>サーバーがエラーを返しました</translation>
    </message>
    <message>
        <source>the file has no usable address</source>
        <translation>ファイルのアドレスが正しくありません</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>ファイルが大きすぎます</translation>
    </message>
    <message>
        <source>the file on the server is damaged</source>
        <translation>サーバーのファイルが壊れています</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>中止しました</translation>
    </message>
</context>
</TS>
