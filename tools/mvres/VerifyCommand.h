// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/ItemIndex.h"
#include "download/ItemSurvey.h"
#include "host/CancelToken.h"

#include <QJsonObject>
#include <QVector>

class Arguments;

/// Implements "mvres verify [GUID...] [--deep] [--repair]".
///
/// Compares the items on disk, or the named ones, with the accepted release. The exit status tells
/// what is wrong or, with --repair, how fetching it has ended.
class VerifyCommand
{
public:
    static int run(const Arguments& arguments);

private:
    explicit VerifyCommand(const Arguments& arguments);

    void survey(const QVector<SCfg_Item*>& items);
    int report() const;
    int repair();
    void printSummary() const;
    QJsonObject toJson() const;
    int status() const;

    const Arguments& m_arguments;
    CancelToken m_cancel;
    ItemIndex m_index;
    ItemSurvey m_survey;
};
