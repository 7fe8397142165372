// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

/// The expected log lines of catalogue checks and preview runs, in the form of DownloadTrace's
/// entries.
namespace CheckLines {

inline QString line(const char* category, int level, const QString& text)
{
    return QStringLiteral("%1 %2: %3").arg(QString::fromLatin1(category)).arg(level).arg(text);
}

inline QString check(int level, const QString& text)
{
    return line("CheckCfgWorker", level, text);
}

inline QString checkXml(const QString& file, int ok)
{
    return line("MVThemeMgr", 1, QStringLiteral("checkXml [%1] is [%2]!").arg(file).arg(ok));
}

inline QString versionUrl(const QString& url)
{
    return line("CheckWorker_CfgAndDisplayXML", 1, QStringLiteral("url_path = [%1]").arg(url));
}

inline QString versionError(const QString& url, const QString& file)
{
    return check(2,
                 QStringLiteral("doWork download EType_XML_resource_version_xml is error!, strUrl "
                                "= %1, strFile = %2")
                     .arg(url, file));
}

inline QString versionCancelled(int level, const QString& url, const QString& file)
{
    return check(level,
                 QStringLiteral("doWork download EType_XML_resource_version_xml, m_bWillCancel = "
                                "true!, strUrl = %1, strFile = %2")
                     .arg(url, file));
}

inline QStringList versionOk(const QString& url, const QString& file)
{
    return {check(2,
                  QStringLiteral("doWork download EType_XML_resource_version_xml is ok!, strUrl = "
                                 "%1, strFile = %2")
                      .arg(url, file)),
            check(2,
                  QStringLiteral("doWork download EType_XML_resource_version_xml, strUrl = %1, "
                                 "strFile = %2")
                      .arg(url, file))};
}

inline QString sums(const char* record, int level, const QByteArray& config,
                    const QByteArray& display)
{
    return check(level,
                 QStringLiteral("%1, m_qsVer_config = %2, m_qsVer_Display = %3")
                     .arg(QString::fromLatin1(record), QString::fromLatin1(config),
                          QString::fromLatin1(display)));
}

inline QString versionFileError(const QString& file)
{
    return line("MVThemeMgr", 1,
                QStringLiteral("getVersionInfo strFile = [%1],is error!").arg(file));
}

inline QString noSums()
{
    return check(2,
                 QStringLiteral("m_sVer_Ser.m_qsVer_config.isEmpty() || "
                                "m_sVer_Ser.m_qsVer_Display.isEmpty(), will return!"));
}

/// One of the three version numbers in a log line, with its flags.
struct Number
{
    int value;
    int ok;
    int has;
};

inline QStringList numbers(Number server, Number download, Number local)
{
    const auto text = [](const char* form, Number number) {
        return line("MVThemeMgr", 2,
                    QString::fromLatin1(form).arg(number.value).arg(number.ok).arg(number.has));
    };
    return {text("nVer_ser [%1] ,bLoadXMLOK [%2], m_hasVersion [%3].", server),
            text("nVer_Download [%1],bLoadXMLOK [%2], m_hasVersion [%3].", download),
            text("nVer_Local [%1],bLoadXMLOK [%2], m_hasVersion [%3].", local)};
}

inline QString newer()
{
    return check(2, QStringLiteral("nVer_ser > nVer_Local, not download, sig_NeedUpdateApp!"));
}

inline QString older()
{
    return check(2, QStringLiteral("nVer_ser < nVer_Local, not download, not sig_NeedUpdateApp!"));
}

inline QString same()
{
    return check(2, QStringLiteral("nVer_ser == nVer_Local, download, not sig_NeedUpdateApp!"));
}

inline QStringList needed(int config, int display)
{
    return {check(2, QStringLiteral("doWork download bNeedUpdate_cfg = %1").arg(config)),
            check(2, QStringLiteral("doWork download bNeedUpdate_display = %1").arg(display))};
}

inline QString fileError(int type, const QString& url, const QString& file)
{
    return QStringLiteral("parseData_xml  download template is error!, sType_XML_Info.eType_XML = "
                          "%1, strUrl = %2, strFile = %3")
        .arg(QString::number(type), url, file);
}

inline QString fileOk(int type, const QString& url, const QString& file)
{
    return QStringLiteral("parseData_xml  download template is ok!, sType_XML_Info.eType_XML = %1, "
                          "strUrl = %2, strFile = %3")
        .arg(QString::number(type), url, file);
}

inline QString hasError(int value)
{
    return line("MVThemeDownLoader_DisplayXML", 1, QStringLiteral("hasError = %1").arg(value));
}

inline QString displayCopied(const QString& file, int ok)
{
    return line("profileDownLoader", 1,
                QStringLiteral("copyTemp2DownLoad path_Display = [%1] is exists, bRet = %2")
                    .arg(file, QString::number(ok)));
}

inline QString configCopied(const QString& file, int ok)
{
    return line("profileDownLoader", 1,
                QStringLiteral("copyTemp2DownLoad path_Config = [%1] is exists, bRet = %2")
                    .arg(file, QString::number(ok)));
}

/// Returns a line of a preview run.
inline QString previews(const QString& text)
{
    return line("CheckWorker_ThumbAndGif", 1, text);
}

/// Returns the line for a preview on disk; `what` is "Thumb" or "Gif".
inline QString previewPresent(const char* what, int i, const QString& url, const QString& file)
{
    return QStringLiteral("sCfg_Item.m_info_%1.m_bDownloaded = true! not need download!, i = %2, "
                          "strUrl = %3, strFile = %4")
        .arg(QString::fromLatin1(what), QString::number(i), url, file);
}

inline QString previewError(const char* what, int i, const QString& url, const QString& file)
{
    return QStringLiteral("parseData_display_xml %1 download template is error! will return!, i = "
                          "%2, strUrl = %3, strFile = %4")
        .arg(QString::fromLatin1(what), QString::number(i), url, file);
}

inline QString previewOk(const char* what, int i, const QString& url, const QString& file)
{
    return QStringLiteral("parseData_display_xml %1 download template is ok!, i = %2, strUrl = %3, "
                          "strFile = %4")
        .arg(QString::fromLatin1(what), QString::number(i), url, file);
}

inline QString previewsCancelled(int point)
{
    return QStringLiteral("CheckCfgWorker_willCancel downloadThumbAndGif m_bWillCancel == true! "
                          "will return![line = %1]")
        .arg(point);
}

} // namespace CheckLines
