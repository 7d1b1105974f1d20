// SPDX-License-Identifier: MIT
#include "qml/PanelPlaces.h"
#include "qml/PanelView.h"
#include "support/Table.h"
#include "support/TestMain.h"

#include <QSignalSpy>

namespace {

/// The bare rectangle that covers this part of the item, or null.
QQuickItem *rectangleAt(QQuickItem *top, const QRectF &place) {
    for (QQuickItem *item : qml::tree(top))
        if (item != top && item->isVisible() && qml::isOfType(item, "QQuickRectangle") &&
            QRectF(qml::corner(item), item->size()) == place)
            return item;
    return nullptr;
}

} // namespace

/// The controls that the views are made of, each by itself: what it is before anybody sets anything, and what
/// a click does to it.
class ControlsTest : public QObject {
    Q_OBJECT

    using Ids = QList<ViewMessage>;
    using Views = vexa::test::Table<Ids>; // of the messages that are its own

private slots:
    void keyButtonHasItsDefaults() {
        PanelView view("qrc:/KeyButton.qml");
        QCOMPARE(view.root()->implicitWidth() + view.root()->width(), 24.0);
        QVERIFY(qml::is(view.root(),
                        "height: 24; color: transparent; direction: 0; btnID: 0; style: 0; checked: false; "
                        "iconleftnormal: qrc:/icon-left@3x.png; iconleftsel: qrc:/icon-left-selected@3x.png; "
                        "iconrightnormal: qrc:/icon-right@3x.png; iconrightsel: "
                        "qrc:/icon-right-selected@3x.png; seticon: qrc:/icon-setting@3x.png"));
        QVERIFY(!view.root()->property("exclusiveGroup").value<QObject *>());
    }

    void keyButtonShowsItsIcon() {
        PanelView view("qrc:/KeyButton.qml");
        const struct {
            int style, direction;
            bool checked;
            const char *icon;
        } rows[] = {{0, 0, false, "icon-left"},    {0, 0, true, "icon-left-selected"},
                    {0, 1, false, "icon-right"},   {0, 1, true, "icon-right-selected"},
                    {1, 1, false, "icon-setting"}, {1, 0, true, "icon-setting"}};
        for (const auto &row : rows) {
            view.root()->setProperty("style", row.style);
            view.root()->setProperty("direction", row.direction);
            view.root()->setProperty("checked", row.checked);
            QCOMPARE(view.shown("QQuickImage", {0, 0}, "source").toString(),
                     QString("qrc:/%1@3x.png").arg(row.icon));
        }
    }

    void colourButtonHasItsLooks() {
        PanelView view("qrc:/PizhuSetButton1.qml");
        QQuickItem *button = view.root();
        QVERIFY(qml::is(button, "width: 26; height: 26; radius: 13; color: transparent; border.color: "
                                "#ffcc0d; border.width: 0"));
        button->setProperty("checked", true);
        QVERIFY(qml::is(button, "border.width: 1"));

        button->setProperty("btncolor", "#82FF20");
        QQuickItem *disc = rectangleAt(button, {2, 2, 22, 22});
        QVERIFY(qml::is(disc, "radius: 11; color: #82ff20"));
        button->setProperty("showimage", false);
        QVERIFY(!disc->isVisible());
    }

    void widthButtonHasItsLooks() {
        PanelView view("qrc:/PizhuSetButton2.qml");
        QQuickItem *button = view.root();
        QVERIFY(qml::is(button, "width: 32; height: 32; selBorderColor: #FFCD36; normalBorderColor: white"));
        QQuickItem *square = rectangleAt(button, {0, 0, 32, 32});
        QVERIFY(qml::is(square, "radius: 16; color: #333333; border.width: 1; border.color: white"));
        button->setProperty("checked", true);
        QVERIFY(qml::is(square, "border.color: #ffcd36"));
    }

    void widthButtonTakesWhatItIsGiven() {
        PanelView view("qrc:/PizhuSetButton2.qml");
        QQuickItem *button = view.root();
        QVERIFY(QMetaObject::invokeMethod(button, "setWidth", Q_ARG(QVariant, 8)));
        QVERIFY(qml::is(rectangleAt(button, {12, 12, 8, 8}), "radius: 4; color: white"));
        QCOMPARE(button->property("son2width"), QVariant(8));

        QVERIFY(QMetaObject::invokeMethod(button, "setBorderColor", Q_ARG(QVariant, "#00FF00")));
        QVERIFY(qml::is(rectangleAt(button, {0, 0, 32, 32}), "border.color: #00ff00"));

        QVERIFY(QMetaObject::invokeMethod(button, "setBtnID", Q_ARG(QVariant, 3)));
        QVariant number;
        QVERIFY(QMetaObject::invokeMethod(button, "getBtnID", Q_RETURN_ARG(QVariant, number)));
        QCOMPARE(number.toInt(), 3);
    }

