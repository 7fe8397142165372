<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About this program</source>
        <translation>このプログラムについて</translation>
    </message>
    <message>
        <source>Copy report</source>
        <translation>レポートをコピー</translation>
    </message>
    <message>
        <source>Copies versions, folders and settings for a report of a fault</source>
        <translation>不具合の報告用に、バージョン、フォルダー、設定をコピーします</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>mveditor %1, with Qt %2</source>
        <translation>mveditor %1（Qt %2）</translation>
    </message>
    <message>
        <source>Licence: %1</source>
        <translation>ライセンス: %1</translation>
    </message>
    <message>
        <source>Downloads: %1</source>
        <translation>ダウンロード: %1</translation>
    </message>
    <message>
        <source>Favorites: %1</source>
        <translation>お気に入り: %1</translation>
    </message>
    <message>
        <source>Installed resources: %1</source>
        <translation>インストール済みの素材: %1</translation>
    </message>
</context>
<context>
    <name>CheckStatus</name>
    <message>
        <source>Checking for new resources…</source>
        <translation>新しいリソースを確認しています…</translation>
    </message>
    <message>
        <source>%1. Fetching previews…</source>
        <translation>%1。プレビューを取得しています…</translation>
    </message>
    <message>
        <source>%1. Previews %2 of %3</source>
        <translation>%1。プレビュー %2/%3</translation>
    </message>
    <message>
        <source>Start the program again to check again</source>
        <translation>もう一度確認するには、プログラムを再起動してください</translation>
    </message>
    <message>
        <source>Catalogue updated</source>
        <translation>カタログを更新しました</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>最新の状態です</translation>
    </message>
    <message>
        <source>The server has resources that need a newer application</source>
        <translation>サーバーのリソースには新しいバージョンのアプリケーションが必要です</translation>
    </message>
    <message>
        <source>The server&apos;s catalogue is older than this application</source>
        <translation>サーバーのカタログはこのアプリケーションより古いものです</translation>
    </message>
    <message numerus="yes">
        <source>, %n preview(s) fetched</source>
        <translation>
            <numerusform>、プレビュー %n 件を取得</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n preview(s) could not be fetched</source>
        <translation>
            <numerusform>、プレビュー %n 件を取得できませんでした</numerusform>
        </translation>
    </message>
    <message>
        <source>Offline: %1; %2</source>
        <translation>オフライン: %1（%2）</translation>
    </message>
    <message>
        <source>Not updated: %1; %2</source>
        <translation>更新できませんでした: %1（%2）</translation>
    </message>
    <message>
        <source>Check cancelled; %1</source>
        <translation>確認を中止しました（%1）</translation>
    </message>
    <message>
        <source>, but there is no catalogue to fetch previews for</source>
        <translation>。ただし、プレビューを取得するカタログがありません</translation>
    </message>
    <message>
        <source>catalogue of %1</source>
        <translation>%1 のカタログ</translation>
    </message>
    <message>
        <source>no catalogue has been downloaded yet</source>
        <translation>カタログはまだダウンロードされていません</translation>
    </message>
</context>
<context>
    <name>DetailsPanel</name>
    <message>
        <source>Click, or press Space, to play or stop</source>
        <translation>クリックまたはスペースキーで再生・停止</translation>
    </message>
    <message>
        <source>What is used, and files</source>
        <translation>使用しているものとファイル</translation>
    </message>
    <message>
        <source>Show files in folder</source>
        <translation>フォルダーに表示</translation>
    </message>
    <message>
        <source>Nothing applied yet</source>
        <translation>まだ何も適用されていません</translation>
    </message>
    <message>
        <source>Click a cell, or move to it with the arrow keys and press Enter. What it lacks is downloaded first.</source>
        <translation>セルをクリックするか、矢印キーで移動して Enter キーを押してください。足りないファイルは先にダウンロードされます。</translation>
    </message>
    <message>
        <source>Uses</source>
        <translation>使用しているもの</translation>
    </message>
    <message>
        <source>Files: %1</source>
        <translation>ファイル: %1</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Preview of what is shown</source>
        <translation>表示中の項目のプレビュー</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Kind or size</source>
        <translation>種類またはサイズ</translation>
    </message>
    <message>
        <source>Show file names</source>
        <translation>ファイル名を表示</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>適用</translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation>お気に入りに追加</translation>
    </message>
    <message>
        <source>Remove favorite</source>
        <translation>お気に入りから削除</translation>
    </message>
