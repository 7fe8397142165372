#pragma once

#include <QString>
#include <QVector>

/// One thing that a publisher should put right.
struct Finding
{
    QString code;    ///< the kind of the finding, for scripts
    QString file;    ///< relative to the tree
    int line = 0;    ///< 0 where there is none
    QString item;    ///< GUID and name; empty where it concerns no item
    QString message; ///< what is wrong
    QString advice;  ///< what to do
};

using Findings = QVector<Finding>;
