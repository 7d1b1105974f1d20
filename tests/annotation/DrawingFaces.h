// SPDX-License-Identifier: MIT
#pragma once

#include "annotation/PizhuForm.h"
#include "annotation/blackBoardform.h"
#include "platform/OverlayWindow.h"
#include "settings/ZrToolXmlClass.h"

#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTest>

/// What the tests of the two drawing windows share.
namespace faces {

constexpr bool annotation = false;
constexpr bool blackboard = true;
constexpr QRgb boardColour = 0xff181827;

/// A window that its owner forgets, as the program does: it deletes itself.
inline vexa::DrawingForm *make(bool face) {
    if (face == blackboard)
        return new blackBoardform;
    return new PizhuForm;
}

/// The rows of a test program that runs once for each.
inline void both() {
    QTest::addColumn<bool>("face");
    QTest::newRow("annotation") << annotation;
    QTest::newRow("blackboard") << blackboard;
}

/// The one that it runs for now.
inline bool current() {
    QFETCH_GLOBAL(bool, face);
    return face;
}

/// Calls `then` when the window reports that the user leaves it.
template<typename Then> void whenItReports(vexa::DrawingForm *form, Then then) {
    if (auto *board = qobject_cast<blackBoardform *>(form))
        QObject::connect(board, &blackBoardform::signalPizhukWindow, then);
    else
        QObject::connect(qobject_cast<PizhuForm *>(form), &PizhuForm::signalPizhukWindow, then);
}

inline void show(QWidget &form) {
    vexa::platform::showOverPrimaryScreen(form);
    QVERIFY(QTest::qWaitForWindowExposed(&form));
}

/// A new window, shown over what the program would give it: the board, or this picture of the screen.
inline vexa::DrawingForm *open(bool face, const QPixmap &picture) {
    vexa::DrawingForm *const form = make(face);
    if (auto *board = qobject_cast<blackBoardform *>(form))
        board->Setbackground2();
    else
        form->Setbackground(new QPixmap(picture));
    show(*form);
    return form;
}

inline QPushButton *exitButton(const QWidget &form) {
    return form.findChild<QPushButton *>("pushButton");
}
inline QPushButton *eraserButton(const QWidget &form) {
    return form.findChild<QPushButton *>("pushButton_eraser");
}
inline QPushButton *penButton(const QWidget &form) {
    return form.findChild<QPushButton *>("pushButton_pen");
}
inline QLabel *title(const QWidget &form) {
    return form.findChild<QLabel *>("label");
}

/// The screen as it is now, without what lies over it at other places.
inline QImage screen() {
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage();
}

/// What there is to draw on in a picture of the screen: all but the title and the buttons.
inline QImage sheet(const QWidget &form, QImage picture, const QColor &elsewhere = Qt::gray) {
    QPainter painter(&picture);
    for (const QWidget *child : form.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        if (!child->isWindow())
            painter.fillRect(child->geometry(), elsewhere);
    return picture;
}

inline void mouse(QWidget &form, QEvent::Type type, const QPointF &at) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, at, at, button, held, {});
    QCoreApplication::sendEvent(&form, &event);
}
inline void press(QWidget &form, const QPointF &at) {
    mouse(form, QEvent::MouseButtonPress, at);
}
inline void move(QWidget &form, const QPointF &at) {
    mouse(form, QEvent::MouseMove, at);
}
inline void release(QWidget &form, const QPointF &at) {
    mouse(form, QEvent::MouseButtonRelease, at);
}

/// Draws with the left button through these points.
inline void stroke(QWidget &form, const std::vector<QPoint> &points) {
    press(form, points.front());
    for (std::size_t i = 1; i < points.size(); ++i)
        move(form, points[i]);
    release(form, points.back());
}

inline std::vector<QPoint> line(const QPoint &from, const QPoint &to, int steps) {
    std::vector<QPoint> points;
    for (int i = 0; i <= steps; ++i)
        points.push_back(from + (to - from) * i / steps);
    return points;
}

} // namespace faces