</context>
<context>
    <name>DownloadsBar</name>
    <message>
        <source>Waiting for the server…</source>
        <translation>サーバーを待っています…</translation>
    </message>
    <message numerus="yes">
        <source>Downloading %n item(s)</source>
        <translation>
            <numerusform>%n 項目をダウンロード中</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Cancel all</source>
        <translation>すべてキャンセル</translation>
    </message>
    <message numerus="yes">
        <source>, %n of them waiting for the server</source>
        <translation>
            <numerusform>（うち %n 項目がサーバーを待機中）</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DownloadsMove</name>
    <message>
        <source>The folder cannot be created: %1</source>
        <translation>フォルダーを作成できません: %1</translation>
    </message>
    <message>
        <source>One folder is within the other: %1</source>
        <translation>一方のフォルダーがもう一方の中にあります: %1</translation>
    </message>
    <message>
        <source>%1 cannot be created</source>
        <translation>%1 を作成できません</translation>
    </message>
    <message>
        <source>There is not enough space: %1 are needed, %2 are free</source>
        <translation>空き容量が足りません: 必要 %1、空き %2</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 を読み込めません: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 に書き込めません: %2</translation>
    </message>
    <message>
        <source>Another program is working with the downloads</source>
        <translation>別のプログラムがダウンロードを使用しています</translation>
    </message>
    <message>
        <source>The disk has not taken all files: %1</source>
        <translation>ディスクにすべてのファイルを保存できませんでした: %1</translation>
    </message>
    <message>
        <source>Downloads are not stored behind links: %1</source>
        <translation>リンクの先にはダウンロードを保存しません: %1</translation>
    </message>
    <message>
        <source>The new folder already holds other downloads; choose an empty folder: %1</source>
        <translation>新しいフォルダーには既に別のダウンロードがあります。空のフォルダーを選択してください: %1</translation>
    </message>
    <message>
        <source>The copy is damaged: %1</source>
        <translation>コピーが破損しています: %1</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 を読み取れません</translation>
    </message>
</context>
<context>
    <name>DownloadsMover</name>
    <message>
        <source>Move the downloads to the new folder?

From %1
to %2</source>
        <translation>ダウンロード済みのファイルを新しいフォルダーに移動しますか？

移動元 %1
移動先 %2</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>ダウンロードフォルダー</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>移動</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>そのままにする</translation>
    </message>
    <message>
        <source>Moving the downloads…</source>
        <translation>ファイルを移動しています…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>They cannot be moved now, while downloads run, or a check runs or is about to.</source>
        <translation>ダウンロード中や確認中、または確認の開始前のため、今は移動できません。</translation>
    </message>
    <message>
        <source>Cancelling…</source>
        <translation>キャンセルしています…</translation>
    </message>
</context>
<context>
    <name>FailureBox</name>
    <message>
        <source>Why the download failed</source>
        <translation>ダウンロードに失敗した理由</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>再試行</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>“%1” could not be downloaded: %2</source>
        <translation>「%1」をダウンロードできませんでした: %2</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>詳細</translation>
    </message>
</context>
<context>
    <name>FavouriteBar</name>
    <message>
        <source>“%1” was removed from the favorites</source>
        <translation>「%1」をお気に入りから外しました</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
</context>
<context>
    <name>FavouritesFile</name>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 に書き込めません: %2</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 を読み込めません: %2</translation>
    </message>
    <message>
        <source>%1 is not a file of favorites</source>
        <translation>%1 はお気に入りのファイルではありません</translation>
    </message>
    <message>
        <source>%1 contains an entry that is not a favorite</source>
        <translation>%1 にお気に入りではない項目が含まれています</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>All types</source>
        <translation>すべての種類</translation>
    </message>
    <message>
        <source>Others</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>Festivals</source>
        <translation>お祭り</translation>
    </message>
    <message>
        <source>Travel</source>
        <translation>旅行</translation>
    </message>
    <message>
        <source>Banquets</source>
        <translation>宴会</translation>
    </message>
    <message>
        <source>Theme type</source>
        <translation>テーマの種類</translation>
    </message>
    <message>
        <source>Search (Ctrl+F)</source>
        <translation>検索 (Ctrl+F)</translation>
    </message>
    <message>
        <source>Search by name</source>
        <translation>名前で検索</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>お気に入り</translation>
    </message>
    <message>
        <source>Shows only your favorites</source>
        <translation>お気に入りだけを表示します</translation>
    </message>
    <message>
        <source>Downloaded</source>
        <translation>ダウンロード済み</translation>
    </message>
    <message>
        <source>Shows only what is ready on this computer</source>
        <translation>このコンピューターで使えるものだけを表示します</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Shows only what can be updated</source>
        <translation>更新できるものだけを表示します</translation>
    </message>
    <message>
        <source>As published</source>
        <translation>公開順</translation>
    </message>
    <message>
        <source>By name</source>
        <translation>名前順</translation>
    </message>
    <message>
        <source>Newest first</source>
        <translation>新しい順</translation>
    </message>
    <message>
        <source>Largest first</source>
        <translation>大きい順</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>並び順</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>検索を消去</translation>
    </message>
