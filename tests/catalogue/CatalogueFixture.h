// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/MVThemeMgr.h"
#include "host/HostSettings.h"
#include "support/CatalogueFiles.h"
#include "support/LogCapture.h"
#include "support/TestMain.h"

#include <QDir>
#include <QDirIterator>

/// The test program's catalogue, with separate folders for every test function.
///
/// The catalogue is a singleton, so its state is reset: its items, the favourites (their files hold
/// an empty object) and the host's settings. Call fresh() from init().
class CatalogueFixture
{
public:
    using Manager = MVThemeMgr;

    /// Creates new folders and an empty catalogue, and sets and populates the root.
    void fresh()
    {
        m_base = TestHome::path() + QStringLiteral("/run%1").arg(++m_run);
        hostSettings() = HostSettings();
        hostSettings().resourcesPath = installed();
        hostSettings().dataLocation = data();
        hostSettings().appDataPath = m_base + QStringLiteral("/appdata");
        hostSettings().testOutputDir = m_base + QStringLiteral("/testoutput");
        QDir().mkpath(installed());
        for (const char* name : {"ThemeCollect", "FilterCollect", "BgMaterialCollect"})
            CatalogueFiles::write(collectFile(name), "{}");
        manager().clear();
        manager().readThemeCollect();
        manager().readFilterCollect();
        manager().readBgMaterialCollect();
        manager().setResourceSaveRootPath(root());
    }

    static MVThemeMgr& manager() { return *MVThemeMgr::init(); }

    /// Returns the folder that holds everything of the current test function.
    QString base() const { return m_base; }
    QString root() const { return m_base + QStringLiteral("/root"); }
    QString installed() const { return m_base + QStringLiteral("/installed"); }
    QString data() const { return m_base + QStringLiteral("/data"); }

    /// Returns the favourites file in the folder of the same name.
    QString collectFile(const char* name) const
    {
        const QString folder = QString::fromLatin1(name);
        return data() + QLatin1Char('/') + folder + QLatin1Char('/') + folder
            + QStringLiteral(".json");
    }

    static void setParam(const char* key, const char* value)
    {
        hostSettings().productParams.insert(QString::fromLatin1(key), QString::fromUtf8(value));
    }

    QString configXml(Manager::ELoadDir d = Manager::eLoadDir_Download) const
    {
        return catalogueFile(d, "resource_config.xml");
    }
    QString displayXml(Manager::ELoadDir d = Manager::eLoadDir_Download) const
    {
        return catalogueFile(d, "resource_display.xml");
    }
    QString themeTypeFile(Manager::ELoadDir d = Manager::eLoadDir_Download) const
    {
        return catalogueFile(d, "ThemeType.json");
    }

    /// Returns an item file's path in the download tree from half ("config" or "display"), kind and
    /// name.
    QString downloaded(const char* half, const char* kind, const QString& name) const
    {
        return root() + QStringLiteral("/Themes/%1/PQD/Download/%2/").arg(text(half), text(kind))
            + name;
    }
    /// Returns the same path in the installed tree, with the two slashes of its config half.
    QString installedFile(const char* half, const char* kind, const QString& name) const
    {
        const QString tag = text(half) == QLatin1String("config") ? QString() : text(half);
        return installed() + QStringLiteral("/Resource/%1/%2/").arg(tag, text(kind)) + name;
    }

    /// Returns all folders and files below `folder`, relative to it and sorted; folders end with
    /// "/".
    static QStringList entriesBelow(const QString& folder)
    {
        QStringList entries;
        QDirIterator it(folder,
                        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString name = QDir(folder).relativeFilePath(it.next());
            const bool isFolder = it.fileInfo().isDir() && !it.fileInfo().isSymLink();
            entries.append(isFolder ? name + QLatin1Char('/') : name);
        }
        entries.sort();
        return entries;
    }

    /// Returns everything beside the root: the part of the disk that no catalogue may touch.
    QStringList entriesOutsideRoot() const
    {
        QStringList entries = entriesBelow(base());
        entries.erase(std::remove_if(entries.begin(), entries.end(),
                                     [](const QString& entry) {
                                         return entry.startsWith(QLatin1String("root/"));
                                     }),
                      entries.end());
        return entries;
    }

    /// Formats a log line as described() does.
    static QByteArray line(int level, const QByteArray& text,
                           const QByteArray& category = QByteArrayLiteral("MVThemeMgr"))
    {
        return category + ' ' + QByteArray::number(level) + ": " + text;
    }
    /// Returns all captured lines, in order, with category and level.
    static QByteArrayList described(const LogCapture& log)
    {
        QByteArrayList result;
        const QVector<LogCapture::Line> lines = log.lines();
        for (const LogCapture::Line& captured : lines)
            result.append(line(captured.level, captured.text, captured.category));
        return result;
    }
    /// Returns the log line of one attempt to read an XML file.
    static QByteArray checked(const QString& path, int ok)
    {
        return line(1, "checkXml [" + path.toUtf8() + "] is [" + QByteArray::number(ok) + "]!");
    }

private:
    static QString text(const char* latin1) { return QString::fromLatin1(latin1); }

    QString catalogueFile(Manager::ELoadDir d, const char* name) const
    {
        return (d == Manager::eLoadDir_Local ? installed() + QStringLiteral("/Resource")
                                             : root() + QStringLiteral("/Themes"))
            + QStringLiteral("/ResourceConfig/") + text(name);
    }

    QString m_base;
    int m_run = 0;
};

/// Returns the GUIDs of catalogue records in order, for comparison.
inline QStringList guidsOf(const QVector<SCfg_Item>& items)
{
    QStringList guids;
    for (const SCfg_Item& item : items)
        guids.append(item.m_qsGUID);
    return guids;
}
