#pragma once

#include <QString>
#include <QVector>

enum class Severity {
    Error,   ///< clients cannot use something, or do not as the publisher means it
    Warning, ///< clients can use everything; the publisher may have forgotten something
};

/// One thing that a publisher should put right.
struct Finding
{
    Severity severity = Severity::Error;
    QString code;    ///< the kind of the finding, for scripts
    QString file;    ///< relative to the tree
    int line = 0;    ///< 0 where there is none
    QString item;    ///< GUID and name; empty where it concerns no item
    QString message; ///< what is wrong
    QString advice;  ///< what to do
};

using Findings = QVector<Finding>;
