// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "Download.h"

// Building blocks of a download that breaks and resumes: a file of 1000 bytes in two versions.

constexpr int whole = 1000;
constexpr int half = 400;
inline const QByteArray tag = "\"v1\"";
inline const QByteArray date = "Wed, 21 Oct 2015 07:28:00 GMT";
inline const QByteArray laterDate = "Thu, 22 Oct 2015 07:28:00 GMT";

inline QByteArray oldVersion()
{
    return pattern(whole, 1);
}

inline QByteArray newVersion()
{
    return pattern(whole, 2);
}

/// Sends half of the old version, then breaks; one field identifies the version.
inline HttpAnswer firstHalf(const QByteArray& field, const QByteArray& value)
{
    return HttpAnswer(200)
        .field(field, value)
        .field("Content-Length", QByteArray::number(whole))
        .bareBody(oldVersion().left(half));
}

inline QByteArray contentRange(int from, const QByteArray& total = "1000", int last = whole - 1)
{
    return "bytes " + QByteArray::number(from) + '-' + QByteArray::number(last) + '/' + total;
}

/// Sends the requested rest of a version, from a byte on.
inline HttpAnswer rest(const QByteArray& version = oldVersion(), int from = half)
{
    return HttpAnswer(206).field("Content-Range", contentRange(from)).body(version.mid(from));
}

inline HttpAnswer wholeNewVersion()
{
    return HttpAnswer(200).field("ETag", "\"v2\"").body(newVersion());
}

/// Sends the new version. A resumable download never asks for it; if it does, it started over.
inline FaultServer::Handler newVersionForEverybody()
{
    return answering(wholeNewVersion());
}
