// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFile>
#include <QProcess>
#include <QString>
#include <QStringList>

/// A list of files that the curl program fetches in one run: the floor of downloads.
class CurlList
{
public:
    explicit CurlList(const QString& file)
        : m_file(file)
    {
        if (!m_file.open(QIODevice::WriteOnly))
            qFatal("no list for curl");
    }

    void add(const QString& url, const QString& file)
    {
        m_file.write(QStringLiteral("url = \"%1\"\noutput = \"%2\"\n").arg(url, file).toUtf8());
        m_file.flush();
    }

    /// Fetches the files, whose folders are created, `atOnce` at a time. Returns false if one
    /// failed.
    bool fetch(int atOnce, const QStringList& options = QStringList()) const
    {
        QStringList arguments = {QStringLiteral("--no-progress-meter"), QStringLiteral("--fail"),
                                 QStringLiteral("--create-dirs"), QStringLiteral("--config"),
                                 m_file.fileName()};
        if (atOnce > 1) {
            arguments << QStringLiteral("--parallel") << QStringLiteral("--parallel-max")
                      << QString::number(atOnce);
        }
        return QProcess::execute(QStringLiteral("curl"), arguments + options) == 0;
    }

private:
    QFile m_file;
};
