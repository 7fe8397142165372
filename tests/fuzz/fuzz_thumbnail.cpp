// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Paints a thumbnail as a list's cell does. Qt's decoders are not instrumented: their memory and
// time are limited from outside.

#include "FuzzTarget.h"
#include "host/widgets/ThumbFrame.h"
#include "PictureFacts.h"
#include "Require.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "WriteGuard.h"

#include <QPixmapCache>

namespace {

class ThumbnailTarget : public FuzzTarget
{
public:
    void run(const QByteArray& input) override
    {
        CatalogueFiles::write(m_file, input);
        QPixmapCache::clear();
        const WriteGuard guard({});
        ThumbFrame frame;
        frame.setImagePath(m_file);
        for (const QSize& size : {QSize(160, 90), QSize(1, 1), QSize(31, 200)}) {
            frame.resize(size);
            frame.grab();
            const bool isShown = !frame.isEmpty();
            require(!isShown || PictureFacts::isAccepted(input),
                    "only a PNG, JPEG or GIF of a modest size is decoded");
        }
    }

    bool mayWarn() const override { return true; } // the decoders do

private:
    const QString m_file = TestHome::path() + QStringLiteral("/thumb.png");
};

} // namespace

MV_FUZZ_TARGET(ThumbnailTarget, QApplication)
