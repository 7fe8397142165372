// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "gui/RealInput.h"

#include <QStringList>
#include <QVector>

// Last, since these headers define macros with common names.
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <X11/XKBlib.h>
#include <X11/Xlib.h>

namespace {

constexpr unsigned wheelUp = 4;
constexpr unsigned wheelDown = 5;

/// Returns X's name of a key, if it differs from the usual one.
QString keysymName(const QString& key)
{
    static const QVector<QPair<QString, QString>> names = {
        {QStringLiteral("Ctrl"), QStringLiteral("Control_L")},
        {QStringLiteral("Shift"), QStringLiteral("Shift_L")},
        {QStringLiteral("Alt"), QStringLiteral("Alt_L")},
        {QStringLiteral("Enter"), QStringLiteral("Return")},
        {QStringLiteral("Esc"), QStringLiteral("Escape")},
        {QStringLiteral("Space"), QStringLiteral("space")},
        {QStringLiteral("PageDown"), QStringLiteral("Next")},
        {QStringLiteral("PageUp"), QStringLiteral("Prior")},
    };
    for (const auto& name : names) {
        if (name.first == key)
            return name.second;
    }
    return key.size() == 1 ? key.toLower() : key;
}

} // namespace

class RealInput::Private
{
public:
    ::Display* display = nullptr;

    void key(KeyCode code, bool down) const
    {
        XTestFakeKeyEvent(display, code, down ? True : False, CurrentTime);
    }

    void button(unsigned number) const
    {
        XTestFakeButtonEvent(display, number, True, CurrentTime);
        XTestFakeButtonEvent(display, number, False, CurrentTime);
        XSync(display, False);
    }
};

RealInput::RealInput(const QString& display)
    : d(std::make_unique<Private>())
{
    d->display = XOpenDisplay(display.isEmpty() ? nullptr : display.toLocal8Bit().constData());
    int ignored = 0;
    if (d->display && !XTestQueryExtension(d->display, &ignored, &ignored, &ignored, &ignored)) {
        XCloseDisplay(d->display);
        d->display = nullptr;
    }
}

RealInput::~RealInput()
{
    if (d->display)
        XCloseDisplay(d->display);
}

bool RealInput::isAvailable() const
{
    return d->display != nullptr;
}

void RealInput::moveTo(const QPoint& point)
{
    XTestFakeMotionEvent(d->display, -1, point.x(), point.y(), CurrentTime);
    XSync(d->display, False);
}

bool RealInput::focusWindow()
{
    ::Window root = 0;
    ::Window window = 0;
    int ignored = 0;
    unsigned mask = 0;
    XGrabServer(d->display); // no window goes between the two
    XQueryPointer(d->display, DefaultRootWindow(d->display), &root, &window, &ignored, &ignored,
                  &ignored, &ignored, &mask);
    if (window != 0)
        XSetInputFocus(d->display, window, RevertToPointerRoot, CurrentTime);
    XUngrabServer(d->display);
    XSync(d->display, False);
    return window != 0;
}

void RealInput::click(Button button)
{
    d->button(static_cast<unsigned>(button));
}

void RealInput::wheel(int steps)
{
    for (int step = 0; step < qAbs(steps); ++step)
        d->button(steps > 0 ? wheelUp : wheelDown);
}

bool RealInput::press(const QString& keys)
{
    QVector<KeyCode> codes;
    const QStringList names = keys.split(QLatin1Char('+'));
    for (const QString& name : names) {
        const KeySym symbol = XStringToKeysym(keysymName(name).toLatin1().constData());
        const KeyCode code = symbol == NoSymbol ? KeyCode(0) : XKeysymToKeycode(d->display, symbol);
        if (code == 0)
            return false;
        codes.append(code);
    }
    for (const KeyCode code : qAsConst(codes))
        d->key(code, true);
    for (auto code = codes.crbegin(); code != codes.crend(); ++code)
        d->key(*code, false);
    XSync(d->display, False);
    return true;
}

bool RealInput::type(const QString& text)
{
    const KeyCode shift = XKeysymToKeycode(d->display, XK_Shift_L);
    for (const QChar letter : text) {
        const KeySym symbol = letter.unicode(); // identical for Latin-1
        const KeyCode code = XKeysymToKeycode(d->display, symbol);
        if (letter.unicode() > 0xff || code == 0)
            return false;
        const bool shifted = XkbKeycodeToKeysym(d->display, code, 0, 0) != symbol;
        if (shifted)
            d->key(shift, true);
        d->key(code, true);
        d->key(code, false);
        if (shifted)
            d->key(shift, false);
    }
    XSync(d->display, False);
    return true;
}
