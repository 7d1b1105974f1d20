// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSet>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

/// What a person in front of the screen sees of a program. Needs an application object on the X display.
namespace e2e {

class Program;

struct Window {
    quint32 id = 0;
    QString title;
    QRect geometry; ///< device pixels, on the root window, without a frame
    bool visible = false;
    bool managed = false; ///< the window manager places it
};

/// Every top-level window of the process, shown or not.
QVector<Window> windowsOf(qint64 pid);

/// Those that are shown.
QVector<Window> visibleWindowsOf(qint64 pid);

/// What a window asks of the window manager. Sizes in device pixels, empty where it asks for none.
struct Wishes {
    QSize smallest, largest;
    bool frame = true;
    QSet<int> iconSizes; // of squares, in pixels
};
Wishes wishesOf(const Window &window);

/// The shown window of this size, or one with id 0.
Window visibleWindowOfSize(qint64 pid, const QSize &size);

/// The settings panel, when it is shown.
Window panelOf(qint64 pid, double pixelsPerPoint = 1);

/// Whether the window gets what is typed.
bool hasFocus(const Window &window);

/// Whether the start is over: the panel has shown itself, has hidden again and left its prompt.
bool hasWithdrawn(qint64 pid, double pixelsPerPoint = 1);

/// Starts the program and waits until its start is over and nothing of the panel is on the screen any more.
bool startAndSettle(Program &program, double pixelsPerPoint = 1);

QImage grabScreen();
QRgb pixelAt(const QPoint &position);

/// Asks the window manager to close the window, as its close button does.
void askToClose(const Window &window);

/// As another client of the X server can, without asking anybody.
void destroy(const Window &window);

/// Closes its owner's connection to the X server.
void disconnectOwner(const Window &window);

/// Tells the window's owner that it has been destroyed, which is not true.
void pretendDestroyed(const Window &window);

/// Asks the window manager to show another one of its virtual desktops, counted from 0.
void switchToDesktop(quint32 number);
/// The virtual desktop that is shown, or on which the window is; -1 where nobody says so.
int presentDesktop();
int desktopOf(const Window &window);

/// The files that the program has left on the desktop, hidden and half ones too.
QStringList screenshots();

} // namespace e2e
