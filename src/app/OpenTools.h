// SPDX-License-Identifier: MIT
#pragma once

#include "overlays/ClosingReport.h"
#include "platform/OverlayWindow.h"
#include "settings/Choices.h"

#include <QObject>
#include <QPointer>

class LightPen;
class Magnifie;
class PizhuForm;
class Spolight2;
class blackBoardform;

namespace vexa {

/// The tools that lie over the screen: opens them, knows which are open, and forwards pointer moves and pen
/// changes to them. Every tool deletes itself when it closes, for whatever reason, and not all of them report
/// it; at the latest it is deleted with this object. GUI thread only.
class OpenTools : public QObject {
    Q_OBJECT

public:
    ~OpenTools() override;

    bool annotationOpen() const { return !m_annotation.isNull(); }
    bool blackboardOpen() const { return !m_blackboard.isNull(); }
    bool heldToolOpen() const;

    void openAnnotation();
    void closeAnnotation();
    void stepAnnotationColour();

    void openBlackboard();
    void closeBlackboard();
    void stepBlackboardColour();

    /// Opens one more held tool. An earlier one of the same kind stays until it closes, but no longer gets
    /// pointer moves.
    void openSpotlight();
    void openMagnifier();
    void openLaser();

    /// Forwards a pointer move, or a request to close, to the open tool of that kind; without one nothing
    /// happens. The position is in points from the top-left corner of the primary screen.
    void moveHeldTool(HeldToolChoice tool, int x, int y);
    void exitHeldTool(HeldToolChoice tool);

    /// From now on the tool of that kind, or every held tool, does not count as open and gets nothing
    /// forwarded. It still deletes itself when it closes. False for a number that is no report.
    bool forget(ClosingReport report);
    void forgetHeldTools();

signals:
    /// Asks every held tool to close, also those that have been replaced by a newer one.
    void leave();
    /// A tool has reported that it closes; `which` is a ClosingReport. It counts as open until forget().
    void reported(int which);
    /// A tool that a newer one of its kind has replaced reports that it closes. It no longer counts as open.
    void formerReported();
    /// Every tool has been deleted, also those that were replaced.
    void allGone();

private:
    template<typename Tool> void attach(QPointer<Tool> &place, void (Tool::*report)(int));
    template<typename Tool> void openHeldTool(QPointer<Tool> &place);
    template<typename Action> void withHeldTool(HeldToolChoice tool, Action act);
    platform::Cover heldToolCover() const;

    QObjectList m_alive; ///< tools that have not been deleted yet, also those that were replaced
    QPointer<PizhuForm> m_annotation;
    QPointer<blackBoardform> m_blackboard;
    QPointer<Spolight2> m_spotlight;
    QPointer<Magnifie> m_magnifier;
    QPointer<LightPen> m_laser;
};

} // namespace vexa
