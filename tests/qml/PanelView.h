// SPDX-License-Identifier: MIT
#pragma once

#include "support/ViewNumbers.h"

#include <QColor>
#include <QList>
#include <QQuickItem>
#include <QQuickWidget>
#include <QString>
#include <QStringList>

#include <memory>
#include <utility>

/// A settings message of the view, as its host receives it.
struct Message {
    ViewMessage id = {};
    vexa::test::Number var1 = 0;
    vexa::test::Number var2 = 0;

    bool operator==(const Message &other) const {
        return id == other.id && var1 == other.var1 && var2 == other.var2;
    }
};

using Messages = QList<Message>;

/// The panel's view as it stands on the screen, without a host: what a user can do to it and see of it, and
/// what it says. All places are points from the view's top left corner.
class PanelView : public QObject {
    Q_OBJECT

public:
    explicit PanelView(const QString &document = QStringLiteral("qrc:/MainWindow.qml"));

    enum NotShown { Unseen };
    /// The panel as it is before its window is shown.
    explicit PanelView(NotShown);

    /// The view that fills the window of a host, which must outlive this.
    explicit PanelView(QQuickWidget &hosted);

    QQuickWidget &widget() { return m_widget; }
    QQuickItem *root() { return m_widget.rootObject(); }

    /// What a host does to show a value.
    void push(ViewMessage id, vexa::test::Number value, vexa::test::Number var2 = 0);
    /// Pushes these as the settings that have a message, in the order of the messages.
    void pushAll(const QList<int> &values);

    void click(const QPoint &place);
    void press(const QPoint &place);
    void moveTo(const QPoint &place);
    void release(const QPoint &place);
    /// Moves to a place even when the pointer is there already, for what has come to lie under it since.
    void jiggle(const QPoint &place);
    /// Opens the list in the box at this place; its popup.
    QObject *openList(const QPoint &box);
    /// Opens it and clicks a row.
    void pick(const QPoint &box, vexa::test::Number row);

    /// Gives the panel the keyboard.
    void activate();
    void type(Qt::Key key);

    /// The visible item of a QML type whose corner is at this place, or null.
    QQuickItem *item(const QString &type, const QPointF &corner);
    /// The visible text item whose corner is at this place, or null; and its words, none without it.
    QQuickItem *text(const QPointF &corner);
    QString textAt(const QPointF &corner);
    /// What the visible item of this type and place has of a property; invalid without it.
    QVariant shown(const char *type, const QPointF &corner, const char *property);
    /// The list in the box at this place, or null.
    QQuickItem *list(const QPointF &box) { return item("ComboxControl", box); }
    /// All visible items of a QML type, in drawing order.
    QList<QQuickItem *> items(const QString &type);
    bool has(const QString &type) { return !items(type).isEmpty(); }
    QStringList visibleTexts();

    /// The colour that is drawn at this place.
    QColor pixel(const QPoint &place);

    Messages messages;
    /// Those so far, which are gone then.
    Messages takeMessages() { return std::exchange(messages, {}); }

private:
    Q_SLOT void record(int id, int var1, int var2);
    void listen();
    /// The row of an open list at this place, or null.
    QQuickItem *rowAt(const QPoint &place);

    std::unique_ptr<QQuickWidget> m_own;
    QQuickWidget &m_widget;
};

namespace qml {

/// Lets whatever the toolkit has to complain about a view (a binding loop, an undefined value) fail the test
/// that is running. Called by PanelView; a test that makes a host calls it before.
void failOnWarnings();

/// Whether the item's type is the QML type of this name, from a file of ours or from the toolkit.
bool isOfType(const QQuickItem *item, const QString &type);
/// The item and all below it, in drawing order.
QList<QQuickItem *> tree(QQuickItem *top);
/// Where the item's top left corner is in the view.
QPointF corner(const QQuickItem *item);

/// Whether the object is there and its properties have these values, which are written as in QML:
/// "width: 26; border.color: #ffcc0d". Warns of the first that has another.
bool is(QObject *object, const QString &expected);

} // namespace qml
