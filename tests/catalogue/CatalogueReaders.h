// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "CatalogueFixture.h"

#include <QDomDocument>

/// Offers every reader of files from a server or from disk through one call.
class CatalogueReaders
{
public:
    enum Reader {
        config,
        display,
        themeConfig,
        version,
        themeCollect,
        filterCollect,
        bgMaterialCollect,
        themeType,
    };
    static constexpr int firstJson = themeCollect;
    static constexpr int count = themeType + 1;

    static const char* name(int reader)
    {
        static const char* const names[] = {
            "config",       "display",       "theme config",      "version",
            "ThemeCollect", "FilterCollect", "BgMaterialCollect", "ThemeType"};
        return names[reader];
    }

    explicit CatalogueReaders(const CatalogueFixture& fixture)
        : m_fixture(fixture)
    {
    }

    QString path(int reader) const
    {
        switch (reader) {
        case config:
            return m_fixture.configXml();
        case display:
            return m_fixture.displayXml();
        case themeConfig:
            return m_fixture.root() + QStringLiteral("/Themes/config/PQD/Download/theme.xml");
        case version:
            return MVThemeMgr::init()->Path_resource_version_xml(MVThemeMgr::eLoadDir_Download);
        case themeType:
            return m_fixture.themeTypeFile();
        default:
            return m_fixture.collectFile(name(reader));
        }
    }

    /// Reads the file as it is; returns true if the reader accepts it.
    bool takesFile(int reader) const
    {
        MVThemeMgr& manager = *MVThemeMgr::init();
        const LogCapture log;
        QDomDocument doc;
        SThemes_a* theme = nullptr;
        switch (reader) {
        case config:
            manager.read_resource_config_xml();
            break;
        case display:
            manager.read_resource_display_xml();
            break;
        case themeConfig:
            manager.read_resource_config_Themes_a(path(reader), theme);
            break;
        case version:
            manager.checkXml(path(reader), doc);
            break;
        case themeCollect:
            manager.readThemeCollect();
            break;
        case filterCollect:
            manager.readFilterCollect();
            break;
        case bgMaterialCollect:
            manager.readBgMaterialCollect();
            break;
        default:
            manager.readThemeType();
            break;
        }
        return reader < firstJson
            ? log.countContaining("checkXml [" + path(reader).toUtf8() + "] is [1]!") == 1
            : log.countContaining("error!") == 0;
    }

    /// Writes the file, then reads it; returns true if the reader accepts it.
    bool takes(int reader, const QByteArray& content) const
    {
        CatalogueFiles::write(path(reader), content);
        return takesFile(reader);
    }

    /// Returns a file of several hundred bytes that the reader accepts.
    static QByteArray valid(int reader)
    {
        const QByteArray guid = CatalogueFiles::guid(1).toLatin1();
        QByteArray items;
        for (int i = 0; i < 5; ++i)
            items += "<Item><GUID>" + guid
                + "</GUID><UrlCnf>/a.xml</UrlCnf><UrlResource><Url>"
                  "a.zip</Url></UrlResource><Name>Sea</Name></Item>";
        switch (reader) {
        case config:
        case display:
            return CatalogueFiles::document("<Filter>" + items + "</Filter>").trimmed();
        case themeConfig:
            return CatalogueFiles::document(items).trimmed();
        case version:
            return CatalogueFiles::document("<Version>1.0.2</Version>" + items).trimmed();
        default:
            break;
        }
        QByteArray keys;
        for (int i = 0; i < 10; ++i)
            keys += '"' + CatalogueFiles::guid(i).toLatin1() + "\": true, ";
        return "{" + keys + "\"travel\": [\"" + guid + "\"]}";
    }

private:
    const CatalogueFixture& m_fixture;
};
