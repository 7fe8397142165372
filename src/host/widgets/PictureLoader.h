// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/widgets/MvHostUiExport.h"

#include <QHash>
#include <QImage>
#include <QObject>
#include <QSize>
#include <QString>
#include <QThreadPool>

#include <memory>

class PictureRequest;

/// Decodes picture files on a few threads of its own, so that decoding does not block the GUI
/// thread.
///
/// Requests for the same picture share one decoding. Those of the latest pass of the event loop are
/// served first, in their order: they are most likely still in view. GUI thread only.
class MVHOSTUI_EXPORT PictureLoader : public QObject
{
    Q_OBJECT

public:
    /// Returns the loader of this application. It is created on the first call, which needs a
    /// QApplication, and destroyed with that, which waits for the decodings that have begun; do not
    /// keep the pointer longer.
    static PictureLoader* instance();
    /// Returns whether every picture requested so far has been delivered or dropped. A widget that
    /// has not been painted yet has not requested its picture.
    static bool isIdle();

    ~PictureLoader() override;

    /// Selects which decodings of the same picture a request may share.
    enum class Sharing {
        Any,     ///< any that has not ended
        NotBegun ///< only one that will read the file after this call
    };
    /// Requests the picture in `path`, scaled to fit into `pixels`, which is not empty, as
    /// PictureDecoder::read() does. `key` identifies the picture and the size. Never emits within
    /// this call.
    std::shared_ptr<PictureRequest> request(const QString& key, const QString& path,
                                            const QSize& pixels, Sharing sharing);

private:
    PictureLoader();
    int priority();
    void finish(const QString& key, const std::weak_ptr<PictureRequest>& wanted,
                const QImage& image);

    QHash<QString, std::weak_ptr<PictureRequest>> m_requests; // not delivered, by key
    int m_pass = 0;                                           // of the event loop, with requests
    bool m_isPassOpen = false;
    int m_undelivered = 0;
    QThreadPool m_pool; // the last member: its threads use the others
};
