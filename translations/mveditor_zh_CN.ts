<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>CheckStatus</name>
    <message>
        <source>Checking for new resources…</source>
        <translation>正在检查新资源…</translation>
    </message>
    <message>
        <source>%1. Fetching previews…</source>
        <translation>%1。正在获取预览…</translation>
    </message>
    <message>
        <source>%1. Previews %2 of %3</source>
        <translation>%1。预览 %2/%3</translation>
    </message>
    <message>
        <source>Start the program again to check again</source>
        <translation>要再次检查，请重新启动程序</translation>
    </message>
    <message>
        <source>Catalogue updated</source>
        <translation>目录已更新</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>已是最新</translation>
    </message>
    <message>
        <source>The server has resources that need a newer application</source>
        <translation>服务器上的资源需要更新版本的应用程序</translation>
    </message>
    <message>
        <source>The server&apos;s catalogue is older than this application</source>
        <translation>服务器目录比此应用程序旧</translation>
    </message>
    <message numerus="yes">
        <source>, %n preview(s) fetched</source>
        <translation>
            <numerusform>，已获取 %n 个预览</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n preview(s) could not be fetched</source>
        <translation>
            <numerusform>，%n 个预览无法获取</numerusform>
        </translation>
    </message>
    <message>
        <source>Offline: %1; %2</source>
        <translation>离线：%1；%2</translation>
    </message>
    <message>
        <source>Not updated: %1; %2</source>
        <translation>未更新：%1；%2</translation>
    </message>
    <message>
        <source>Check cancelled; %1</source>
        <translation>检查已取消；%1</translation>
    </message>
    <message>
        <source>, but there is no catalogue to fetch previews for</source>
        <translation>，但没有可获取预览的目录</translation>
    </message>
    <message>
        <source>catalogue of %1</source>
        <translation>%1 的目录</translation>
    </message>
    <message>
        <source>no catalogue has been downloaded yet</source>
        <translation>尚未下载目录</translation>
    </message>
</context>
<context>
    <name>DetailsPanel</name>
    <message>
        <source>Click, or press Space, to play or stop</source>
        <translation>单击或按空格键播放或停止</translation>
    </message>
    <message>
        <source>What is used, and files</source>
        <translation>使用的项目和文件</translation>
    </message>
    <message>
        <source>Show files in folder</source>
        <translation>在文件夹中显示文件</translation>
    </message>
    <message>
        <source>Nothing applied yet</source>
        <translation>尚未应用任何项目</translation>
    </message>
    <message>
        <source>Click a cell, or move to it with the arrow keys and press Enter. What it lacks is downloaded first.</source>
        <translation>单击一个单元格，或用方向键移到它并按 Enter。缺少的文件会先下载。</translation>
    </message>
    <message>
        <source>Add to favourites</source>
        <translation>添加到收藏</translation>
    </message>
    <message>
        <source>Remove favourite</source>
        <translation>取消收藏</translation>
    </message>
    <message>
        <source>Uses</source>
        <translation>使用</translation>
    </message>
    <message>
        <source>Files: %1</source>
        <translation>文件：%1</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>缺失</translation>
    </message>
    <message>
        <source>Preview of what is shown</source>
        <translation>所示项目的预览</translation>
    </message>
</context>
<context>
    <name>FailureBox</name>
    <message>
        <source>Why the download failed</source>
        <translation>下载失败的原因</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>“%1” could not be downloaded: %2</source>
        <translation>无法下载“%1”：%2</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>详细信息</translation>
    </message>
</context>
<context>
    <name>FavouritesFile</name>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>无法写入 %1：%2</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>无法读取 %1：%2</translation>
    </message>
    <message>
        <source>%1 is not a file of favourites</source>
        <translation>%1 不是收藏文件</translation>
    </message>
    <message>
        <source>%1 contains an entry that is not a favourite</source>
        <translation>%1 含有不是收藏的条目</translation>
    </message>
