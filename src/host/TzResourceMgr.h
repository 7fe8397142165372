#pragma once

#include "host/MvHostExport.h"

#include <QString>

/// Locates the application's installed resources and names the active skin.
///
/// Reads hostSettings(); every operation may be called from every thread. The instance is alive
/// until the process is gone.
class MVHOST_EXPORT TzResourceMgr
{
public:
    static TzResourceMgr* instance();

    /// The application's resource folder, without a trailing slash.
    QString resourcesPath() const;

    /// Name of the active skin.
    QString currentSkin() const;

    /// Folder that holds "testskin/Simple.gif", the placeholder animation.
    QString testOutputDir() const;

    /// Screen scale factor, above 0.
    static double getZoomDPI();

private:
    TzResourceMgr() = default;
};
