// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/ItemIndex.h"
#include "download/ItemSurvey.h"
#include "ItemSet.h"

#include <QJsonObject>
#include <QString>
#include <QVector>

class Arguments;

/// Implements "mvres need FILE|GUID... [--fetch]".
///
/// Tells which items of a set are unknown, ready or to be fetched, and with --fetch fetches them in
/// one update.
class NeedCommand
{
public:
    static int run(const Arguments& arguments);

private:
    explicit NeedCommand(const Arguments& arguments);

    bool read(QString& error);
    int report();
    int fetch();
    void print();
    QJsonObject toJson();
    int readyCount() const;
    int status() const;

    const Arguments& m_arguments;
    ItemIndex m_index;
    QVector<ItemSet::Entry> m_unknown;
    ItemSurvey m_survey; // of the others
};