</context>
<context>
    <name>FolderBar</name>
    <message>
        <source>The download folder is not available now: %1</source>
        <translation>ダウンロードフォルダーを現在利用できません: %1</translation>
    </message>
    <message>
        <source>Nothing can be downloaded: the download folder is not writable</source>
        <translation>ダウンロードできません: ダウンロードフォルダーに書き込めません</translation>
    </message>
    <message>
        <source>The disk of the download folder is almost full: %1 are free</source>
        <translation>ダウンロードフォルダーのディスクの空きがわずかです: 残り %1</translation>
    </message>
    <message>
        <source>Choose another folder…</source>
        <translation>別のフォルダーを選ぶ…</translation>
    </message>
</context>
<context>
    <name>FoldingPanes</name>
    <message>
        <source>Back to the list</source>
        <translation>一覧に戻る</translation>
    </message>
</context>
<context>
    <name>ItemFacts</name>
    <message>
        <source>Video filter</source>
        <translation>ビデオフィルター</translation>
    </message>
    <message>
        <source>Transition</source>
        <translation>トランジション</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>モーション</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>テーマ</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>Festivals</source>
        <translation>お祭り</translation>
    </message>
    <message>
        <source>Travel</source>
        <translation>旅行</translation>
    </message>
    <message>
        <source>Banquets</source>
        <translation>宴会</translation>
    </message>
    <message>
        <source>Others</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>Definition</source>
        <translation>定義</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Animated preview</source>
        <translation>動くプレビュー</translation>
    </message>
    <message>
        <source>Music: %1</source>
        <translation>音楽: %1</translation>
    </message>
    <message>
        <source>Picture: %1</source>
        <translation>画像: %1</translation>
    </message>
    <message>
        <source>Package: %1</source>
        <translation>パッケージ: %1</translation>
    </message>
