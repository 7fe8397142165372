// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "WatchedRclone.h"

#include "support/CatalogueFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <utility>

namespace {

const char script[] = R"(#!/bin/sh
here=$(dirname "$0")
echo "$*" >> "$here/commands"
names=
for argument; do
    case $argument in --files-from-raw=*) names=${argument#*=} ;; esac
done
case "$1 $3" in
copy\ */fetched) ;;
copy\ *)
    cat "$names" >> "$here/sent"
    if [ -s "$here/stop" ] && grep -qxF -f "$here/stop" "$names"; then
        : > "$here/stopped"
        while [ ! -e "$here/go" ]; do sleep 0.02; done
    fi ;;
esac
exec %1 "$@"
)";

} // namespace

WatchedRclone::WatchedRclone(QString folder)
    : m_folder(std::move(folder))
{
    QDir(m_folder).removeRecursively();
    const QString program = QStandardPaths::findExecutable(QStringLiteral("rclone"));
    CatalogueFiles::write(file("rclone"), QString::fromLatin1(script).arg(program).toUtf8());
    QFile::setPermissions(file("rclone"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void WatchedRclone::stopAt(const QString& name) const
{
    CatalogueFiles::write(file("stop"), name.toUtf8() + '\n');
}

bool WatchedRclone::hasStopped() const
{
    return QFileInfo::exists(file("stopped"));
}

void WatchedRclone::goOn() const
{
    CatalogueFiles::write(file("go"), QByteArray());
}

QStringList WatchedRclone::commands() const
{
    return lines("commands");
}

QStringList WatchedRclone::sent() const
{
    return lines("sent");
}

QStringList WatchedRclone::lines(const char* name) const
{
    return QString::fromUtf8(CatalogueFiles::read(file(name)))
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QProcessEnvironment WatchedRclone::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString path = QStringLiteral("PATH");
    environment.insert(path, m_folder + QLatin1Char(':') + environment.value(path));
    return environment;
}

QString WatchedRclone::file(const char* name) const
{
    return m_folder + QLatin1Char('/') + QString::fromLatin1(name);
}
