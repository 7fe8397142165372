// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QSize>

#include <memory>

class CatalogueUpdate;
class MainWindow;
class Preferences;
class QWidget;
class SampleWorld;

/// Verifies that the window and its dialogs cut off no text, and that it fits its initial size, in
/// every language, whether created in that language or switched to it, at the usual and at larger
/// font sizes. Saves pictures to the folder MV_SCREENSHOTS on request. The process determines the
/// scale factor.
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
    void headingIsBelowThePicture();
    void searchStaysNarrowInAWideWindow();
    void toolTipsAreWrapped();
    void longMessageEndsInAnEllipsis();
    void welcomeIsInTheMiddle();

private:
    void openWindow();
    void apply(const QString& theme);
    void fail();
    void showStorage();
    /// Returns the part of the window with this object name.
    template <class Part>
    Part* part(const char* name) const
    {
        return static_cast<Part*>(partOf(Part::staticMetaObject, name));
    }
    QObject* partOf(const QMetaObject& type, const char* name) const;
    void verifyFonts() const;
    static void verifyNames(const QWidget& window);
    /// Verifies the current state and saves a picture named after it; null saves none.
    void verifyRoom(const char* state);

    void verifyDialogs();
    void savePicture(QWidget& window, const QString& name) const;

    QString m_scale;
    QString m_pictures; // language to save pictures of; empty: none
    QSize m_firstSize;
    std::unique_ptr<SampleWorld> m_world;
    std::unique_ptr<Preferences> m_preferences;
    std::unique_ptr<CatalogueUpdate> m_check;
    std::unique_ptr<MainWindow> m_window;
};
