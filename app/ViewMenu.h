#pragma once

#include <QMenu>

class Preferences;
class QActionGroup;

/// Skin, language, scale and motion, with marks at what the preferences say.
class ViewMenu : public QMenu
{
    Q_OBJECT

public:
    ViewMenu(const Preferences& preferences, QWidget* parent);

signals:
    void skinChosen(const QString& skin);
    void languageChosen(const QString& language);
    /// Per cent; 0: as the screen says.
    void scaleChosen(int percent);
    void motionReducedChosen(bool reduced);

protected:
    void changeEvent(QEvent* event) override;

private:
    QAction* addChoice(QMenu* menu, QActionGroup* group, const QString& text, const QVariant& value,
                       const QVariant& current);
    void retranslate();

    QMenu* m_skin;
    QMenu* m_language;
    QMenu* m_scale;
    QAction* m_screenScale = nullptr;
    QAction* m_motion;
};
