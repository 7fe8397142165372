// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QObject>
#include <QString>
#include <QStringList>

/// Connects what shows items with the run that fetches their previews: lists tell which items the
/// user is looking at, so that their pictures come first, and learn which pictures have arrived.
///
/// One object per process, which is never destroyed. All functions may be called from any thread.
class MVRESOURCE_EXPORT PreviewExchange : public QObject
{
    Q_OBJECT

public:
    /// Returns the object of this process.
    static PreviewExchange* instance();

    /// Sets the GUIDs of the items that `viewer` shows, most wanted first; an empty list removes
    /// the viewer. The viewer is only a key.
    void setShown(const void* viewer, const QStringList& guids);
    /// Returns the GUIDs that viewers show, each once, and stores in `generation` a number that
    /// grows with every change.
    QStringList shown(quint64& generation) const;
    /// Returns the number of the last change.
    quint64 generation() const;

    /// Emits pictureArrived().
    void tellArrived(const QString& guid);

signals:
    /// A thumbnail or an animated preview of that item has been stored. Emitted on the thread of
    /// the preview run, so it is queued to receivers elsewhere.
    void pictureArrived(const QString& guid);

private:
    PreviewExchange() = default;
    ~PreviewExchange() override = default;
    template <class T>
    friend class Immortal;
};
