// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QString>

#include <memory>

/// Mouse and keyboard of the X display, as if used by a person: the display server sends the events
/// to whichever window is there. Points are in the display's own pixels.
class RealInput
{
public:
    /// The buttons of an X mouse, by number.
    enum class Button : unsigned { Left = 1, Middle = 2, Right = 3 };

    /// `display` is a name such as ":7"; by default that of the environment.
    explicit RealInput(const QString& display = QString());
    ~RealInput();
    Q_DISABLE_COPY_MOVE(RealInput)

    /// Returns false without an X display that accepts such events.
    bool isAvailable() const;

    void moveTo(const QPoint& point);
    /// Gives the keyboard to the window below the mouse, as a window manager would. False: there is
    /// none.
    bool focusWindow();
    void click(Button button = Button::Left);
    /// Turns the wheel by `steps`; negative values turn it down.
    void wheel(int steps);
    /// Presses keys such as "Ctrl+F", "Tab", "Down". Returns false for keys that the keyboard
    /// lacks.
    bool press(const QString& keys);
    /// Types Latin letters, digits and punctuation. Returns false for other characters.
    bool type(const QString& text);

private:
    class Private;
    std::unique_ptr<Private> d;
};
