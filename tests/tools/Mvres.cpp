// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvres.h"

#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>

namespace {

#ifdef Q_OS_WIN
#elif defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
const QString memoryLimit = QStringLiteral("ulimit -v unlimited");
#else
const QString memoryLimit = QStringLiteral("ulimit -v 1000000"); // KiB
#endif

int runs = 0;

} // namespace

Mvres::Mvres()
    : m_base(TestHome::path() + QStringLiteral("/run%1").arg(++runs))
    , m_installed(m_base + QStringLiteral("/installed"))
{
    QDir().mkpath(m_installed);
    set("paths/resources", m_installed);
    set("paths/data", data());
    set("network/retryPauseMs", QStringLiteral("1"));
}

void Mvres::useSamples()
{
    m_installed = samples() + QStringLiteral("/installed");
    set("paths/resources", m_installed);
}

void Mvres::set(const char* key, const QString& value)
{
    m_settings.insert(QString::fromLatin1(key), value);
}

QStringList Mvres::arguments(const QStringList& own) const
{
    return QStringList{QStringLiteral("--settings"), settingsFile(), QStringLiteral("--root"),
                       root()}
    + own;
}

Outcome Mvres::run(const QStringList& own) const
{
    QProcess process;
    start(process, own);
    return ConsoleProgram::end(process);
}

Outcome Mvres::runLimited(const QStringList& own) const
{
#ifdef Q_OS_WIN
    return run(own); // nobody waits for pipes there
#else
    writeSettings();
    QProcess process;
    const QString command = memoryLimit + QStringLiteral(" && exec timeout 40 \"$0\" \"$@\"");
    process.start(QStringLiteral("/bin/sh"),
                  QStringList{QStringLiteral("-c"), command, program()} + arguments(own));
    return ConsoleProgram::end(process);
#endif
}

void Mvres::start(QProcess& process, const QStringList& own) const
{
    writeSettings();
    process.start(program(), arguments(own));
}

QStringList Mvres::downloaded() const
{
    return CatalogueFiles::filesBelow(root());
}

QString Mvres::downloadedFile(const QString& name) const
{
    return root() + QStringLiteral("/Themes/config/PQD/Download") + name;
}

QString Mvres::program()
{
    return QStringLiteral(MVRES_PROGRAM);
}

QString Mvres::samples()
{
    return QStringLiteral(MV_SAMPLES);
}

void Mvres::writeSettings() const
{
    QByteArray content;
    for (auto it = m_settings.cbegin(); it != m_settings.cend(); ++it) {
        const QString section = it.key().section(QLatin1Char('/'), 0, 0);
        const QString key = it.key().section(QLatin1Char('/'), 1);
        content += QStringLiteral("[%1]\n%2=%3\n").arg(section, key, it.value()).toUtf8();
    }
    CatalogueFiles::write(settingsFile(), content);
}
