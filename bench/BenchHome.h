// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QTemporaryDir>

/// The temporary folder of one benchmark, set in hostSettings(); log lines are discarded.
class BenchHome
{
public:
    BenchHome();

    QString path() const { return m_dir.path(); }

private:
    QTemporaryDir m_dir;
};
