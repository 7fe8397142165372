// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMenu>

class Preferences;
class QActionGroup;

/// The menu of skin, language, scale and motion, with check marks at the current preferences.
class ViewMenu : public QMenu
{
    Q_OBJECT

public:
    ViewMenu(const Preferences& preferences, QWidget* parent);

    /// Moves the check marks after the preferences have changed; emits nothing.
    void showChoices(const Preferences& preferences);

signals:
    void skinChosen(const QString& skin);
    void languageChosen(const QString& language);
    /// A percentage; 0: the screen's own.
    void scaleChosen(int percent);
    void motionReducedChosen(bool reduced);

protected:
    void changeEvent(QEvent* event) override;

private:
    QAction* addChoice(QMenu* menu, QActionGroup* group, const QString& text, const QVariant& value,
                       const QVariant& current);
    void retranslate();
    static void check(const QMenu* menu, const QVariant& value);

    QMenu* m_skin;
    QMenu* m_language;
    QMenu* m_scale;
    QAction* m_screenScale = nullptr;
    QAction* m_motion;
};