</context>
<context>
    <name>ItemFacts</name>
    <message>
        <source>Video filter</source>
        <translation>视频滤镜</translation>
    </message>
    <message>
        <source>Transition</source>
        <translation>转场</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>动作</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>Festivals</source>
        <translation>节日</translation>
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
        <translation>其他</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Applied: %1</source>
        <translation>已应用：%1</translation>
    </message>
    <message>
        <source>The new scale applies from the next start on</source>
        <translation>新的缩放比例将在下次启动时生效</translation>
    </message>
    <message>
        <source>Slideshow resources</source>
        <translation>幻灯片资源</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Export favourites…</source>
        <translation>导出收藏(&amp;E)…</translation>
    </message>
    <message>
        <source>&amp;Import favourites…</source>
        <translation>导入收藏(&amp;I)…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Resources</source>
        <translation>资源(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>查找(&amp;F)</translation>
    </message>
    <message>
        <source>Check now</source>
        <translation>立即检查</translation>
    </message>
    <message>
        <source>Cancel check</source>
        <translation>取消检查</translation>
    </message>
    <message>
        <source>No program opens the folder %1</source>
        <translation>没有程序可打开文件夹 %1</translation>
    </message>
    <message>
        <source>No program opens the address %1</source>
        <translation>没有程序可打开地址 %1</translation>
    </message>
    <message>
        <source>Export favourites</source>
        <translation>导出收藏</translation>
    </message>
    <message numerus="yes">
        <source>%n favourite(s) written</source>
        <translation>
            <numerusform>已写出 %n 个收藏</numerusform>
        </translation>
    </message>
    <message>
        <source>Import favourites</source>
        <translation>导入收藏</translation>
    </message>
    <message numerus="yes">
        <source>%n favourite(s) added</source>
        <translation>
            <numerusform>已添加 %n 个收藏</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n of them not in the catalogue now</source>
        <translation>
            <numerusform>，其中 %n 个目前不在目录中</numerusform>
        </translation>
    </message>
    <message>
        <source>The favourites cannot be saved: %1</source>
        <translation>无法保存收藏：%1</translation>
    </message>
    <message>
        <source>Show &amp;details</source>
        <translation>显示详细信息(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Open project…</source>
        <translation>打开项目文件(&amp;O)…</translation>
    </message>
    <message>
        <source>Open project</source>
        <translation>打开项目文件</translation>
    </message>
</context>
<context>
    <name>NoticeBar</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>ProjectDialog</name>
    <message>
        <source>Project %1</source>
        <translation>项目文件 %1</translation>
    </message>
    <message>
        <source>Looking at the items…</source>
        <translation>正在检查各项…</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Items of the project</source>
        <translation>项目文件中的各项</translation>
    </message>
    <message>
        <source>Download what is missing</source>
        <translation>下载缺少的项</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>ready</source>
        <translation>可用</translation>
    </message>
    <message>
        <source>not in the catalogue</source>
        <translation>不在目录中</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>缺少</translation>
    </message>
    <message>
        <source>Ready: %1 of %2 items</source>
        <translation>可用：%1 项，共 %2 项</translation>
    </message>
    <message>
        <source>Missing: %1; to be fetched: %2</source>
        <translation>缺少：%1；需下载：%2</translation>
    </message>
    <message>
        <source>Not in the catalogue: %1</source>
        <translation>不在目录中：%1</translation>
    </message>
</context>
<context>
    <name>ProjectFile</name>
    <message>
        <source>not a file</source>
        <translation>不是文件</translation>
    </message>
    <message>
        <source>more than %1</source>
        <translation>超过 %1</translation>
    </message>
    <message>
        <source>there is no list “items”</source>
        <translation>没有列表“items”</translation>
    </message>
    <message>
        <source>item %1 has no GUID</source>
        <translation>第 %1 项没有 GUID</translation>
    </message>
    <message>
        <source>item %1: “%2” is not a GUID</source>
        <translation>第 %1 项：“%2”不是 GUID</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>无法打开 %1：%2</translation>
    </message>
    <message>
        <source>line %1, column %2: </source>
        <translation>第 %1 行，第 %2 列：</translation>
    </message>
</context>
<context>
    <name>ResourceList</name>
    <message>
        <source>Themes</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>滤镜</translation>
    </message>
    <message>
        <source>Backgrounds</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>No name contains “%1”</source>
        <translation>没有名称包含“%1”</translation>
    </message>
    <message>
        <source>No favourites yet
Point at a theme and press its heart, or press F</source>
        <translation>还没有收藏
指向一个主题并按下心形按钮，或按 F 键</translation>
    </message>
    <message>
        <source>No themes of this type</source>
        <translation>没有此类型的主题</translation>
    </message>
    <message>
        <source>Nothing is here yet
Resources come with the first check of the server</source>
        <translation>这里还没有内容
首次检查服务器后会出现资源</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
</context>
<context>
    <name>ResourceTabs</name>
    <message>
        <source>Themes</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>滤镜</translation>
    </message>
    <message>
        <source>Filters (large)</source>
        <translation>滤镜（大）</translation>
    </message>
    <message>
        <source>Backgrounds</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Favourites</source>
        <translation>收藏</translation>
    </message>
    <message>
        <source>Others</source>
        <translation>其他</translation>
    </message>
    <message>
        <source>Festivals</source>
        <translation>节日</translation>
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
        <translation>主题类型</translation>
    </message>
    <message>
        <source>Search (Ctrl+F)</source>
        <translation>搜索 (Ctrl+F)</translation>
    </message>
    <message>
        <source>Search by name</source>
        <translation>按名称搜索</translation>
    </message>
</context>
<context>
    <name>StateText</name>
    <message>
        <source>at least %1</source>
        <translation>至少 %1</translation>
    </message>
    <message>
        <source>size unknown</source>
        <translation>大小未知</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>已是最新</translation>
    </message>
    <message>
        <source>Not downloaded yet, %1</source>
        <translation>尚未下载，%1</translation>
    </message>
    <message>
        <source>Update available, %1</source>
        <translation>有更新，%1</translation>
    </message>
    <message>
        <source>Damaged: fetch it again, %1</source>
        <translation>已损坏：请重新下载，%1</translation>
    </message>
    <message>
        <source>Ready to use</source>
        <translation>可以使用</translation>
    </message>
    <message>
        <source>On this computer: %1</source>
        <translation>在此电脑上：%1</translation>
    </message>
    <message>
        <source>On this computer: %1, of which other items share %2</source>
        <translation>在此电脑上：%1，其中与其他项共用 %2</translation>
    </message>
</context>
<context>
    <name>StorageBox</name>
    <message>
        <source>Remove from this computer</source>
        <translation>从电脑中移除</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
</context>
<context>
    <name>StorageControls</name>
    <message>
        <source>“%1” is back</source>
        <translation>“%1”已恢复</translation>
    </message>
    <message>
        <source>Some files of “%1” could not be brought back</source>
        <translation>“%1”的部分文件无法恢复</translation>
    </message>
    <message>
        <source>U&amp;ndo removal</source>
        <translation>撤销移除(&amp;N)</translation>
    </message>
    <message>
        <source>Cancel &amp;update</source>
        <translation>取消更新(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Update all (%1)</source>
        <translation>全部更新(&amp;U) (%1)</translation>
    </message>
    <message numerus="yes">
        <source>%n update(s) available</source>
        <translation>
            <numerusform>有 %n 项更新</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) fetched</source>
        <translation>
            <numerusform>已下载 %n 项</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled; what has arrived is kept for the next time</source>
        <translation>已取消；已下载的部分会保留</translation>
    </message>
    <message>
        <source>Remove from this computer</source>
        <translation>从电脑中移除</translation>
    </message>
    <message>
        <source>Remove “%1” from this computer? This frees %2. It can be downloaded again.</source>
        <translation>要从此电脑中移除“%1”吗？将释放 %2。以后可以重新下载。</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>“%1” was not removed while a download works. Try again when it has ended.</source>
        <translation>正在下载，未移除“%1”。请在下载结束后重试。</translation>
    </message>
    <message>
        <source>“%1” was not removed: %2</source>
        <translation>未移除“%1”：%2</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>“%1” was removed: %2 will be free after the next start</source>
        <translation>已移除“%1”：下次启动后释放 %2</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
</context>
<context>
    <name>UpdateBar</name>
    <message>
        <source>Not everything could be fetched: %1</source>
        <translation>未能全部下载：%1</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %n item(s): %1 of %2</source>
        <translation>
            <numerusform>正在下载 %n 项：%1 / %2</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %n item(s)…</source>
        <translation>
            <numerusform>正在下载 %n 项…</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Skin</source>
        <translation>外观(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>S&amp;cale (at the next start)</source>
        <translation>缩放（下次启动时生效）(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Reduce motion</source>
        <translation>减少动画(&amp;R)</translation>
    </message>
    <message>
        <source>Pointing at a cell does not play its preview; Space does</source>
        <translation>指向单元格不会播放预览；按空格键播放</translation>
    </message>
    <message>
        <source>As the screen</source>
        <translation>跟随屏幕</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
</TS>
