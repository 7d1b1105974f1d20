// SPDX-License-Identifier: MIT
#pragma once

#include "overlays/LightPen.h"
#include "overlays/Magnifie.h"
#include "overlays/Spolight2.h"
#include "platform/OverlayWindow.h"
#include "settings/ZrToolXmlClass.h"
#include "support/ScreenProbe.h"

#include <QTest>

#include <functional>

namespace vexa::test {

/// One of the held tools, by what the tests of all three need of it.
struct HeldToolKind {
    std::function<QWidget *()> make;
    std::function<void(QWidget *, bool)> press;
    std::function<void(QWidget *, QPixmap *)> setBackground;
    std::function<void(QWidget *, QPoint)> move;
    std::function<void(QWidget *, const std::function<void()> &)> whenItReports;
    int code = 0;
    bool takesMouse = false;
    const char *name = "";

    /// A new tool over the picture, shown the way the program does it.
    QWidget *open(QPixmap *picture) const {
        QWidget *tool = make();
        setBackground(tool, picture);
        press(tool, true);
        platform::showOverPrimaryScreen(*tool);
        return tool;
    }
};

template<typename Tool> HeldToolKind heldToolKind(const char *name, int code, bool takesMouse) {
    return {[] { return new Tool; },
            [](QWidget *tool, bool pressed) { static_cast<Tool *>(tool)->SetMousePress(pressed); },
            [](QWidget *tool, QPixmap *picture) { static_cast<Tool *>(tool)->Setbackground(picture); },
            [](QWidget *tool, QPoint at) { static_cast<Tool *>(tool)->SetMouseMove(at.x(), at.y()); },
            [](QWidget *tool, const std::function<void()> &then) {
                QObject::connect(static_cast<Tool *>(tool), &Tool::singalExitWindow, then);
            },
            code,
            takesMouse,
            name};
}

inline const HeldToolKind laser = heldToolKind<LightPen>("LightPen", 4, true);
inline const HeldToolKind spotlight = heldToolKind<Spolight2>("Spolight2", 2, false);
inline const HeldToolKind magnifier = heldToolKind<Magnifie>("Magnifie", 3, true);

/// Gives the tools of this size all at once, in points.
inline void setToolSizes(int size) {
    for (std::int32_t *setting :
         {&ZrToolXmlClass::LaserPenSize, &ZrToolXmlClass::SportLightSize, &ZrToolXmlClass::MagnifierSize})
        *setting = size;
}

/// Asks a tool to leave.
inline void leave(QWidget *tool) {
    QMetaObject::invokeMethod(tool, "ExitWindow");
}

} // namespace vexa::test

Q_DECLARE_METATYPE(vexa::test::HeldToolKind)

namespace vexa::test {

/// The rows of a test that holds for all three.
inline void allHeldTools() {
    QTest::addColumn<HeldToolKind>("kind");
    for (const HeldToolKind &kind : {laser, spotlight, magnifier})
        QTest::newRow(kind.name) << kind;
}

} // namespace vexa::test
