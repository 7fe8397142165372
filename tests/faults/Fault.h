#pragma once

#include "injector/Operation.h"

#include <QByteArray>
#include <QMetaType>
#include <QString>

/// An operation of a program below its world, as the preloaded library has reported it.
struct CountedOperation
{
    int number = 0; ///< from 1
    Operation operation = Operation::OpenFile;
    QString path; ///< absolute

    /// The operation of a line "NUMBER OPERATION PATH"; number 0: there is none in it.
    static CountedOperation fromLine(const QByteArray& line);
};

/// What is done to a run.
struct Fault
{
    FaultKind kind = FaultKind::None;
    int at = 0;         ///< number of the operation
    bool stays = false; ///< later operations fail as well that can fail this way

    bool isKill() const { return kind == FaultKind::Kill || kind == FaultKind::KillHalfway; }
    /// "eio from 12 on"
    QString text() const;
};
Q_DECLARE_METATYPE(Fault)
