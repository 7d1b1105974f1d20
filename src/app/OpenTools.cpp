// SPDX-License-Identifier: MIT
#include "app/OpenTools.h"

#include "annotation/PizhuForm.h"
#include "annotation/blackBoardform.h"
#include "app/MainWindow.h"
#include "overlays/LightPen.h"
#include "overlays/Magnifie.h"
#include "overlays/ScreenPicture.h"
#include "overlays/Spolight2.h"
#include "overlays/promptwindow2.h"
#include "platform/OverlayWindow.h"

#include <memory>

namespace vexa {

namespace {

/// Lets a new tool report to the window, and makes sure that it does not outlive it.
template<typename Tool> void attach(Tool *tool, void (Tool::*report)(int), MainWindow &window) {
    QObject::connect(tool, report, &window, &MainWindow::RecvWindowMessage);
    QObject::connect(&window, &QObject::destroyed, tool, [tool] { delete tool; });
}

template<typename Tool> Tool *newHeldTool(MainWindow &window, platform::Cover cover) {
    QPixmap picture = pictureOfPrimaryScreen();
    auto *tool = new Tool(nullptr);
    tool->Setbackground(&picture);
    QObject::connect(&window, &MainWindow::signalExitWindow, tool, &Tool::ExitWindow);
    attach(tool, &Tool::singalExitWindow, window);
    tool->SetMousePress(true);
    platform::showOverPrimaryScreen(*tool, cover);
    return tool;
}

/// Forgets a window that has reported its end; but not the successor that was opened in the meantime.
template<typename Tool> void drop(QPointer<Tool> &pointer, const QObject *reporter) {
    if (!reporter || reporter == pointer)
        pointer.clear();
}

template<typename Tool> void close(QPointer<Tool> &pointer) {
    pointer->close();
    pointer.clear();
}

} // namespace

void OpenTools::openAnnotation() {
    auto picture = std::make_unique<QPixmap>(pictureOfPrimaryScreen());
    m_annotation = new PizhuForm(nullptr);
    m_annotation->prompt()->showWithTransperent();
    m_annotation->Setbackground(picture.release());
    attach(m_annotation.data(), &PizhuForm::signalPizhukWindow, m_window);
    platform::showOverPrimaryScreen(*m_annotation);
    m_annotation->prompt()->setCurcolor(0);
    m_annotation->prompt()->delayShow();
}

void OpenTools::closeAnnotation() {
    close(m_annotation);
}

void OpenTools::stepAnnotationColour() {
    if (m_annotation)
        m_annotation->ChangePenColorID();
}

void OpenTools::openBlackboard() {
    m_blackboard = new blackBoardform(nullptr);
    m_blackboard->prompt()->showWithTransperent();
    m_blackboard->Setbackground2();
    attach(m_blackboard.data(), &blackBoardform::signalPizhukWindow, m_window);
    platform::showOverPrimaryScreen(*m_blackboard);
    m_blackboard->prompt()->setCurcolor(0);
    m_blackboard->prompt()->showWithTimer();
}

void OpenTools::closeBlackboard() {
    close(m_blackboard);
}

void OpenTools::stepBlackboardColour() {
    if (m_blackboard)
        m_blackboard->ChangePenColorID();
}

void OpenTools::openSpotlight() {
    m_spotlight = newHeldTool<Spolight2>(m_window, heldToolCover());
}

void OpenTools::openMagnifier() {
    m_magnifier = newHeldTool<Magnifie>(m_window, heldToolCover());
}

void OpenTools::openLaser() {
    m_laser = newHeldTool<LightPen>(m_window, heldToolCover());
}

platform::Cover OpenTools::heldToolCover() const {
    return annotationOpen() || blackboardOpen() ? platform::Cover::Maximized : platform::Cover::FullScreen;
}

template<typename Action> void OpenTools::withHeldTool(int tool, Action act) {
    if (tool == 0 && m_spotlight)
        act(*m_spotlight);
    else if (tool == 1 && m_magnifier)
        act(*m_magnifier);
    else if (tool == 2 && m_laser)
        act(*m_laser);
}

void OpenTools::moveHeldTool(int tool, int x, int y) {
    withHeldTool(tool, [x, y](auto &open) { open.SetMouseMove(x, y); });
}

void OpenTools::exitHeldTool(int tool) {
    withHeldTool(tool, [](auto &open) { open.ExitWindow(); });
}

void OpenTools::forgetHeldTools() {
    m_spotlight.clear();
    m_magnifier.clear();
    m_laser.clear();
}

bool OpenTools::forget(int which, const QObject *reporter) {
    switch (which) {
    case 0:
        drop(m_blackboard, reporter);
        return true;
    case 1:
        drop(m_annotation, reporter);
        return true;
    case 2:
        drop(m_spotlight, reporter);
        return true;
    case 3:
        drop(m_magnifier, reporter);
        return true;
    case 4:
        drop(m_laser, reporter);
        return true;
    default:
        return false;
    }
}

} // namespace vexa
