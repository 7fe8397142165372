#pragma once

#include "download/SCatalogueCheckResult.h"
#include "download/SPreviewRunResult.h"

#include <QEventLoop>

class Arguments;

/// mvres check [--wait]
///
/// Checks the server's catalogue and fetches what is missing of it and of the previews. The exit
/// status tells how the catalogue's check ended; previews that fail do not change it.
class CheckCommand
{
public:
    static int run(const Arguments& arguments);

private:
    explicit CheckCommand(bool json);

    void check();
    void say(const QString& line) const;
    void onCatalogueChecked(const SCatalogueCheckResult& result);
    void onPreviewsFetched(const SPreviewRunResult& result);
    void endIfTold();
    int report() const;

    bool m_json;
    bool m_interrupted = false;
    bool m_checkTold = false;
    bool m_previewsTold = false;
    SCatalogueCheckResult m_check;
    SPreviewRunResult m_previews;
    QEventLoop m_loop;
};
