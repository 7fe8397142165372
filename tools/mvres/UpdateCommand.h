// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/ItemIndex.h"
#include "download/ItemSurvey.h"

#include <QString>
#include <QVector>

class Arguments;

/// Implements "mvres update [GUID...] [--all] [--dry-run]".
///
/// Fetches the published files of the items on disk that are outdated or damaged, of the named
/// items, or of all items on disk, in one update. The exit status is determined by the cause of the
/// first failure.
class UpdateCommand
{
public:
    static int run(const Arguments& arguments);

private:
    explicit UpdateCommand(const Arguments& arguments);

    bool select(QString& error);
    int preview();
    int update();

    const Arguments& m_arguments;
    ItemIndex m_index;
    ItemSurvey m_survey; // of the items that are to be updated
};