    void clickTogglesAKeyButtonAndChecksAColourOrAWidthForGood() {
        for (const auto &[file, afterTwo] :
             {std::pair("KeyButton", false), std::pair("PizhuSetButton1", true),
              std::pair("PizhuSetButton2", true)}) {
            PanelView view(QString("qrc:/%1.qml").arg(file));
            for (const bool checked : {false, true, afterTwo}) {
                QVERIFY2(view.root()->property("checked").toBool() == checked, file);
                view.click({12, 12});
            }
        }
    }

    void textBoxSaysPageUpUntilTold() {
        PanelView view("qrc:/MyTextBox.qml");
        QVERIFY(qml::is(view.root(),
                        "showtext: page up; border.width: 1; border.color: #707070; color: transparent"));
        QCOMPARE(view.visibleTexts(), QStringList("page up"));
        view.root()->setProperty("showtext", "page down");
        QCOMPARE(view.visibleTexts(), QStringList("page down"));
    }

    void textBoxElidesWhatIsTooLong() {
        PanelView view("qrc:/MyTextBox.qml");
        const QQuickItem *text = view.items("QQuickText").first();
        QVERIFY(!text->property("truncated").toBool());
        const qreal height = text->property("contentHeight").toReal();
        view.root()->setProperty("showtext", QString(60, 'm'));
        QCOMPARE(text->property("contentHeight").toReal(), height); // nothing shrinks
        QVERIFY(text->property("truncated").toBool());
        QVERIFY(text->property("contentWidth").toReal() <= text->width());
    }

    void listHasItsDefaults() {
        PanelView view("qrc:/ComboxControl.qml");
        QQuickItem *list = view.root();
        QVERIFY(qml::is(
            list,
            "width: 207; height: 30; fillColor: #2F2F2F; borderColor: #606060; selectFillColor: #3D3D3D; "
            "icondown: qrc:/icon-down@3x.png; iconup: qrc:/icon-up@3x.png; background.radius: 5; "
            "background.border.width: 1; contentItem.elide: 1; popup.background.radius: 5"));
        const auto *text = list->property("contentItem").value<QQuickItem *>();
        QCOMPARE(text->x() + text->property("leftPadding").toReal(), 10.0);
    }

    void switchAsksAndDoesNotTurnItself() {
        PanelView view("qrc:/SwitchControl.qml");
        QSignalSpy clicks(view.root(), SIGNAL(clicked()));
        view.click({19, 10});
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(view.root()->property("myChecked"), QVariant(false));
    }

    void viewsHaveTheirProperties() {
        for (const auto &[file, properties] :
             {std::pair("Key2Window", "width: 257; height: 188; btnID: 0; checked: false"),
              std::pair("Key3Window", "width: 257; height: 188; btnID: 0; checked: false"),
              std::pair("Key4Window",
                        "width: 257; height: 500; btnID: 0; checked: false; borderColor: #707070"),
              std::pair("SetWindow", "width: 257; height: 188"),
              std::pair("PizhuSetPenColor", "width: 207; height: 272; curpenColorID: 0; selBorderColor: "
                                            "#FFCD36; normalBorderColor: white; "
                                            "pencolor0: #000000; pencolor1: #000000; pencolor2: #000000")}) {
            PanelView view(QString("qrc:/%1.qml").arg(file));
            QVERIFY(qml::is(view.root(), properties));
        }
    }

    void otherIdentifiersLeaveAViewAlone_data() {
        const Ids laser{ViewMessage::LaserPenColor, ViewMessage::LaserPenSize, ViewMessage::Key4P};
        const Ids magnifier{ViewMessage::MagnifierColor, ViewMessage::MagnifierSize, ViewMessage::Key4P};
        const Ids spotlight{ViewMessage::SportLightTran, ViewMessage::SportLightSize, ViewMessage::Key4P};
        Views::begin();
        QTest::newRow("Key1Window") << Ids{ViewMessage::PenColor0, ViewMessage::PenColor1,
                                           ViewMessage::PenColor2, ViewMessage::PenThickness};
        QTest::newRow("Key2Window") << Ids{ViewMessage::Key2P};
        QTest::newRow("Key3Window") << Ids{ViewMessage::Key3P};
        QTest::newRow("Key4Window") << laser + magnifier + spotlight + Ids{ViewMessage::Key4C};
        QTest::newRow("SetWindow") << Ids{ViewMessage::Language, ViewMessage::AutoStart};
        QTest::newRow("LightpenSetWindow") << laser;
        QTest::newRow("MagnifierSetWindow") << magnifier;
        QTest::newRow("SportLightSetWindow") << spotlight;
    }
    void otherIdentifiersLeaveAViewAlone() {
        const auto [own] = Views::row();
        PanelView view(QString("qrc:/%1.qml").arg(QTest::currentDataTag()));
        view.moveTo({0, 0});
        const QImage before = view.widget().grabFramebuffer();
        for (int id = -1; id <= 18; ++id)
            if (!own.contains(ViewMessage(id)))
                view.push(ViewMessage(id), 2);
        view.push(ViewMessage::ShowView, 0);
        QCOMPARE(view.widget().grabFramebuffer(), before);
    }
};

VEXA_WIDGET_TEST_MAIN(ControlsTest)
#include "ControlsTest.moc"
