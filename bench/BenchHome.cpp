// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BenchHome.h"

#include "host/HostSettings.h"
#include "host/LogL.h"

BenchHome::BenchHome()
{
    if (!m_dir.isValid())
        qFatal("no temporary folder: %s", qPrintable(m_dir.errorString()));
    HostSettings& settings = hostSettings();
    settings.resourcesPath = m_dir.path() + QStringLiteral("/installed");
    settings.dataLocation = m_dir.path() + QStringLiteral("/data");
    settings.appDataPath = m_dir.path() + QStringLiteral("/appdata");
    setLogSink([](const QByteArray&, int, const QByteArray&) {});
}
