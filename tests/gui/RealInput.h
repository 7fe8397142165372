#pragma once

#include <QPoint>
#include <QString>

#include <memory>

/// Mouse and keyboard of the X display, as if a person used them: the events go through the display
/// server to whichever window is there. Points are in the display's own pixels.
class RealInput
{
public:
    /// The buttons of an X mouse, by their numbers.
    enum class Button : unsigned { Left = 1, Middle = 2, Right = 3 };

    /// `display` is a name like ":7"; without one it is that of the environment.
    explicit RealInput(const QString& display = QString());
    ~RealInput();
    Q_DISABLE_COPY_MOVE(RealInput)

    /// False without an X display that takes such events.
    bool isAvailable() const;

    void moveTo(const QPoint& point);
    /// Gives the keyboard to the window below the mouse, as a window manager would. False: there is
    /// none.
    bool focusWindow();
    void click(Button button = Button::Left);
    /// Steps of the wheel; below 0 is down.
    void wheel(int steps);
    /// "Ctrl+F", "Tab", "Down", ... False for keys that the keyboard does not have.
    bool press(const QString& keys);
    /// Latin letters, digits and signs. False for others.
    bool type(const QString& text);

private:
    class Private;
    std::unique_ptr<Private> d;
};
