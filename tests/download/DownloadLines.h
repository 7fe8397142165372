// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/TransfersSideBySide.h"

#include <QMap>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

/// The expected log lines of item downloads.
namespace DownloadLines {

inline QString start()
{
    return QStringLiteral("MVThemeDownLoader::run() start!");
}

inline QString end()
{
    return QStringLiteral("MVThemeDownLoader::run() end!");
}

inline QString cancelled(int point)
{
    return QStringLiteral("m_bWillCancel == true! will return![line = %1]").arg(point);
}

inline QString noUrl()
{
    return QStringLiteral("download file, but url is empty.");
}

inline QString noPath()
{
    return QStringLiteral("download file path is empty.");
}

inline QString configStart(const QString& url, const QString& file)
{
    return QStringLiteral("start download template(theme cfg xml), m_strUrl = %1, m_strFile = %2")
        .arg(url, file);
}

inline QString configOk(const QString& url, const QString& file)
{
    return QStringLiteral("download template is ok!(theme cfg xml), m_strUrl = %1, m_strFile = %2")
        .arg(url, file);
}

inline QString configError(const QString& url, const QString& file, int result)
{
    return QStringLiteral("download template is error!(theme cfg xml),m_strUrl = %1, "
                          "m_strFile = %2, m_CurWrapper.result() = %3")
        .arg(url, file, QString::number(result));
}

inline QString taken(int index, const QString& file)
{
    return QStringLiteral("thread id = [0], index = [%1], download file = [%2], start Download!")
        .arg(QString::number(index), file);
}

inline QString released(int index, const QString& file)
{
    return QStringLiteral("thread id = [0], index = [%1], download file = [%2], end Download!")
        .arg(QString::number(index), file);
}

inline QString fileStart(int index, const QString& url, const QString& file)
{
    return QStringLiteral("start download template, i = %1, m_strUrl = %2, m_strFile = %3")
        .arg(QString::number(index), url, file);
}

inline QString fileOk(int index, const QString& url, const QString& file)
{
    return QStringLiteral("download template is ok!, i = %1, m_strUrl = %2, m_strFile = %3")
        .arg(QString::number(index), url, file);
}

inline QString fileError(int index, const QString& url, const QString& file, int result)
{
    return QStringLiteral("download template is error!, i = %1, m_strUrl = %2, m_strFile = %3, "
                          "m_CurWrapper.result() = %4")
        .arg(QString::number(index), url, file, QString::number(result));
}

inline QString waiting(int index, const QString& file)
{
    return QStringLiteral("thread id = [0], index = [%1], download file = [%2], start "
                          "Download!,and it is downloading!")
        .arg(QString::number(index), file);
}

inline QString waited(int index, const QString& file)
{
    return QStringLiteral("thread id = [0], index = [%1], download file = [%2], end "
                          "Download!,and it is downloading!")
        .arg(QString::number(index), file);
}

inline QString mirrored(int index, const QString& file, qint64 received, qint64 total,
                        const QString& progress)
{
    return QStringLiteral("downloadProgressCallback_a_downloading, thread id = [0], index = [%1], "
                          "download file = [%2], nDownloaded = [%3], nAll = [%4], progress = "
                          "[%5]!,and it is downloading!")
        .arg(QString::number(index), file, QString::number(received), QString::number(total),
             progress);
}

/// Returns the lines of a download without a theme config to fetch, up to its first file.
inline QStringList simulatedPhase()
{
    QStringList lines(start());
    for (int value = 0; value <= 10; ++value)
        lines.append(QStringLiteral("progress %1").arg(value));
    return lines;
}

/// Returns the lines of a whole download that has nothing to fetch.
inline QStringList emptyRun()
{
    return simulatedPhase() << QStringLiteral("finish 5") << end();
}

/// Returns the index of the file that a line is about; -1 if it is about none.
inline int indexOf(const QString& line)
{
    static const QRegularExpression form(
        QStringLiteral("index = \\[(\\d+)\\]|template.*, i = (\\d+),"));
    const QRegularExpressionMatch match = form.match(line);
    if (!match.hasMatch())
        return -1;
    return (match.captured(1).isEmpty() ? match.captured(2) : match.captured(1)).toInt();
}

/// Returns the entries of a download in a form that does not depend on the order in which files
/// end: unchanged with one transfer at a time; with several, the lines of each file in order of the
/// files, without the progress of the files.
inline QStringList comparable(const QStringList& entries)
{
    if (!TransfersSideBySide::isOn())
        return entries;
    const auto isOfFiles = [](const QString& entry) {
        return entry.startsWith(QStringLiteral("progress "))
            && entry.section(QLatin1Char(' '), 1).toDouble() > 10;
    };
    QStringList before;
    QMap<int, QStringList> files; // by index
    QStringList after;
    int last = -1;
    for (const QString& entry : entries) {
        if (isOfFiles(entry))
            continue;
        const bool continues = entry == noUrl() || entry == noPath();
        last = continues ? last : indexOf(entry);
        if (last >= 0)
            files[last].append(entry);
        else
            (files.isEmpty() ? before : after).append(entry);
    }
    for (const QStringList& lines : qAsConst(files))
        before += lines;
    return before + after;
}

} // namespace DownloadLines

/// Leaves out a test of what only a download in order does; `counterpart` tests the same of one
/// that fetches several files at a time.
#define MV_SKIP_SIDE_BY_SIDE(reason, counterpart)                                                  \
    do {                                                                                           \
        if (TransfersSideBySide::isOn())                                                           \
            QSKIP(reason "; see " counterpart);                                                    \
    } while (false)
