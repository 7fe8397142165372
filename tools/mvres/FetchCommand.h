// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/ItemIndex.h"
#include "download/SItemDownloadResult.h"

#include <QJsonArray>

class Arguments;
class ItemFiles;

/// Implements "mvres fetch GUID...|--all [--dry-run]".
///
/// Fetches the items one after the other and continues after a failure, but not after an interrupt.
/// The exit status is determined by the cause of the first failure.
class FetchCommand
{
public:
    static int run(const Arguments& arguments);

private:
    explicit FetchCommand(bool json);

    static QVector<SCfg_Item*> incompleteItems();
    int preview(const QVector<SCfg_Item*>& items);
    int fetchAll(const QVector<SCfg_Item*>& items);
    SItemDownloadResult fetch(SCfg_Item& item);
    SItemDownloadResult download(SCfg_Item& item);
    void report(SCfg_Item& item, const SItemDownloadResult& result);
    void appendJson(SCfg_Item& item, const ItemFiles& files, const SItemDownloadResult& result);
    void printFiles(const SCfg_Item& item, const ItemFiles& files,
                    const SItemDownloadResult& result);

    bool m_json;
    bool m_interrupted = false;
    ItemIndex m_index;
    QJsonArray m_results;
};
