<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CellAccessible</name>
    <message>
        <source>Download and apply</source>
        <translation>下载并应用</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>Show details</source>
        <translation>显示详细信息</translation>
    </message>
    <message>
        <source>Cancel the download</source>
        <translation>取消下载</translation>
    </message>
</context>
<context>
    <name>CellText</name>
    <message>
        <source>favourite</source>
        <translation>收藏</translation>
    </message>
    <message>
        <source>current</source>
        <translation>当前</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>第 %1 项，共 %2 项</translation>
    </message>
    <message>
        <source>on disk</source>
        <translation>已在本机</translation>
    </message>
    <message>
        <source>not downloaded</source>
        <translation>未下载</translation>
    </message>
    <message>
        <source>update available</source>
        <translation>有更新</translation>
    </message>
    <message>
        <source>downloading, %1 %</source>
        <translation>正在下载，%1 %</translation>
    </message>
    <message>
        <source>download failed</source>
        <translation>下载失败</translation>
    </message>
    <message>
        <source>new</source>
        <translation>新</translation>
    </message>
    <message>
        <source>festivals</source>
        <translation>节日</translation>
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
        <translation>至少 %1</translation>
    </message>
</context>
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
    <message>
        <source>Click to cancel the download</source>
        <translation>单击以取消下载</translation>
    </message>
</context>
<context>
    <name>STransferFailure</name>
    <message>
        <source>the disk is full</source>
        <translation>磁盘已满</translation>
    </message>
    <message>
        <source>no permission to write the file</source>
        <translation>没有写入文件的权限</translation>
    </message>
    <message>
        <source>the file cannot be written</source>
        <translation>无法写入文件</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>无法连接服务器</translation>
    </message>
    <message>
        <source>the connection to the server was lost</source>
        <translation>与服务器的连接已中断</translation>
    </message>
    <message>
        <source>the file is not on the server</source>
        <translation>服务器上没有该文件</translation>
    </message>
    <message>
        <source>the server reports an error</source>
        <translation>服务器报告了错误</translation>
    </message>
    <message>
        <source>the file has no usable address</source>
        <translation>文件没有可用的地址</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>文件过大</translation>
    </message>
    <message>
        <source>the file on the server is damaged</source>
        <translation>服务器上的文件已损坏</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>已取消</translation>
    </message>
</context>
</TS>