</context>
<context>
    <name>ItemMenu</name>
    <message>
        <source>Remove from &amp;favorites</source>
        <translation>お気に入りから削除(&amp;F)</translation>
    </message>
    <message>
        <source>Add to &amp;favorites</source>
        <translation>お気に入りに追加(&amp;F)</translation>
    </message>
    <message>
        <source>Show &amp;details</source>
        <translation>詳細を表示(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Show files in folder</source>
        <translation>フォルダーでファイルを表示(&amp;S)</translation>
    </message>
    <message>
        <source>Copy &amp;name</source>
        <translation>名前をコピー(&amp;N)</translation>
    </message>
    <message>
        <source>Copy &amp;GUID</source>
        <translation>GUID をコピー(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Remove from this computer…</source>
        <translation>コンピューターから削除(&amp;R)…</translation>
    </message>
    <message>
        <source>&amp;Cancel download</source>
        <translation>ダウンロードをキャンセル(&amp;C)</translation>
    </message>
    <message>
        <source>Download and &amp;apply</source>
        <translation>ダウンロードして適用(&amp;A)</translation>
    </message>
    <message>
        <source>D&amp;ownload only</source>
        <translation>ダウンロードのみ(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>適用(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Update</source>
        <translation>更新(&amp;U)</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Applied: %1</source>
        <translation>適用しました: %1</translation>
    </message>
    <message>
        <source>The new scale applies from the next start on</source>
        <translation>新しい倍率は次回の起動から有効になります</translation>
    </message>
    <message>
        <source>Slideshow resources</source>
        <translation>スライドショーのリソース</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Resources</source>
        <translation>リソース(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>検索(&amp;F)</translation>
    </message>
    <message>
        <source>Check now</source>
        <translation>今すぐ確認</translation>
    </message>
    <message>
        <source>Cancel check</source>
        <translation>確認を中止</translation>
    </message>
    <message>
        <source>No program opens the folder %1</source>
        <translation>フォルダー %1 を開くプログラムがありません</translation>
    </message>
    <message>
        <source>No program opens the address %1</source>
        <translation>アドレス %1 を開くプログラムがありません</translation>
    </message>
    <message numerus="yes">
        <source>, %n of them not in the catalogue now</source>
        <translation>
            <numerusform>（うち %n 件は現在のカタログにありません）</numerusform>
        </translation>
    </message>
    <message>
        <source>Show &amp;details</source>
        <translation>詳細を表示(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Open project…</source>
        <translation>プロジェクトを開く(&amp;O)…</translation>
    </message>
    <message>
        <source>Open project</source>
        <translation>プロジェクトを開く</translation>
    </message>
    <message>
        <source>&amp;Export favorites…</source>
        <translation>お気に入りの書き出し(&amp;E)…</translation>
    </message>
    <message>
        <source>&amp;Import favorites…</source>
        <translation>お気に入りの読み込み(&amp;I)…</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>キー操作(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;About this program</source>
        <translation>このプログラムについて(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Details beside the list</source>
        <translation>一覧の横に詳細を表示(&amp;D)</translation>
    </message>
    <message>
        <source>The favorites cannot be saved: %1</source>
        <translation>お気に入りを保存できません: %1</translation>
    </message>
    <message>
        <source>Export favorites</source>
        <translation>お気に入りの書き出し</translation>
    </message>
    <message numerus="yes">
        <source>%n favorite(s) written</source>
        <translation>
            <numerusform>お気に入り %n 件を書き出しました</numerusform>
        </translation>
    </message>
    <message>
        <source>Import favorites</source>
        <translation>お気に入りの読み込み</translation>
    </message>
    <message numerus="yes">
        <source>%n favorite(s) added</source>
        <translation>
            <numerusform>お気に入り %n 件を追加しました</numerusform>
        </translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Keep downloading</source>
        <translation>ダウンロードを続ける</translation>
    </message>
    <message>
        <source>move between the cells</source>
        <translation>セル間を移動</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>apply or download the current one</source>
        <translation>現在のセルを適用またはダウンロード</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>スペース</translation>
    </message>
    <message>
        <source>play or stop its preview</source>
        <translation>プレビューを再生または停止</translation>
    </message>
    <message>
        <source>add it to the favorites or remove it</source>
        <translation>お気に入りに追加または削除</translation>
    </message>
    <message>
        <source>Menu key</source>
        <translation>メニューキー</translation>
    </message>
    <message>
        <source>show everything that can be done with it</source>
        <translation>できることをすべて表示</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>cancel its download; clear the search</source>
        <translation>ダウンロードをキャンセル、検索を消去</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>キー操作</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>設定を保存できません: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n download(s) would be cancelled</source>
        <translation>
            <numerusform>%n 件のダウンロードが実行中です。終了するとキャンセルされます。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NoticeBar</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>ProjectDialog</name>
    <message>
        <source>Project %1</source>
        <translation>プロジェクト %1</translation>
    </message>
    <message>
        <source>Looking at the items…</source>
        <translation>項目を確認しています…</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>項目</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状態</translation>
    </message>
    <message>
        <source>Items of the project</source>
        <translation>プロジェクトの項目</translation>
    </message>
    <message>
        <source>Download what is missing</source>
        <translation>不足分をダウンロード</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>ready</source>
        <translation>使用可能</translation>
    </message>
    <message>
        <source>not in the catalogue</source>
        <translation>カタログにありません</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>不足</translation>
    </message>
    <message>
        <source>Ready: %1 of %2 items</source>
        <translation>使用可能: %2 項目中 %1</translation>
    </message>
    <message>
        <source>Missing: %1; to be fetched: %2</source>
        <translation>不足: %1、ダウンロード量: %2</translation>
    </message>
    <message>
        <source>Not in the catalogue: %1</source>
        <translation>カタログにない項目: %1</translation>
    </message>
</context>
<context>
    <name>ProjectFile</name>
    <message>
        <source>not a file</source>
        <translation>ファイルではありません</translation>
    </message>
    <message>
        <source>more than %1</source>
        <translation>%1 を超えています</translation>
    </message>
    <message>
        <source>there is no list “items”</source>
        <translation>リスト「items」がありません</translation>
    </message>
    <message>
        <source>item %1 has no GUID</source>
        <translation>項目 %1 に GUID がありません</translation>
    </message>
    <message>
        <source>item %1: “%2” is not a GUID</source>
        <translation>項目 %1: 「%2」は GUID ではありません</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 を開けません: %2</translation>
    </message>
    <message>
        <source>line %1, column %2: </source>
        <translation>%1 行 %2 列: </translation>
    </message>
</context>
<context>
    <name>ResourceList</name>
    <message>
        <source>Themes</source>
        <translation>テーマ</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>フィルター</translation>
    </message>
    <message>
        <source>Backgrounds</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>No name contains “%1”</source>
        <translation>「%1」を含む名前はありません</translation>
    </message>
    <message>
        <source>No themes of this type</source>
        <translation>この種類のテーマはありません</translation>
    </message>
    <message>
        <source>Nothing is here yet
Resources come with the first check of the server</source>
        <translation>まだ何もありません
リソースはサーバーの最初の確認で届きます</translation>
    </message>
    <message>
        <source>Nothing passes all of these filters</source>
        <translation>すべての条件に合うものはありません</translation>
    </message>
    <message>
        <source>Remove all filters</source>
        <translation>すべての条件を解除</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>検索を消去</translation>
    </message>
    <message>
        <source>Show all types</source>
        <translation>すべての種類を表示</translation>
    </message>
    <message>
        <source>None of these is a favorite</source>
        <translation>この中にお気に入りはありません</translation>
    </message>
    <message>
        <source>No favorites yet
Point at a cell and press its heart, or press F</source>
        <translation>お気に入りはまだありません
セルにマウスを合わせてハートを押すか、F キーを押してください</translation>
    </message>
    <message>
        <source>Show more than favorites</source>
        <translation>お気に入り以外も表示</translation>
    </message>
    <message>
        <source>None of these is on this computer yet</source>
        <translation>この中にダウンロード済みのものはありません</translation>
    </message>
    <message>
        <source>Show what can be downloaded</source>
        <translation>ダウンロードできるものも表示</translation>
    </message>
    <message>
        <source>No updates are available</source>
        <translation>この中に更新はありません</translation>
    </message>
    <message>
        <source>Show all items</source>
        <translation>ほかのものも表示</translation>
    </message>
    <message>
        <source>Looking for what is on this computer…</source>
        <translation>ダウンロード済みのものを確認しています…</translation>
    </message>
</context>
<context>
    <name>ResourceTabs</name>
    <message>
        <source>Themes</source>
        <translation>テーマ</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>フィルター</translation>
    </message>
    <message>
        <source>Backgrounds</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>Kinds of resources</source>
        <translation>素材の種類</translation>
    </message>
    <message>
        <source>Large pictures</source>
        <translation>大きい画像</translation>
    </message>
    <message>
        <source>Shows the filters in larger cells</source>
        <translation>フィルターを大きいセルで表示します</translation>
    </message>
</context>
<context>
    <name>ServerField</name>
    <message>
        <source>Address of the resource server</source>
        <translation>素材サーバーのアドレス</translation>
    </message>
    <message>
        <source>This is not an address such as https://example.com/resources/</source>
        <translation>https://example.com/resources/ のようなアドレスではありません</translation>
    </message>
    <message>
        <source>Asking %1…</source>
        <translation>%1 に問い合わせ中…</translation>
    </message>
    <message>
        <source>The server answers, but has no resources at this address</source>
        <translation>サーバーは応答しますが、このアドレスに素材はありません</translation>
    </message>
    <message>
        <source>Nothing found: %1</source>
        <translation>見つかりません: %1</translation>
    </message>
    <message>
        <source>Found: catalogue %1</source>
        <translation>見つかりました: カタログ %1</translation>
    </message>
    <message>
        <source>Found: catalogue %1, published on %2</source>
        <translation>見つかりました: カタログ %1、%2 公開</translation>
    </message>
</context>
<context>
    <name>SettingsControls</name>
    <message>
        <source>&amp;Settings…</source>
        <translation>設定(&amp;S)…</translation>
    </message>
    <message>
        <source>The new folder is used from the next start on; what is in the old one stays there</source>
        <translation>新しいフォルダーは次回の起動から使われます。古いフォルダーの内容はそのまま残ります</translation>
    </message>
    <message>
        <source>The new server is used from the next start on</source>
        <translation>新しいサーバーは次回の起動から使われます</translation>
    </message>
    <message>
        <source>The number of connections applies from the next start on</source>
        <translation>接続数は次回の起動から有効になります</translation>
    </message>
    <message>
        <source>Nothing was moved</source>
        <translation>何も移動されませんでした</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>ダウンロードフォルダー</translation>
    </message>
    <message>
        <source>Nothing was moved: %1</source>
        <translation>何も移動されませんでした: %1</translation>
    </message>
    <message>
        <source>The downloads are in the new folder now</source>
        <translation>ファイルは新しいフォルダーに移動しました</translation>
    </message>
    <message numerus="yes">
        <source>The downloads are in the new folder now; %n file(s) of the old one could not be removed</source>
        <translation>
            <numerusform>ファイルは新しいフォルダーに移動しました。古いフォルダーの %n 個のファイルは削除できませんでした</numerusform>
        </translation>
    </message>
    <message>
        <source>The downloads stay in this folder</source>
        <translation>ダウンロードはこのフォルダーに残ります</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>設定を保存できません: %1</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Change…</source>
        <translation>変更…</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>applies the item</source>
        <translation>項目を適用する</translation>
    </message>
    <message>
        <source>selects the item and shows its details</source>
        <translation>項目を選択して詳細を表示する</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>デスクトップに合わせる</translation>
    </message>
    <message>
        <source>Less motion</source>
        <translation>動きを減らす</translation>
    </message>
    <message>
        <source>All previews move</source>
        <translation>すべてのプレビューを動かす</translation>
    </message>
    <message>
        <source>As the screen</source>
        <translation>画面に合わせる</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Ser&amp;ver:</source>
        <translation>サーバー(&amp;V):</translation>
    </message>
    <message>
        <source>&amp;Download folder:</source>
        <translation>ダウンロードフォルダー(&amp;D):</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>ダウンロードフォルダー</translation>
    </message>
    <message>
        <source>&amp;Connections:</source>
        <translation>接続数(&amp;C):</translation>
    </message>
    <message>
        <source>A cl&amp;ick:</source>
        <translation>クリックすると(&amp;I):</translation>
    </message>
    <message>
        <source>&amp;Motion:</source>
        <translation>動き(&amp;M):</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>言語(&amp;L):</translation>
    </message>
    <message>
        <source>&amp;Skin:</source>
        <translation>スキン(&amp;S):</translation>
    </message>
    <message>
        <source>Sc&amp;ale:</source>
        <translation>倍率(&amp;A):</translation>
    </message>
    <message>
        <source>Files that are fetched at the same time</source>
        <translation>同時に取得するファイルの数</translation>
    </message>
    <message>
        <source>Measuring the folder…</source>
        <translation>フォルダーを調べています…</translation>
    </message>
    <message>
        <source>This folder is not writable</source>
        <translation>このフォルダーには書き込めません</translation>
    </message>
    <message>
        <source>Used: %1, free: %2</source>
        <translation>使用中: %1、空き: %2</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>設定を保存できません: %1</translation>
    </message>
</context>
<context>
    <name>StateText</name>
    <message>
        <source>at least %1</source>
        <translation>%1 以上</translation>
    </message>
    <message>
        <source>size unknown</source>
        <translation>サイズ不明</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>最新の状態です</translation>
    </message>
    <message>
        <source>Not downloaded yet, %1</source>
        <translation>未ダウンロード、%1</translation>
    </message>
    <message>
        <source>Update available, %1</source>
        <translation>更新があります、%1</translation>
    </message>
    <message>
        <source>Damaged: fetch it again, %1</source>
        <translation>破損: 再ダウンロードが必要、%1</translation>
    </message>
    <message>
        <source>Ready to use</source>
        <translation>使用できます</translation>
    </message>
    <message>
        <source>On this computer: %1</source>
        <translation>このコンピューター上: %1</translation>
    </message>
    <message>
        <source>On this computer: %1, of which other items share %2</source>
        <translation>このコンピューター上: %1 (うち共有 %2)</translation>
    </message>
</context>
<context>
    <name>StorageBox</name>
    <message>
        <source>Remove from this computer</source>
        <translation>コンピューターから削除</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>ダウンロード</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>There is not enough space on the disk: %1 are free. Remove something, or choose another download folder in the settings.</source>
        <translation>ディスクの空きが足りません: 残り %1。何かを削除するか、設定で別のフォルダーを選んでください。</translation>
    </message>
</context>
<context>
    <name>StorageControls</name>
    <message>
        <source>“%1” is back</source>
        <translation>「%1」を元に戻しました</translation>
    </message>
    <message>
        <source>Some files of “%1” could not be brought back</source>
        <translation>「%1」の一部のファイルを元に戻せませんでした</translation>
    </message>
    <message>
        <source>Cancel &amp;update</source>
        <translation>更新をキャンセル(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Update all (%1)</source>
        <translation>すべて更新(&amp;U) (%1)</translation>
    </message>
    <message numerus="yes">
        <source>%n update(s) available</source>
        <translation>
            <numerusform>更新が %n 件あります</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) fetched</source>
        <translation>
            <numerusform>%n 項目を取得しました</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled; what has arrived is kept for the next time</source>
        <translation>キャンセルしました。取得済みの分は次回に使われます</translation>
    </message>
    <message>
        <source>Remove from this computer</source>
        <translation>コンピューターから削除</translation>
    </message>
    <message>
        <source>Remove “%1” from this computer? This frees %2. It can be downloaded again.</source>
        <translation>「%1」をこのコンピューターから削除しますか? %2 が解放されます。再ダウンロードできます。</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>“%1” was not removed while a download works. Try again when it has ended.</source>
        <translation>ダウンロード中のため「%1」は削除されませんでした。終わってからもう一度お試しください。</translation>
    </message>
    <message>
        <source>“%1” was not removed: %2</source>
        <translation>「%1」は削除されませんでした: %2</translation>
    </message>
</context>
<context>
    <name>UndoAction</name>
    <message>
        <source>U&amp;ndo</source>
        <translation>元に戻す(&amp;N)</translation>
    </message>
    <message>
        <source>U&amp;ndo removal</source>
        <translation>削除を元に戻す(&amp;N)</translation>
    </message>
    <message>
        <source>U&amp;ndo change of favorites</source>
        <translation>お気に入りの変更を元に戻す(&amp;N)</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>“%1” was removed: %2 will be free after the next start</source>
        <translation>「%1」を削除しました: 次回の起動後に %2 が解放されます</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Not everything could be fetched: %1</source>
        <translation>一部を取得できませんでした: %1</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>再試行</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %n item(s): %1 of %2</source>
        <translation>
            <numerusform>%n 項目を取得中: %1 / %2</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %n item(s)…</source>
        <translation>
            <numerusform>%n 項目を取得中…</numerusform>
        </translation>
    </message>
    <message>
        <source>Waiting for the server…</source>
        <translation>サーバーを待っています…</translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Skin</source>
        <translation>スキン(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>言語(&amp;L)</translation>
    </message>
    <message>
        <source>S&amp;cale (at the next start)</source>
        <translation>倍率（次回の起動から）(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Reduce motion</source>
        <translation>動きを減らす(&amp;R)</translation>
    </message>
    <message>
        <source>Pointing at a cell does not play its preview; Space does</source>
        <translation>セルにマウスを合わせてもプレビューは再生されません。スペースキーで再生します</translation>
    </message>
    <message>
        <source>As the screen</source>
        <translation>画面に合わせる</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>WelcomePage</name>
    <message>
        <source>Where do your resources come from?</source>
        <translation>素材の取得元はどこですか?</translation>
    </message>
    <message>
        <source>Themes, filters and backgrounds come from a resource server. Enter the address that you have been given; it can be changed in the settings.</source>
        <translation>テーマ、フィルター、背景は素材サーバーから取得します。指定されたアドレスを入力してください。あとから設定で変更できます。</translation>
    </message>
    <message>
        <source>Continue without a server</source>
        <translation>サーバーなしで続ける</translation>
    </message>
    <message>
        <source>Use this server</source>
        <translation>このサーバーを使う</translation>
    </message>
    <message>
        <source>Use it anyway</source>
        <translation>それでも使う</translation>
    </message>
</context>
</TS>
