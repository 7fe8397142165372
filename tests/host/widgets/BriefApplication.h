// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/TestMain.h"

#include <QApplication>
#include <QDir>
#include <QFile>

/// An application that exists for part of a test.
class BriefApplication
{
public:
    BriefApplication()
        : m_application(m_count, m_arguments)
    {
    }
    /// Clears the style sheet, which Qt would keep for the next application.
    ~BriefApplication() { m_application.setStyleSheet(QString()); }
    Q_DISABLE_COPY_MOVE(BriefApplication)

    /// Prevents Qt's warning about every new application without such a folder.
    static void createRuntimeFolder()
    {
        const QString runtime = TestHome::path() + QStringLiteral("/runtime");
        QDir().mkpath(runtime);
        QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime));
    }

private:
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    int m_count = 1;
    TestApplication<QApplication> m_application;
};
