// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// CheckWorker_CfgAndDisplayXML: paths of the catalogue files.

#include "catalogue/MVThemeMgr.h"
#include "download/CheckWorker_CfgAndDisplayXML.h"
#include "download/VersionFile.h"
#include "host/AppOptions.h"
#include "host/LogL.h"
#include "host/ProductParam.h"

#include <QDir>
#include <QDomDocument>
#include <QFileInfo>
#include <QStringList>

#include <mutex>

namespace {

constexpr int versionParts = 3;

// Static objects of the library, not of the function: a check may outlive what main() has created.
std::mutex rootMutex; // guards rootInUse
QString rootInUse;

struct ServerNames
{
    const char* version;
    const char* display;
};

/// Returns the catalogue file names of a partner edition; null names for the standard edition.
ServerNames namesOfEdition()
{
    const AppOptions* const options = AppOptions::instance();
    const ServerNames german = {"resource_version_aff_de_v2.xml", "resource_display_aff_de.xml"};
    const ServerNames partner = {"resource_version_aff_v2.xml", "resource_display_aff.xml"};
    if (options->isPartnerEdition4())
        return german;
    if (options->isPartnerEdition1())
        return partner;
    if (options->isPartnerEdition3())
        return german;
    if (options->isPartnerEdition5())
        return partner;
    if (options->isPartnerEdition2())
        return {"resource_version_v2.xml", "resource_display.xml"};
    return {nullptr, nullptr};
}

QString serverFolder(EType_XML type)
{
    switch (type) {
    case EType_XML_resource_version_xml:
    case EType_XML_resource_display_xml:
    case EType_XML_resource_config_xml:
        return QStringLiteral("/ResourceConfig/");
    case EType_XML_VideoFilters_xml:
        return QStringLiteral("/config/VideoFilters/");
    case EType_XML_Transitions_xml:
        return QStringLiteral("/config/Transitions/");
    case EType_XML_Motions_xml:
        return QStringLiteral("/config/Motions/");
    }
    return QString();
}

QString logged(const char* format, const QString& url)
{
    LogL("CheckWorker_CfgAndDisplayXML", 1, format, url.toUtf8().constData());
    return url;
}

} // namespace

QString CheckWorker_CfgAndDisplayXML::EType_XML2Str(EType_XML type)
{
    switch (type) {
    case EType_XML_resource_version_xml:
        return QStringLiteral("resource_version.xml");
    case EType_XML_resource_display_xml:
        return QStringLiteral("resource_display.xml");
    case EType_XML_resource_config_xml:
        return QStringLiteral("resource_config.xml");
    case EType_XML_VideoFilters_xml:
        return QStringLiteral("VideoFilters.xml");
    case EType_XML_Transitions_xml:
        return QStringLiteral("Transitions.xml");
    case EType_XML_Motions_xml:
        return QStringLiteral("Motions.xml");
    }
    return QString();
}

QString CheckWorker_CfgAndDisplayXML::getSerThemeRootDir()
{
    const std::lock_guard<std::mutex> lock(rootMutex);
    if (rootInUse.isEmpty())
        rootInUse = ProductParam::text(ProductParam::serverRoot);
    return rootInUse;
}

QString CheckWorker_CfgAndDisplayXML::getSerThemeXMLPath(EType_XML type)
{
    const QString folder = getSerThemeRootDir() + serverFolder(type);
    const ServerNames names = namesOfEdition();
    if (type == EType_XML_resource_version_xml) {
        if (!names.version)
            return logged("url_path = [%s]", folder + QStringLiteral("resource_version_v3.xml"));
        return logged(" is Cus, url_path = [%s]", folder + QString::fromLatin1(names.version));
    }
    if (type == EType_XML_resource_display_xml && names.display)
        return logged("is Cus, url_path = [%s]", folder + QString::fromLatin1(names.display));
    return folder + EType_XML2Str(type);
}

QString CheckWorker_CfgAndDisplayXML::getDownLoadTemp()
{
    return AppOptions::instance()->appDataPath() + QStringLiteral("/MVTheme/DownloadTemp/");
}

QString CheckWorker_CfgAndDisplayXML::getSerDownLoadTemp_ThemeImgGif()
{
    QString folder = getDownLoadTemp() + QStringLiteral("ThemeImgGif/");
    QDir().mkpath(folder);
    return folder;
}

QString CheckWorker_CfgAndDisplayXML::getDownLoad_XML_Temp(EType_XML type, bool temp)
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    const QString folder = temp ? getDownLoadTemp()
                                : manager->Path_resource_RootDir(MVThemeMgr::eLoadDir_Download)
            + QStringLiteral("/ResourceConfig/");
    if (temp || manager->isDownloadPath(folder))
        AppOptions::instance()->ensureDirExists(folder);
    return QFileInfo(folder).isDir() ? folder + QLatin1Char('/') + EType_XML2Str(type) : QString();
}

void CheckWorker_CfgAndDisplayXML::getVersionInfo(const QString& file, SVersion& out)
{
    VersionFile::read(file, out);
}

int CheckWorker_CfgAndDisplayXML::readVersionFromXML(QString file)
{
    QDomDocument doc;
    if (!MVThemeMgr::init()->checkXml(file, doc)) {
        LogL("MVThemeDownLoader_DisplayXML", 1, "parseData setContent is error!");
        return 0;
    }
    const QStringList parts = doc.documentElement()
                                  .firstChildElement(QStringLiteral("Theme"))
                                  .attribute(QStringLiteral("Version"))
                                  .split(QLatin1Char('.'));
    if (parts.size() != versionParts)
        return 0;
    int number = 0;
    for (const QString& part : parts)
        number = number * 10 + part.toInt();
    return number;
}
