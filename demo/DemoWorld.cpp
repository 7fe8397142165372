// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DemoWorld.h"

#include "host/HostSettings.h"
#include "host/ProductParam.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

QString sample(const char* name)
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath()
                           + QStringLiteral("/" MV_SAMPLES_FROM_BIN "/")
                           + QString::fromLatin1(name));
}

} // namespace

bool DemoWorld::start()
{
    m_folder.emplace();
    if (!m_folder->isValid())
        return fail(m_folder->errorString());
    QString tree = sample("server");
    if (!QFileInfo(tree).isDir())
        return fail(QStringLiteral("the samples are not there: %1").arg(tree));
    if (!DemoShop::program().isEmpty() && QFileInfo(sample("source")).isDir()) {
        m_shop.emplace();
        if (!m_shop->open(sample("source"), folder() + QStringLiteral("/shop")))
            return fail(m_shop->errorText());
        tree = m_shop->tree();
    }
    return m_server.start(tree) || fail(m_server.errorText());
}

bool DemoWorld::fail(const QString& error)
{
    m_error = error;
    return false;
}

void DemoWorld::describe(HostSettings& settings) const
{
    settings.resourcesPath = sample("installed");
    settings.testOutputDir = sample("testoutput");
    settings.dataLocation = folder() + QStringLiteral("/data");
    settings.appDataPath = folder() + QStringLiteral("/work");
    settings.productParams.insert(ProductParam::serverRoot, m_server.url());
    settings.productParams.insert(ProductParam::moreAddress, m_server.url());
    if (m_shop) {
        settings.releasePolicy = eRelease_Require;
        settings.releaseKeys = QStringList{m_shop->publicKey()};
    }
}
