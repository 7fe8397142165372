// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/widgets/MvHostUiExport.h"

#include <QObject>
#include <QPixmap>

#include <atomic>
#include <memory>

/// A picture that PictureLoader has been asked for, shared by all who asked for it.
///
/// Keep it as long as the picture is wanted: once nobody does, decoded() is not emitted, and the
/// file is not read unless that has begun. It may outlive its loader. GUI thread only.
class MVHOSTUI_EXPORT PictureRequest : public QObject
{
    Q_OBJECT

public:
    PictureRequest();
    ~PictureRequest() override;

    /// Returns whether reading the file has begun, so that the picture may have the content of a
    /// moment before this call.
    bool hasBegun() const;

signals:
    /// Emitted once. `picture` is null if the file is not decoded, see PictureDecoder.
    void decoded(const QPixmap& picture);

private:
    friend class PictureLoader;
    enum class State { Waiting, Begun, Dropped };

    std::shared_ptr<std::atomic<State>> m_pState; // shared with the thread that decodes
};
