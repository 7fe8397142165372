// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// MVThemeMgr: reading the config catalogue, and the single function that opens XML files.

#include "catalogue/MVThemeMgr.h"
#include "catalogue/XmlFile.h"
#include "host/LogL.h"
#include "records/KindTable.h"

#include <QDomDocument>
#include <QFile>

bool MVThemeMgr::checkXml(const QString& path, QDomDocument& doc)
{
    const bool ok = XmlFile::parse(path, doc);
    LogL("MVThemeMgr", 1, "checkXml [%s] is [%d]!", path.toUtf8().constData(), ok ? 1 : 0);
    return ok;
}

/// Reads a catalogue file, from the download tree or else the installed one.
bool MVThemeMgr::readCatalogue(EDirTag half, QDomDocument& doc)
{
    const QString downloaded = Path_resource_xml(eLoadDir_Download, half);
    if (checkXml(downloaded, doc))
        return true;
    m_bStandIn = m_bStandIn || QFile::exists(downloaded);
    return checkXml(Path_resource_xml(eLoadDir_Local, half), doc);
}

void MVThemeMgr::read_resource_config_xml()
{
    QDomDocument doc;
    if (!readCatalogue(eDirTag_Config, doc)) {
        LogL("MVThemeMgr", 1, "read_resource_config_xml is error!");
        return;
    }
    QDomElement root = doc.documentElement();
    for (const SKindInfo& kind : KindTable::all()) {
        read_resource_config_xml_a(root, kind.type, kind.name, *m_sCfgXML.ofKind(kind.type));
        XmlFile::release(root, kind.name);
    }
}

void MVThemeMgr::read_resource_config_xml_a(const QDomElement& root, ECfgItemType k,
                                            QString groupName, QVector<SCfg_Item>& out)
{
    const QString itemTag = QStringLiteral("Item");
    const QString urlTag = QStringLiteral("Url");
    const QDomElement group = root.firstChildElement(groupName);
    for (QDomElement element = group.firstChildElement(itemTag); !element.isNull();
         element = element.nextSiblingElement(itemTag)) {
        SCfg_Item item;
        item.m_eType = k;
        item.m_qsGUID = element.firstChildElement(QStringLiteral("GUID")).text();
        item.m_info_CfgXML.m_qsUrl = element.firstChildElement(QStringLiteral("UrlCnf")).text();
        const QDomElement resources = element.firstChildElement(QStringLiteral("UrlResource"));
        for (QDomElement url = resources.firstChildElement(urlTag); !url.isNull();
             url = url.nextSiblingElement(urlTag)) {
            SFileInfo resource;
            resource.m_qsUrl = url.text();
            item.m_vecResource.append(std::move(resource));
        }
        out.append(std::move(item));
    }
}
