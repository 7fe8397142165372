// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "SampleWorld.h"

#include <QObject>

#include <memory>

class QImage;
struct SCfg_Item;

/// The rows of a list, by the state in which a picture shows them.
struct ShownStates
{
    int applied = -1;
    int hovered = -1;
    int favourite = -1;
    int missing = -1;
    int downloading = -1;
    int failed = -1;
};

/// Shows the samples in every skin, saves pictures of them to the folder MV_SCREENSHOTS and
/// verifies their appearance. The process determines the scale factor.
class SkinPictures : public QObject
{
    Q_OBJECT

public:
    /// `scale` is appended to the pictures' names.
    explicit SkinPictures(const QString& scale);
    ~SkinPictures() override;

private slots:
    void initTestCase();
    void cleanup();
    void everyState_data();
    void everyState();
    void textsInEveryLanguage_data();
    void textsInEveryLanguage();

private:
    static ShownStates choose(EUIItemType type);
    void bringAbout(SampleList& list, const ShownStates& rows);
    void save(const QImage& picture, const QString& what) const;

    QString m_scale;
    std::unique_ptr<SampleWorld> m_world;
    SCfg_Item* m_favourite = nullptr; // of the running test
};
