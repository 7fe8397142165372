// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QObject>

template <class T>
class Immortal;
class MVThemeMgr;

/// Announces loads of the catalogue, and changes of the download root, to everything that holds
/// pointers into the catalogue or looks for its files. One object per
/// process, on the thread of its application object; the signals come on the thread that loads.
class MVRESOURCE_EXPORT CatalogueChanges : public QObject
{
    Q_OBJECT

public:
    /// Returns the object, which is never destroyed.
    static CatalogueChanges* instance();

signals:
    /// The catalogue is about to be loaded or cleared, or its download root set: receivers stop
    /// using its items and paths and give back every CatalogueUse before they return, or a load is
    /// refused.
    void announced();
    /// The announced call has ended. All pointers into the catalogue are invalid if `hasChanged` is
    /// true; otherwise it was refused and nothing has changed.
    void ended(bool hasChanged);

private:
    friend class MVThemeMgr;
    template <class T>
    friend class Immortal;
    CatalogueChanges() = default;
};
