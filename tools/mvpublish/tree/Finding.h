// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVector>

enum class Severity {
    Error,   ///< clients cannot use something, or use it in an unintended way
    Warning, ///< clients can use everything, but the publisher may have forgotten something
};

/// A single fault that a publisher should correct.
struct Finding
{
    Severity severity = Severity::Error;
    QString code;    ///< the kind of the finding, for scripts
    QString file;    ///< relative to the tree
    int line = 0;    ///< 0 if unknown
    QString item;    ///< GUID and name; empty if no item is concerned
    QString message; ///< what is wrong
    QString advice;  ///< what to do
};

using Findings = QVector<Finding>;
