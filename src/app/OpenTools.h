// SPDX-License-Identifier: MIT
#pragma once

#include "platform/OverlayWindow.h"

#include <QPointer>

class LightPen;
class MainWindow;
class Magnifie;
class PizhuForm;
class QObject;
class Spolight2;
class blackBoardform;

namespace vexa {

/// The tools that lie over the screen: opens them, knows which are open, and hands them what is meant for
/// them. Every tool deletes itself when it closes, whoever closed it, and not all of them say so; at the
/// latest it goes with the main window. GUI thread only.
class OpenTools {
public:
    /// The tools report to the window's RecvWindowMessage(int); the held ones close on its
    /// signalExitWindow().
    explicit OpenTools(MainWindow &window) : m_window(window) {}

    bool annotationOpen() const { return !m_annotation.isNull(); }
    bool blackboardOpen() const { return !m_blackboard.isNull(); }

    void openAnnotation();
    void closeAnnotation();
    void stepAnnotationColour();

    void openBlackboard();
    void closeBlackboard();
    void stepBlackboardColour();

    /// Opens one more held tool. An earlier one of the same kind stays until it closes, but is no longer fed.
    void openSpotlight();
    void openMagnifier();
    void openLaser();

    /// The held tools by their code: 0 spotlight, 1 magnifier, 2 laser; places in points. Without such a tool
    /// nothing happens.
    void moveHeldTool(int tool, int x, int y);
    void exitHeldTool(int tool);
    void forgetHeldTools();

    /// A tool reports that it closes: 0 blackboard, 1 annotation, 2 spotlight, 3 magnifier, 4 laser. False
    /// for any other number. `reporter` is the tool itself, or null when that is not known.
    bool forget(int which, const QObject *reporter);

private:
    platform::Cover heldToolCover() const;
    template<typename Action> void withHeldTool(int tool, Action act);

    MainWindow &m_window;
    QPointer<PizhuForm> m_annotation;
    QPointer<blackBoardform> m_blackboard;
    QPointer<Spolight2> m_spotlight;
    QPointer<Magnifie> m_magnifier;
    QPointer<LightPen> m_laser;
};

} // namespace vexa
