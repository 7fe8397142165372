// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/ECfgItemType.h"

#include <QBasicTimer>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <memory>

class ItemStates;

/// Tells a list which of its items are on disk and how large they are, without touching the disk:
/// a thread looks at their files from the construction of this object on, and again after
/// everything that may have changed them. Internal to the library; GUI thread only.
class ListFiles : public QObject
{
    Q_OBJECT

public:
    explicit ListFiles(ECfgItemType kind);
    ~ListFiles() override;

    /// Returns whether an item's files have been looked at.
    bool isKnown(const QString& guid) const;
    /// Returns whether a known item can be applied without a download.
    bool isOnDisk(const QString& guid) const;
    /// Returns the size of a known item with all that it uses, on disk or as published; otherwise
    /// 0.
    qint64 bytesOf(const QString& guid) const;
    /// Returns whether items wait to be looked at, or changed() has yet to come.
    bool isLooking() const;
    /// Looks at all files again; what is known stays until then.
    void lookAgain();

signals:
    /// Known states or sizes have changed. Emitted from the event loop, and at intervals while many
    /// items wait.
    void changed();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void noteChanged(const QStringList& guids);
    void noteLooking();

    const ECfgItemType m_kind;
    const std::shared_ptr<ItemStates> m_states;
    QBasicTimer m_timer; // runs while a change has not been told, and for a while afterwards
    bool m_isTold = true;
};
