#pragma once

#include "browser/MvBrowserExport.h"

#include <QString>
#include <QStringList>

/// The style sheets that come with the library, one per skin. A host adds one to its application's
/// style sheet (QApplication::setStyleSheet) before it makes resource lists, changes parts of it by
/// rules of its own behind it, or uses none. They style the browser's widgets and SkinWidget only.
/// Their icons need Qt's SVG plugin. Stateless; every thread.
class MVBROWSER_EXPORT BrowserSkin
{
public:
    BrowserSkin() = delete;

    /// "Classical", "Elegance", "Simplicity", "Calm": the names that HostSettings::currentSkin
    /// knows.
    static QStringList names();

    /// The style sheet of a skin; empty for a name that is not among names(). It lies in the
    /// resource ":/mvbrowser/skins/NAME.qss".
    static QString styleSheet(const QString& name);
};
