// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "upload/ChildGroup.h"

#include <QProcess>

#include <windows.h>

namespace {

/// Returns the job whose processes the system ends when its last handle is closed: by the end of
/// this process. Null if the system refuses.
HANDLE jobOfChildren()
{
    static const HANDLE job = [] {
        HANDLE made = ::CreateJobObjectW(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        ::SetInformationJobObject(made, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        return made;
    }();
    return job;
}

void putIntoJob(qint64 processId)
{
    HANDLE process =
        ::OpenProcess(PROCESS_SET_QUOTA | PROCESS_TERMINATE, FALSE, static_cast<DWORD>(processId));
    if (!process)
        return; // it has ended
    ::AssignProcessToJobObject(jobOfChildren(), process);
    ::CloseHandle(process);
}

} // namespace

std::unique_ptr<QProcess> ChildGroup::makeProcess()
{
    auto made = std::make_unique<QProcess>();
    QProcess* const process = made.get();
    process->setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments* arguments) {
        arguments->flags |= CREATE_NEW_PROCESS_GROUP;
    });
    QObject::connect(process, &QProcess::started, process,
                     [process] { putIntoJob(process->processId()); });
    return made;
}

void ChildGroup::interrupt(QProcess& process)
{
    // The number of its first process names a group. ^C would not reach a new group.
    ::GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, static_cast<DWORD>(process.processId()));
}
