// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DemoWorld.h"

#include "host/HostSettings.h"
#include "host/ProductParam.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

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
    m_tree = sample("server");
    if (!QFileInfo(m_tree).isDir())
        return fail(QStringLiteral("the samples are not there: %1").arg(m_tree));
    if (!DemoShop::program().isEmpty() && QFileInfo(sample("source")).isDir()) {
        m_shop.emplace();
        if (!m_shop->open(sample("source"), folder() + QStringLiteral("/shop")))
            return fail(m_shop->errorText());
        m_tree = m_shop->tree();
    }
    if (!setServer(Server::Answers))
        return false;
    m_serverUrl = m_server.url();
    return true;
}

bool DemoWorld::setServer(Server state)
{
    m_server.setHeld(state == Server::IsSilent);
    if (state == Server::IsStopped) {
        m_server.stop();
        return true;
    }
    const int port = QUrl(m_serverUrl).port(0);
    const bool isRunning = !m_server.url().isEmpty();
    return isRunning || m_server.start(m_tree, static_cast<quint16>(port))
        || fail(m_server.errorText());
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
    settings.productParams.insert(ProductParam::serverRoot, m_serverUrl);
    settings.productParams.insert(ProductParam::moreAddress, m_serverUrl);
    if (m_shop) {
        settings.releasePolicy = eRelease_Require;
        settings.releaseKeys = QStringList{m_shop->publicKey()};
    }
}
