// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QtGlobal>

/// Creates pipes, links and other unusual files.
namespace UnusualFiles {

/// Tell whether folders can contain pipes, and whether links can lead to files or to nothing. On
/// Windows only folders are linked, by junctions, since other links need an administrator.
#ifdef Q_OS_WIN
constexpr bool hasPipes = false;
constexpr bool hasFileLinks = false;
#else
constexpr bool hasPipes = true;
constexpr bool hasFileLinks = true;
#endif

/// Makes a pipe that nobody writes; ends the program if that fails.
void makePipe(const QString& path);

/// Return the names of a device that is always empty and of one without an end, which Windows
/// lacks.
QString emptyDevice();
QString endlessDevice();

/// Returns whether link() can lead to that target.
bool canLinkTo(const QString& target, const QString& path);
/// Makes the link `path`, on Windows a junction. A relative target begins at the link's folder.
/// Returns whether the link exists.
bool link(const QString& target, const QString& path);
/// Returns whether the path is a link, on Windows also a junction.
bool isLink(const QString& path);
/// Returns whether the system can remove a link to a folder. Wine removes an empty target instead.
bool canRemoveLinks();
/// Removes a link, also where canRemoveLinks() is false.
void unlink(const QString& path);
/// Returns whether the system reports that an open file has lost its name. Wine does not.
bool tellsRemoved();

} // namespace UnusualFiles

/// Makes a link in a test function, which is skipped where the system lacks links to that target.
#define MV_LINK(target, path)                                                                      \
    do {                                                                                           \
        if (!UnusualFiles::canLinkTo(target, path))                                                \
            QSKIP("This system links folders only.");                                              \
        QVERIFY(UnusualFiles::link(target, path));                                                 \
    } while (false)
