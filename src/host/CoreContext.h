// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CBasePtr.h"
#include "host/MvHostExport.h"

#include <string>

/// The part of the host's editing core that downloads use: it is notified of every new definition,
/// so that the effect can be used without a restart.
///
/// The host derives from it and registers it with MVThemeDownLoader::setCoreContextPtr. The
/// functions are called on download threads, concurrently if several downloads run. `name` is the
/// definition file's complete base name, usually the item's GUID in braces.
class MVHOST_EXPORT CoreContext
{
public:
    virtual ~CoreContext();

    /// A filter's definition has been downloaded.
    virtual void addVideoFilter(const std::wstring& name) = 0;
    /// A transition's definition has been downloaded.
    virtual void addTransition(const std::wstring& name) = 0;
    /// A motion's definition has been downloaded.
    virtual void addMotion(const std::wstring& name) = 0;
};
