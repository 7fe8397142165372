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
    if (!m_folder->isValid()) {
        m_error = m_folder->errorString();
        return false;
    }
    if (!QFileInfo(sample("server")).isDir()) {
        m_error = QStringLiteral("the samples are not there: %1").arg(sample("server"));
        return false;
    }
    if (m_server.start(sample("server")))
        return true;
    m_error = m_server.errorText();
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
}
