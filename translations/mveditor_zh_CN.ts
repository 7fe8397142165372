<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About this program</source>
        <translation>关于本程序</translation>
    </message>
    <message>
        <source>Copy report</source>
        <translation>复制报告</translation>
    </message>
    <message>
        <source>Copies versions, folders and settings for a report of a fault</source>
        <translation>复制版本、文件夹和设置，用于报告故障</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>mveditor %1, with Qt %2</source>
        <translation>mveditor %1，使用 Qt %2</translation>
    </message>
    <message>
        <source>Licence: %1</source>
        <translation>许可证：%1</translation>
    </message>
    <message>
        <source>Downloads: %1</source>
        <translation>下载：%1</translation>
    </message>
    <message>
        <source>Favorites: %1</source>
        <translation>收藏：%1</translation>
    </message>
    <message>
        <source>Installed resources: %1</source>
        <translation>已安装的资源：%1</translation>
    </message>
</context>
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
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Kind or size</source>
        <translation>类型或大小</translation>
    </message>
    <message>
        <source>Show file names</source>
        <translation>显示文件名</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation>添加到收藏</translation>
    </message>
    <message>
        <source>Remove favorite</source>
        <translation>取消收藏</translation>
    </message>
</context>
<context>
    <name>DownloadsBar</name>
    <message>
        <source>Waiting for the server…</source>
        <translation>正在等待服务器…</translation>
    </message>
    <message numerus="yes">
        <source>Downloading %n item(s)</source>
        <translation>
            <numerusform>正在下载 %n 项</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Cancel all</source>
        <translation>全部取消</translation>
    </message>
    <message numerus="yes">
        <source>, %n of them waiting for the server</source>
        <translation>
            <numerusform>，其中 %n 项正在等待服务器</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DownloadsMove</name>
    <message>
        <source>The folder cannot be created: %1</source>
        <translation>无法创建文件夹：%1</translation>
    </message>
    <message>
        <source>One folder is within the other: %1</source>
        <translation>一个文件夹在另一个文件夹中：%1</translation>
    </message>
    <message>
        <source>%1 cannot be created</source>
        <translation>无法创建 %1</translation>
    </message>
    <message>
        <source>There is not enough space: %1 are needed, %2 are free</source>
        <translation>空间不足：需要 %1，可用 %2</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>无法读取 %1：%2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>无法写入 %1：%2</translation>
    </message>
    <message>
        <source>Another program is working with the downloads</source>
        <translation>另一个程序正在使用下载内容</translation>
    </message>
    <message>
        <source>The disk has not taken all files: %1</source>
        <translation>磁盘未能保存全部文件：%1</translation>
    </message>
    <message>
        <source>Downloads are not stored behind links: %1</source>
        <translation>下载内容不会保存到链接所指的位置：%1</translation>
    </message>
    <message>
        <source>The new folder already holds other downloads; choose an empty folder: %1</source>
        <translation>新文件夹中已有其他下载内容，请选择空文件夹：%1</translation>
    </message>
    <message>
        <source>The copy is damaged: %1</source>
        <translation>副本已损坏：%1</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>无法读取 %1</translation>
    </message>
</context>
<context>
    <name>DownloadsMover</name>
    <message>
        <source>Move the downloads to the new folder?

From %1
to %2</source>
        <translation>要将已下载的文件移动到新文件夹吗？

从 %1
到 %2</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>下载文件夹</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>移动</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>保留原处</translation>
    </message>
    <message>
        <source>Moving the downloads…</source>
        <translation>正在移动文件…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>They cannot be moved now, while downloads run, or a check runs or is about to.</source>
        <translation>正在下载或检查，或即将检查，现在无法移动。</translation>
    </message>
    <message>
        <source>Cancelling…</source>
        <translation>正在取消…</translation>
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
    <name>FavouriteBar</name>
    <message>
        <source>“%1” was removed from the favorites</source>
        <translation>“%1”已不再是收藏</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
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
        <source>%1 is not a file of favorites</source>
        <translation>%1 不是收藏文件</translation>
    </message>
    <message>
        <source>%1 contains an entry that is not a favorite</source>
        <translation>%1 含有不是收藏的条目</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>All types</source>
        <translation>所有类型</translation>
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
    <message>
        <source>Favorites</source>
        <translation>收藏</translation>
    </message>
    <message>
        <source>Shows only your favorites</source>
        <translation>只显示您的收藏</translation>
    </message>
    <message>
        <source>Downloaded</source>
        <translation>已下载</translation>
    </message>
    <message>
        <source>Shows only what is ready on this computer</source>
        <translation>只显示本机上可用的内容</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Shows only what can be updated</source>
        <translation>只显示可更新的内容</translation>
    </message>
    <message>
        <source>As published</source>
        <translation>发布顺序</translation>
    </message>
    <message>
        <source>By name</source>
        <translation>按名称</translation>
    </message>
    <message>
        <source>Newest first</source>
        <translation>最新优先</translation>
    </message>
    <message>
        <source>Largest first</source>
        <translation>最大优先</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>排序</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>清除搜索</translation>
    </message>
