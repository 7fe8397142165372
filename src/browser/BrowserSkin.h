// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/MvBrowserExport.h"
#include "browser/SSkinColors.h"

#include <QString>
#include <QStringList>

/// The style sheets that come with the library, one per skin. A host adds one to its application's
/// style sheet, see apply(), before it creates resource lists and may append rules that override
/// parts of it, or uses none. They style the browser's widgets and SkinWidget only. Their icons
/// need Qt's SVG plugin. Any thread, apart from apply().
class MVBROWSER_EXPORT BrowserSkin
{
public:
    BrowserSkin() = delete;

    /// Returns the names of the skins (host/Skins.h), the default one first.
    static QStringList names();

    /// Returns the style sheet of a skin; an empty string for a name that is not among names().
    static QString styleSheet(const QString& name);

    /// Sets the application's style sheet, with the same result as QApplication::setStyleSheet().
    /// That restyles every widget once for each of its ancestors when it replaces a style sheet,
    /// which takes seven times as long for the cells of a list. GUI
    /// thread only.
    static void apply(const QString& sheet);

    /// Returns colours for the host's widgets around a list; those of the default skin for a name
    /// that is not among names().
    static SSkinColors windowColors(const QString& name);
};
