// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "injector/Operation.h"

#include <QByteArray>
#include <QMetaType>
#include <QString>

/// A file operation of a program below its world, as reported by the preloaded library.
struct CountedOperation
{
    int number = 0; ///< from 1
    Operation operation = Operation::OpenFile;
    QString path; ///< absolute

    /// Parses a line "NUMBER OPERATION PATH"; number 0: the line reports no operation.
    static CountedOperation fromLine(const QByteArray& line);
    /// Returns the operation with the last part of its path, "PART" for a temporary name and
    /// "UNNAMED" for a file without one, but its folder where it is created: "rename target".
    QString text() const;
};

/// The disturbance of one run.
struct Fault
{
    FaultKind kind = FaultKind::None;
    int at = 0;         ///< number of the operation
    bool stays = false; ///< every later operation that can fail this way fails as well

    bool isKill() const { return kind == FaultKind::Kill || kind == FaultKind::KillHalfway; }
    /// Returns a description: "eio from 12 on".
    QString text() const;
};
Q_DECLARE_METATYPE(Fault)
Q_DECLARE_METATYPE(FaultKind)