</context>
<context>
    <name>FolderBar</name>
    <message>
        <source>The download folder is not available now: %1</source>
        <translation>下载文件夹目前不可用：%1</translation>
    </message>
    <message>
        <source>Nothing can be downloaded: the download folder is not writable</source>
        <translation>无法下载：下载文件夹不可写</translation>
    </message>
    <message>
        <source>The disk of the download folder is almost full: %1 are free</source>
        <translation>下载文件夹所在磁盘将满：剩余 %1</translation>
    </message>
    <message>
        <source>Choose another folder…</source>
        <translation>选择其他文件夹…</translation>
    </message>
</context>
<context>
    <name>FoldingPanes</name>
    <message>
        <source>Back to the list</source>
        <translation>返回列表</translation>
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
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>Definition</source>
        <translation>定义</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Animated preview</source>
        <translation>动态预览</translation>
    </message>
    <message>
        <source>Music: %1</source>
        <translation>音乐：%1</translation>
    </message>
    <message>
        <source>Picture: %1</source>
        <translation>图片：%1</translation>
    </message>
    <message>
        <source>Package: %1</source>
        <translation>包：%1</translation>
    </message>
</context>
<context>
    <name>ItemMenu</name>
    <message>
        <source>Remove from &amp;favorites</source>
        <translation>取消收藏(&amp;F)</translation>
    </message>
    <message>
        <source>Add to &amp;favorites</source>
        <translation>添加到收藏(&amp;F)</translation>
    </message>
    <message>
        <source>Show &amp;details</source>
        <translation>显示详细信息(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Show files in folder</source>
        <translation>在文件夹中显示文件(&amp;S)</translation>
    </message>
    <message>
        <source>Copy &amp;name</source>
        <translation>复制名称(&amp;N)</translation>
    </message>
    <message>
        <source>Copy &amp;GUID</source>
        <translation>复制 GUID(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Remove from this computer…</source>
        <translation>从电脑中移除(&amp;R)…</translation>
    </message>
    <message>
        <source>&amp;Cancel download</source>
        <translation>取消下载(&amp;C)</translation>
    </message>
    <message>
        <source>Download and &amp;apply</source>
        <translation>下载并应用(&amp;A)</translation>
    </message>
    <message>
        <source>D&amp;ownload only</source>
        <translation>仅下载(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>应用(&amp;A)</translation>
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
    <message numerus="yes">
        <source>, %n of them not in the catalogue now</source>
        <translation>
            <numerusform>，其中 %n 个目前不在目录中</numerusform>
        </translation>
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
    <message>
        <source>&amp;Export favorites…</source>
        <translation>导出收藏(&amp;E)…</translation>
    </message>
    <message>
        <source>&amp;Import favorites…</source>
        <translation>导入收藏(&amp;I)…</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>按键(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;About this program</source>
        <translation>关于本程序(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Details beside the list</source>
        <translation>在列表旁显示详细信息(&amp;D)</translation>
    </message>
    <message>
        <source>The favorites cannot be saved: %1</source>
        <translation>无法保存收藏：%1</translation>
    </message>
    <message>
        <source>Export favorites</source>
        <translation>导出收藏</translation>
    </message>
    <message numerus="yes">
        <source>%n favorite(s) written</source>
        <translation>
            <numerusform>已写出 %n 个收藏</numerusform>
        </translation>
    </message>
    <message>
        <source>Import favorites</source>
        <translation>导入收藏</translation>
    </message>
    <message numerus="yes">
        <source>%n favorite(s) added</source>
        <translation>
            <numerusform>已添加 %n 个收藏</numerusform>
        </translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Keep downloading</source>
        <translation>继续下载</translation>
    </message>
    <message>
        <source>move between the cells</source>
        <translation>在单元格之间移动</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>回车</translation>
    </message>
    <message>
        <source>apply or download the current one</source>
        <translation>应用或下载当前项</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>空格</translation>
    </message>
    <message>
        <source>play or stop its preview</source>
        <translation>播放或停止预览</translation>
    </message>
    <message>
        <source>add it to the favorites or remove it</source>
        <translation>添加到收藏或取消收藏</translation>
    </message>
    <message>
        <source>Menu key</source>
        <translation>菜单键</translation>
    </message>
    <message>
        <source>show everything that can be done with it</source>
        <translation>显示所有可用操作</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>cancel its download; clear the search</source>
        <translation>取消下载；清除搜索</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>按键</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>无法保存设置：%1</translation>
    </message>
    <message numerus="yes">
        <source>%n download(s) would be cancelled</source>
        <translation>
            <numerusform>仍有 %n 个下载正在进行，退出将取消它们。</numerusform>
        </translation>
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
        <source>Nothing passes all of these filters</source>
        <translation>没有内容符合所有这些条件</translation>
    </message>
    <message>
        <source>Remove all filters</source>
        <translation>移除所有条件</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>清除搜索</translation>
    </message>
    <message>
        <source>Show all types</source>
        <translation>显示所有类型</translation>
    </message>
    <message>
        <source>None of these is a favorite</source>
        <translation>这些都不是收藏</translation>
    </message>
    <message>
        <source>No favorites yet
Point at a cell and press its heart, or press F</source>
        <translation>还没有收藏
指向一个单元格并按下心形按钮，或按 F 键</translation>
    </message>
    <message>
        <source>Show more than favorites</source>
        <translation>不只显示收藏</translation>
    </message>
    <message>
        <source>None of these is on this computer yet</source>
        <translation>这些都还不在本机上</translation>
    </message>
    <message>
        <source>Show what can be downloaded</source>
        <translation>显示可下载的内容</translation>
    </message>
    <message>
        <source>No updates are available</source>
        <translation>这些没有更新</translation>
    </message>
    <message>
        <source>Show all items</source>
        <translation>也显示其他内容</translation>
    </message>
    <message>
        <source>Looking for what is on this computer…</source>
        <translation>正在检查本机上的资源…</translation>
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
        <source>Backgrounds</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>Kinds of resources</source>
        <translation>资源类型</translation>
    </message>
    <message>
        <source>Large pictures</source>
        <translation>大图片</translation>
    </message>
    <message>
        <source>Shows the filters in larger cells</source>
        <translation>以更大的单元格显示滤镜</translation>
    </message>
</context>
<context>
    <name>ServerField</name>
    <message>
        <source>Address of the resource server</source>
        <translation>资源服务器的地址</translation>
    </message>
    <message>
        <source>This is not an address such as https://example.com/resources/</source>
        <translation>这不是类似 https://example.com/resources/ 的地址</translation>
    </message>
    <message>
        <source>Asking %1…</source>
        <translation>正在询问 %1…</translation>
    </message>
    <message>
        <source>The server answers, but has no resources at this address</source>
        <translation>服务器有响应，但此地址没有资源</translation>
    </message>
    <message>
        <source>Nothing found: %1</source>
        <translation>未找到：%1</translation>
    </message>
    <message>
        <source>Found: catalogue %1</source>
        <translation>已找到：目录 %1</translation>
    </message>
    <message>
        <source>Found: catalogue %1, published on %2</source>
        <translation>已找到：目录 %1，发布于 %2</translation>
    </message>
</context>
<context>
    <name>SettingsControls</name>
    <message>
        <source>&amp;Settings…</source>
        <translation>设置(&amp;S)…</translation>
    </message>
    <message>
        <source>The new folder is used from the next start on; what is in the old one stays there</source>
        <translation>新文件夹将在下次启动时使用；旧文件夹中的内容保留在原处</translation>
    </message>
    <message>
        <source>The new server is used from the next start on</source>
        <translation>新服务器将在下次启动时使用</translation>
    </message>
    <message>
        <source>The number of connections applies from the next start on</source>
        <translation>连接数将在下次启动时生效</translation>
    </message>
    <message>
        <source>Nothing was moved</source>
        <translation>未移动任何文件</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>下载文件夹</translation>
    </message>
    <message>
        <source>Nothing was moved: %1</source>
        <translation>未移动任何文件：%1</translation>
    </message>
    <message>
        <source>The downloads are in the new folder now</source>
        <translation>文件现在位于新文件夹中</translation>
    </message>
    <message numerus="yes">
        <source>The downloads are in the new folder now; %n file(s) of the old one could not be removed</source>
        <translation>
            <numerusform>文件现在位于新文件夹中；旧文件夹中有 %n 个文件无法删除</numerusform>
        </translation>
    </message>
    <message>
        <source>The downloads stay in this folder</source>
        <translation>下载内容保留在此文件夹中</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>无法保存设置：%1</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Change…</source>
        <translation>更改…</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>applies the item</source>
        <translation>应用该项</translation>
    </message>
    <message>
        <source>selects the item and shows its details</source>
        <translation>选择该项并显示详细信息</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>跟随桌面</translation>
    </message>
    <message>
        <source>Less motion</source>
        <translation>减少动画</translation>
    </message>
    <message>
        <source>All previews move</source>
        <translation>所有预览均播放</translation>
    </message>
    <message>
        <source>As the screen</source>
        <translation>跟随屏幕</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Ser&amp;ver:</source>
        <translation>服务器(&amp;V)：</translation>
    </message>
    <message>
        <source>&amp;Download folder:</source>
        <translation>下载文件夹(&amp;D)：</translation>
    </message>
    <message>
        <source>Download folder</source>
        <translation>下载文件夹</translation>
    </message>
    <message>
        <source>&amp;Connections:</source>
        <translation>连接数(&amp;C)：</translation>
    </message>
    <message>
        <source>A cl&amp;ick:</source>
        <translation>单击(&amp;I)：</translation>
    </message>
    <message>
        <source>&amp;Motion:</source>
        <translation>动画(&amp;M)：</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>语言(&amp;L)：</translation>
    </message>
    <message>
        <source>&amp;Skin:</source>
        <translation>外观(&amp;S)：</translation>
    </message>
    <message>
        <source>Sc&amp;ale:</source>
        <translation>缩放(&amp;A)：</translation>
    </message>
    <message>
        <source>Files that are fetched at the same time</source>
        <translation>同时下载的文件数</translation>
    </message>
    <message>
        <source>Measuring the folder…</source>
        <translation>正在统计文件夹…</translation>
    </message>
    <message>
        <source>This folder is not writable</source>
        <translation>此文件夹不可写</translation>
    </message>
    <message>
        <source>Used: %1, free: %2</source>
        <translation>已用：%1，可用：%2</translation>
    </message>
    <message>
        <source>The settings cannot be saved: %1</source>
        <translation>无法保存设置：%1</translation>
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
    <message>
        <source>There is not enough space on the disk: %1 are free. Remove something, or choose another download folder in the settings.</source>
        <translation>磁盘空间不足：剩余 %1。请移除一些内容，或在设置中选择其他下载文件夹。</translation>
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
    <name>UndoAction</name>
    <message>
        <source>U&amp;ndo</source>
        <translation>撤销(&amp;N)</translation>
    </message>
    <message>
        <source>U&amp;ndo removal</source>
        <translation>撤销移除(&amp;N)</translation>
    </message>
    <message>
        <source>U&amp;ndo change of favorites</source>
        <translation>撤销收藏的更改(&amp;N)</translation>
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
    <message>
        <source>Waiting for the server…</source>
        <translation>正在等待服务器…</translation>
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
<context>
    <name>WelcomePage</name>
    <message>
        <source>Where do your resources come from?</source>
        <translation>您的资源来自哪里？</translation>
    </message>
    <message>
        <source>Themes, filters and backgrounds come from a resource server. Enter the address that you have been given; it can be changed in the settings.</source>
        <translation>主题、滤镜和背景来自资源服务器。请输入您得到的地址；可在设置中更改。</translation>
    </message>
    <message>
        <source>Continue without a server</source>
        <translation>不使用服务器继续</translation>
    </message>
    <message>
        <source>Use this server</source>
        <translation>使用此服务器</translation>
    </message>
    <message>
        <source>Use it anyway</source>
        <translation>仍然使用</translation>
    </message>
</context>
</TS>
