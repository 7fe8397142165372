#pragma once

#include <QObject>
#include <QSize>

#include <memory>

class CatalogueUpdate;
class MainWindow;
class Preferences;
class SampleWorld;

/// The window in every language, made in it or changed to it, with letters of the usual size and
/// larger: no text is cut off, and the window needs no more than its first size. Keeps pictures of
/// that in the folder MV_SCREENSHOTS. The scale factor is that of the process.
class WindowTexts : public QObject
{
    Q_OBJECT

public:
    /// `scale` ends the pictures' names.
    explicit WindowTexts(const QString& scale);
    ~WindowTexts() override;

private slots:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();
    void haveRoom_data();
    void haveRoom();

private:
    void openWindow();
    void apply(const QString& theme);
    void fail();
    template <class Part>
    Part* part(const char* name) const;
    void verifyFonts() const;
    /// A picture is named after the state; null takes none.
    void verifyRoom(const char* state);

    QString m_scale;
    QString m_pictures; // language to take pictures of; empty: none
    QSize m_firstSize;
    std::unique_ptr<SampleWorld> m_world;
    std::unique_ptr<Preferences> m_preferences;
    std::unique_ptr<CatalogueUpdate> m_check;
    std::unique_ptr<MainWindow> m_window;
};
