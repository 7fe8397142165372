// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ReleaseShop.h"

#include "support/TestTexts.h"

void ReleaseShop::fresh(const Mvres& mvres)
{
    m_world.freshStorage();
    for (const char* const name : {"Themes/t.jpg", "VideoFilters/t.jpg"})
        m_world.put(text("display/") + text(name), "\xff\xd8\xff\xe0 picture");
    m_world.put(text("display/Themes/p.gif"), "GIF89a picture");
    // Unlike the library's defaults, mvres looks at the content.
    for (const int number : {1, 2})
        m_world.change(text("Themes/%1.zip").arg(number).toUtf8().constData(), archive(number));
    for (const int number : {11, 12, 13})
        m_world.change(text("VideoFilters/%1.zip").arg(number).toUtf8().constData(),
                       archive(number));
    m_serial = 100;
    m_world.publishRelease(m_serial);

    m_mvres = mvres;
    m_mvres.set("paths/appData", m_mvres.base() + text("/appdata"));
    m_mvres.setServer(m_world.serverRoot());
    CatalogueFiles::write(m_mvres.installed()
                              + text("/Resource/ResourceConfig/resource_version.xml"),
                          CheckWorld::version("1.0.2", "1", "1"));
    check();
}

Outcome ReleaseShop::run(const char* command, const QVector<int>& items,
                         const QStringList& options) const
{
    QStringList arguments{text(command)};
    for (const int item : items)
        arguments.append(CatalogueFiles::guid(item));
    return run(arguments + options);
}

bool ReleaseShop::fetch(const QVector<int>& items) const
{
    return run("fetch", items).status == 0;
}

void ReleaseShop::change(const char* name, const QByteArray& content)
{
    m_world.change(name, content);
    m_world.publishRelease(++m_serial);
    check();
}

void ReleaseShop::check() const
{
    const Outcome outcome = run({text("check")});
    if (outcome.status != 0 && outcome.status != 20)
        qFatal("the check failed: %s", outcome.err.constData());
}

QString ReleaseShop::file(const char* name) const
{
    return m_mvres.downloadedFile(QLatin1Char('/') + text(name));
}

QByteArray ReleaseShop::content(const char* name) const
{
    return CatalogueFiles::read(file(name));
}

QStringList ReleaseShop::files() const
{
    return CatalogueFiles::filesBelow(m_mvres.downloadedFile(QString()));
}
