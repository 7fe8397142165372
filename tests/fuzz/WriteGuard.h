// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

/// Restricts what this process may create, change and remove to some folders, during its lifetime.
///
/// The program interposes the C library's functions, so all calls of Qt and the library are seen,
/// and links are resolved to their targets. A call that would touch anything else ends the process
/// before it takes effect. Not seen: fopen() and the C library's internal calls. Create one object
/// at a time; it applies to all threads.
class WriteGuard
{
public:
    /// The folders must exist.
    explicit WriteGuard(const QStringList& folders);
    ~WriteGuard();
    Q_DISABLE_COPY_MOVE(WriteGuard)
};
