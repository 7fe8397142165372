// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/UnusualFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

#include <windows.h>

namespace {

/// Returns the folder that a target is, seen from the link's folder; empty for anything else.
QString folderOf(const QString& target, const QString& path)
{
    const QFileInfo folder(QFileInfo(path).absoluteDir(), target);
    return folder.isDir() ? QDir::cleanPath(folder.absoluteFilePath()) : QString();
}

/// Returns a function of wine; null on Windows.
template <class Function>
Function ofWine(const wchar_t* library, const char* name)
{
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(library), name)));
}

bool isWine()
{
    using Version = const char*(CDECL*)();
    return ofWine<Version>(L"ntdll", "wine_get_version") != nullptr;
}

/// Returns the path as programs of the system around wine know it.
QString outsideWine(const QString& path)
{
    using ToUnix = char*(CDECL*)(const wchar_t*);
    const auto toUnix = ofWine<ToUnix>(L"kernel32", "wine_get_unix_file_name");
    char* const name = toUnix(QDir::toNativeSeparators(path).toStdWString().c_str());
    const QString result = QString::fromUtf8(name);
    ::HeapFree(::GetProcessHeap(), 0, name);
    return result;
}

/// Starts a program of the system around wine, whose end nobody can wait for.
void startOutsideWine(const QString& line)
{
    std::wstring command = line.toStdWString();
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION process = {};
    ::CreateProcessW(nullptr, &command[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                     &process);
}

} // namespace

void UnusualFiles::makePipe(const QString& path)
{
    qFatal("no pipe %s", qPrintable(path));
}

QString UnusualFiles::emptyDevice()
{
    return QStringLiteral("NUL");
}

QString UnusualFiles::endlessDevice()
{
    return emptyDevice();
}

bool UnusualFiles::canLinkTo(const QString& target, const QString& path)
{
    return !folderOf(target, path).isEmpty();
}

bool UnusualFiles::link(const QString& target, const QString& path)
{
    const QString folder = folderOf(target, path);
    if (folder.isEmpty())
        return false;
    if (isWine())
        // It has no command for junctions and shows links to folders as such.
        startOutsideWine(QStringLiteral("Z:\\bin\\ln -s \"%1\" \"%2\"")
                             .arg(outsideWine(folder), outsideWine(path)));
    else
        QProcess::execute(QStringLiteral("cmd"),
                          {QStringLiteral("/c"), QStringLiteral("mklink"), QStringLiteral("/j"),
                           QDir::toNativeSeparators(path), QDir::toNativeSeparators(folder)});
    return QTest::qWaitFor([&] { return isLink(path); });
}

bool UnusualFiles::isLink(const QString& path)
{
    const DWORD attributes =
        ::GetFileAttributesW(QDir::toNativeSeparators(path).toStdWString().c_str());
    return attributes != INVALID_FILE_ATTRIBUTES
        && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

bool UnusualFiles::canRemoveLinks()
{
    return !isWine();
}

void UnusualFiles::unlink(const QString& path)
{
    if (!isWine()) {
        QDir().rmdir(path);
        return;
    }
    const QString folder = outsideWine(QFileInfo(path).path());
    startOutsideWine(
        QStringLiteral("Z:\\bin\\rm \"%1/%2\"").arg(folder, QFileInfo(path).fileName()));
    if (!QTest::qWaitFor([&] { return !isLink(path); }))
        qFatal("cannot remove the link %s", qPrintable(path));
}

bool UnusualFiles::tellsRemoved()
{
    return !isWine();
}
