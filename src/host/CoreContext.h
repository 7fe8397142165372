#pragma once

#include "host/CBasePtr.h"
#include "host/MvHostExport.h"

#include <string>

/// The host's editing core, as far as downloads touch it: it learns of every definition that has
/// arrived, so that the effect can be used without a restart.
///
/// The host derives from it and hands it over with MVThemeDownLoader::setCoreContextPtr. The
/// operations are called on download threads, several at a time if several downloads run. `name`
/// is the definition file's complete base name, usually the item's GUID in braces.
class MVHOST_EXPORT CoreContext
{
public:
    virtual ~CoreContext();

    virtual void addVideoFilter(const std::wstring& name) = 0;
    virtual void addTransition(const std::wstring& name) = 0;
    virtual void addMotion(const std::wstring& name) = 0;
};
