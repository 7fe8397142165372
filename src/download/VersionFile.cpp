// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/VersionFile.h"

#include "catalogue/MVThemeMgr.h"
#include "host/LogL.h"

#include <QDomDocument>
#include <QFileInfo>

void VersionFile::read(const QString& file, SCatalogueVersion& out)
{
    QDomDocument doc;
    if (QFileInfo(file).size() > maxBytes || !MVThemeMgr::init()->checkXml(file, doc)) {
        LogL("MVThemeMgr", 1, "getVersionInfo strFile = [%s],is error!", file.toUtf8().constData());
        out = SCatalogueVersion::none();
        return;
    }
    const QString value = QStringLiteral("value");
    const QDomElement root = doc.documentElement();
    out.bLoadXMLOK = true;
    out.m_hasVersion = root.hasAttribute(value);
    out.m_qsVersion = root.attribute(value);
    const auto read = [&](const QString& tag, QString& checksum) {
        const QDomElement element = root.firstChildElement(tag);
        if (!element.isNull())
            checksum = element.attribute(value).toLower();
    };
    read(QStringLiteral("dislplay"), out.m_qsVer_Display);
    read(QStringLiteral("config"), out.m_qsVer_config);
}
