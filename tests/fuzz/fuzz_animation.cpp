// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Plays the animated preview of a theme as a list's cell does, at two scales.

#include "browser/MVThemePreviewFrm.h"
#include "FuzzTarget.h"
#include "host/HostSettings.h"
#include "PictureFacts.h"
#include "records/SCfg_Item.h"
#include "Require.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "WriteGuard.h"

#include <QLabel>
#include <QMovie>

namespace {

constexpr int maxFrames = 8;

class AnimationTarget : public FuzzTarget
{
public:
    void run(const QByteArray& input) override
    {
        CatalogueFiles::write(m_file, input);
        const WriteGuard guard({});
        for (const double zoom : {1.0, 2.0}) {
            hostSettings().zoomDPI = zoom;
            play(input);
        }
    }

    bool mayWarn() const override { return true; } // the decoders do

private:
    void play(const QByteArray& input) const
    {
        SCfg_Item item;
        item.m_eType = eCfgItem_Theme;
        item.m_info_Gif.m_qsFile = m_file;
        MVThemePreviewFrm frame(nullptr);
        frame.resize(160, 90);
        frame.setItemData(&item);
        frame.startPlayGif();
        require(!frame.isPlaying() || PictureFacts::isAccepted(input),
                "only a PNG, JPEG or GIF of a modest size is decoded");
        QMovie* const movie = frame.findChild<QLabel*>(QStringLiteral("lblGif"))->movie();
        for (int i = 0; i < maxFrames && frame.isPlaying() && movie->jumpToNextFrame(); ++i)
            frame.grab();
        frame.stopPlayGif();
        require(!frame.isPlaying(), "a stopped preview stands still");
    }

    const QString m_file = TestHome::path() + QStringLiteral("/animation.gif");
};

} // namespace

MV_FUZZ_TARGET(AnimationTarget, QApplication)
