#pragma once

#include "download/EMVThemeDownLoadError.h"

#include <QJsonArray>

class Arguments;
struct SCfg_Item;

/// mvres fetch GUID...
///
/// Fetches the items one after another; after one that fails the others are still tried, after an
/// interrupt they are not. The exit status is that of the first failure.
class FetchCommand
{
public:
    static int run(const Arguments& arguments);

private:
    explicit FetchCommand(bool json);

    EMVThemeDownLoadError fetch(SCfg_Item& item);
    EMVThemeDownLoadError download(SCfg_Item& item);
    void report(SCfg_Item& item, EMVThemeDownLoadError result);

    bool m_json;
    bool m_interrupted = false;
    QJsonArray m_results;
};
