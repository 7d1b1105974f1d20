// SPDX-License-Identifier: MIT
#include "app/OpenTools.h"

#include "annotation/PizhuForm.h"
#include "annotation/blackBoardform.h"
#include "overlays/LightPen.h"
#include "overlays/Magnifie.h"
#include "overlays/ScreenPicture.h"
#include "overlays/Spolight2.h"
#include "overlays/WholeScale.h"
#include "overlays/promptwindow2.h"
#include "platform/OverlayWindow.h"
#include "platform/Screens.h"

#include <QGuiApplication>
#include <QScreen>

#include <memory>

namespace vexa {

namespace {

template<typename Tool> void closeTool(QPointer<Tool> &pointer) {
    pointer->close();
    pointer.clear();
}

} // namespace

/// Forwards the reports of a new tool, and keeps track of it so that it does not outlive this object.
template<typename Tool> void OpenTools::attach(QPointer<Tool> &place, void (Tool::*report)(int)) {
    Tool *const tool = place;
    connect(tool, report, this, [this, tool, &place](int which) {
        if (place && place != tool)
            emit formerReported();
        else
            emit reported(which);
    });
    m_alive.append(tool);
    connect(tool, &QObject::destroyed, this, [this](QObject *gone) {
        m_alive.removeOne(gone);
        if (m_alive.isEmpty())
            emit allGone();
    });
}

OpenTools::~OpenTools() {
    blockSignals(true); // tools that close from here on are not reported
    qDeleteAll(QObjectList(m_alive));
}

template<typename Tool> void OpenTools::openHeldTool(QPointer<Tool> &place) {
    QPixmap picture =
        atWholeScale(pictureOfPrimaryScreen(), platform::coveringPoints(*QGuiApplication::primaryScreen()));
    place = new Tool(nullptr);
    place->Setbackground(&picture);
    connect(this, &OpenTools::leave, place.data(), &Tool::ExitWindow);
    attach(place, &Tool::singalExitWindow);
    place->SetMousePress(true);
    platform::showOverPrimaryScreen(*place, heldToolCover());
}

void OpenTools::openAnnotation() {
    auto picture = std::make_unique<QPixmap>(pictureOfPrimaryScreen());
    m_annotation = new PizhuForm(nullptr);
    m_annotation->prompt()->showWithTransperent();
    m_annotation->Setbackground(picture.release());
    attach(m_annotation, &PizhuForm::signalPizhukWindow);
    platform::showOverPrimaryScreen(*m_annotation);
    m_annotation->prompt()->setCurcolor(0);
    m_annotation->prompt()->delayShow();
}

void OpenTools::closeAnnotation() {
    closeTool(m_annotation);
}

void OpenTools::stepAnnotationColour() {
    if (m_annotation)
        m_annotation->ChangePenColorID();
}

void OpenTools::openBlackboard() {
    m_blackboard = new blackBoardform(nullptr);
    m_blackboard->prompt()->showWithTransperent();
    m_blackboard->Setbackground2();
    attach(m_blackboard, &blackBoardform::signalPizhukWindow);
    platform::showOverPrimaryScreen(*m_blackboard);
    m_blackboard->prompt()->setCurcolor(0);
    m_blackboard->prompt()->showWithTimer();
}

void OpenTools::closeBlackboard() {
    closeTool(m_blackboard);
}

void OpenTools::stepBlackboardColour() {
    if (m_blackboard)
        m_blackboard->ChangePenColorID();
}

void OpenTools::openSpotlight() {
    openHeldTool(m_spotlight);
}

void OpenTools::openMagnifier() {
    openHeldTool(m_magnifier);
}

void OpenTools::openLaser() {
    openHeldTool(m_laser);
}

platform::Cover OpenTools::heldToolCover() const {
    return annotationOpen() || blackboardOpen() ? platform::Cover::Maximized : platform::Cover::FullScreen;
}

template<typename Action> void OpenTools::withHeldTool(HeldToolChoice tool, Action act) {
    const auto ifOpen = [&act](const auto &pointer) {
        if (pointer)
            act(*pointer);
    };
    switch (tool) {
    case HeldToolChoice::Spotlight:
        return ifOpen(m_spotlight);
    case HeldToolChoice::Magnifier:
        return ifOpen(m_magnifier);
    case HeldToolChoice::Laser:
        return ifOpen(m_laser);
    }
}

bool OpenTools::heldToolOpen() const {
    return m_spotlight || m_magnifier || m_laser;
}

void OpenTools::moveHeldTool(HeldToolChoice tool, int x, int y) {
    withHeldTool(tool, [x, y](auto &open) { open.SetMouseMove(x, y); });
}

void OpenTools::exitHeldTool(HeldToolChoice tool) {
    withHeldTool(tool, [](auto &open) { open.ExitWindow(); });
}

void OpenTools::forgetHeldTools() {
    m_spotlight.clear();
    m_magnifier.clear();
    m_laser.clear();
}

bool OpenTools::forget(ClosingReport report) {
    switch (report) {
    case ClosingReport::Blackboard:
        m_blackboard.clear();
        return true;
    case ClosingReport::Annotation:
        m_annotation.clear();
        return true;
    case ClosingReport::Spotlight:
        m_spotlight.clear();
        return true;
    case ClosingReport::Magnifier:
        m_magnifier.clear();
        return true;
    case ClosingReport::Laser:
        m_laser.clear();
        return true;
    }
    return false;
}

} // namespace vexa
