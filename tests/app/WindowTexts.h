// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QSize>

#include <memory>

class CatalogueUpdate;
class MainWindow;
class Preferences;
class SampleWorld;

/// Verifies that the window cuts off no text and fits its initial size, in every language, whether
/// created in that language or switched to it, at the usual and at larger font sizes. Saves
/// pictures to the folder MV_SCREENSHOTS. The process determines the scale factor.
class WindowTexts : public QObject
{
    Q_OBJECT

public:
    /// `scale` is appended to the pictures' names.
    explicit WindowTexts(const QString& scale);
    ~WindowTexts() override;

private slots:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();
    void haveRoom_data();
    void haveRoom();
    void controlsHaveNames();
    void listsUseTheWholeWidth();
    void searchStaysNarrowInAWideWindow();
    void toolTipsAreWrapped();
    void longMessageEndsInAnEllipsis();
    void welcomeIsInTheMiddle();

private:
    void openWindow();
    void apply(const QString& theme);
    void fail();
    void showStorage();
    template <class Part>
    Part* part(const char* name) const;
    void verifyFonts() const;
    static void verifyNames(const QWidget& window);
    /// Verifies the current state and saves a picture named after it; null saves none.
    void verifyRoom(const char* state);

    QString m_scale;
    QString m_pictures; // language to save pictures of; empty: none
    QSize m_firstSize;
    std::unique_ptr<SampleWorld> m_world;
    std::unique_ptr<Preferences> m_preferences;
    std::unique_ptr<CatalogueUpdate> m_check;
    std::unique_ptr<MainWindow> m_window;
};
