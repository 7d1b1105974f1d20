// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"
#include "support/TestMain.h"

namespace {

QColor colorOf(const QObject *item, const char *property = "color") {
    return item->property(property).value<QColor>();
}

/// Width and colour of a rectangle's border.
int borderWidth(const QObject *rectangle) {
    return rectangle->property("border").value<QObject *>()->property("width").toInt();
}
QColor borderColor(const QObject *rectangle) {
    return colorOf(rectangle->property("border").value<QObject *>());
}

/// The bare rectangle that covers this part of the item, or null.
QQuickItem *rectangleAt(QQuickItem *top, const QRectF &place) {
    for (QQuickItem *item : qml::tree(top))
        if (item != top && item->isVisible() && qml::isOfType(item, QStringLiteral("QQuickRectangle")) &&
            QRectF(qml::corner(item), item->size()) == place)
            return item;
    return nullptr;
}

} // namespace

/// The controls that the views are made of, each by itself: what it is before anybody sets anything, and what
/// a click does to it.
class ControlsTest : public QObject {
    Q_OBJECT

private slots:
    void keyButtonHasItsDefaults() {
        PanelView view(QStringLiteral("qrc:/KeyButton.qml"));
        const QQuickItem *button = view.root();
        QCOMPARE(button->implicitWidth() + button->width(), 24.0);
        QCOMPARE(button->height(), 24.0);
        QCOMPARE(colorOf(button).alpha(), 0);
        QCOMPARE(button->property("direction"), QVariant(0));
        QCOMPARE(button->property("btnID"), QVariant(0));
        QCOMPARE(button->property("style"), QVariant(0));
        QCOMPARE(button->property("checked"), QVariant(false));
        QVERIFY(button->property("exclusiveGroup").value<QObject *>() == nullptr);
        const QList<std::pair<const char *, const char *>> icons{
            {"iconleftnormal", "qrc:/icon-left@3x.png"},
            {"iconleftsel", "qrc:/icon-left-selected@3x.png"},
            {"iconrightnormal", "qrc:/icon-right@3x.png"},
            {"iconrightsel", "qrc:/icon-right-selected@3x.png"},
            {"seticon", "qrc:/icon-setting@3x.png"}};
        for (const auto &[property, picture] : icons)
            QCOMPARE(button->property(property).toString(), QString::fromLatin1(picture));
    }

    void keyButtonShowsItsIcon_data() {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("direction");
        QTest::addColumn<bool>("checked");
        QTest::addColumn<QString>("icon");
        QTest::newRow("left") << 0 << 0 << false << QStringLiteral("qrc:/icon-left@3x.png");
        QTest::newRow("left, open") << 0 << 0 << true << QStringLiteral("qrc:/icon-left-selected@3x.png");
        QTest::newRow("right") << 0 << 1 << false << QStringLiteral("qrc:/icon-right@3x.png");
        QTest::newRow("right, open") << 0 << 1 << true << QStringLiteral("qrc:/icon-right-selected@3x.png");
        QTest::newRow("gear") << 1 << 1 << false << QStringLiteral("qrc:/icon-setting@3x.png");
        QTest::newRow("gear, open") << 1 << 0 << true << QStringLiteral("qrc:/icon-setting@3x.png");
    }
    void keyButtonShowsItsIcon() {
        QFETCH(int, style);
        QFETCH(int, direction);
        QFETCH(bool, checked);
        QFETCH(QString, icon);
        PanelView view(QStringLiteral("qrc:/KeyButton.qml"));
        view.root()->setProperty("style", style);
        view.root()->setProperty("direction", direction);
        view.root()->setProperty("checked", checked);
        const QQuickItem *picture = view.item(QStringLiteral("QQuickImage"), {0, 0});
        QVERIFY(picture != nullptr);
        QCOMPARE(picture->property("source").toString(), icon);
    }

    void clickTogglesAKeyButton() {
        PanelView view(QStringLiteral("qrc:/KeyButton.qml"));
        view.click({12, 12});
        QCOMPARE(view.root()->property("checked"), QVariant(true));
        view.click({12, 12});
        QCOMPARE(view.root()->property("checked"), QVariant(false));
    }

    void colourButtonHasItsLooks() {
        PanelView view(QStringLiteral("qrc:/PizhuSetButton1.qml"));
        QQuickItem *button = view.root();
        QCOMPARE(button->size(), QSizeF(26, 26));
        QCOMPARE(button->property("radius").toReal(), 13.0);
        QCOMPARE(colorOf(button).alpha(), 0);
        QCOMPARE(borderColor(button), QColor(0xff, 0xcc, 0x0d));
        QCOMPARE(borderWidth(button), 0);
        button->setProperty("checked", true);
        QCOMPARE(borderWidth(button), 1);

        button->setProperty("btncolor", QStringLiteral("#82FF20"));
        const QQuickItem *disc = rectangleAt(button, {2, 2, 22, 22});
        QVERIFY(disc != nullptr);
        QCOMPARE(disc->property("radius").toReal(), 11.0);
        QCOMPARE(colorOf(disc), QColor(0x82, 0xff, 0x20));
        button->setProperty("showimage", false);
        QVERIFY(!disc->isVisible());
    }

    void colourButtonIsCheckedByAClickAndStaysSo() {
        PanelView view(QStringLiteral("qrc:/PizhuSetButton1.qml"));
        QCOMPARE(view.root()->property("checked"), QVariant(false));
        view.click({13, 13});
        QCOMPARE(view.root()->property("checked"), QVariant(true));
        view.click({13, 13});
        QCOMPARE(view.root()->property("checked"), QVariant(true));
    }

    void widthButtonHasItsLooks() {
        PanelView view(QStringLiteral("qrc:/PizhuSetButton2.qml"));
        QQuickItem *button = view.root();
        QCOMPARE(button->size(), QSizeF(32, 32));
        QCOMPARE(button->property("selBorderColor").toString(), QStringLiteral("#FFCD36"));
        QCOMPARE(button->property("normalBorderColor").toString(), QStringLiteral("white"));
        const QQuickItem *square = rectangleAt(button, {0, 0, 32, 32});
        QVERIFY(square != nullptr);
        QCOMPARE(square->property("radius").toReal(), 16.0);
        QCOMPARE(colorOf(square), QColor(0x33, 0x33, 0x33));
        QCOMPARE(borderWidth(square), 1);
        QCOMPARE(borderColor(square), QColor(Qt::white));
        button->setProperty("checked", true);
        QCOMPARE(borderColor(square), QColor(0xff, 0xcd, 0x36));
    }

    void widthButtonTakesWhatItIsGiven() {
        PanelView view(QStringLiteral("qrc:/PizhuSetButton2.qml"));
        QQuickItem *button = view.root();
        QVERIFY(QMetaObject::invokeMethod(button, "setWidth", Q_ARG(QVariant, 8)));
        const QQuickItem *dot = rectangleAt(button, {12, 12, 8, 8});
        QVERIFY(dot != nullptr);
        QCOMPARE(dot->property("radius").toReal(), 4.0);
        QCOMPARE(colorOf(dot), QColor(Qt::white));
        QCOMPARE(button->property("son2width"), QVariant(8));

        QVERIFY(
            QMetaObject::invokeMethod(button, "setBorderColor", Q_ARG(QVariant, QStringLiteral("#00FF00"))));
        QCOMPARE(borderColor(rectangleAt(button, {0, 0, 32, 32})), QColor(0x00, 0xff, 0x00));

        QVERIFY(QMetaObject::invokeMethod(button, "setBtnID", Q_ARG(QVariant, 3)));
        QVariant number;
        QVERIFY(QMetaObject::invokeMethod(button, "getBtnID", Q_RETURN_ARG(QVariant, number)));
        QCOMPARE(number.toInt(), 3);
    }

    void widthButtonIsCheckedByAClickAndStaysSo() {
        PanelView view(QStringLiteral("qrc:/PizhuSetButton2.qml"));
        QCOMPARE(view.root()->property("checked"), QVariant(false));
        view.click({16, 16});
        QCOMPARE(view.root()->property("checked"), QVariant(true));
        view.click({16, 16});
        QCOMPARE(view.root()->property("checked"), QVariant(true));
    }

    void textBoxSaysPageUpUntilTold() {
        PanelView view(QStringLiteral("qrc:/MyTextBox.qml"));
        QCOMPARE(view.root()->property("showtext").toString(), QStringLiteral("page up"));
        QCOMPARE(view.visibleTexts(), QStringList("page up"));
        QCOMPARE(borderWidth(view.root()), 1);
        QCOMPARE(borderColor(view.root()), QColor(0x70, 0x70, 0x70));
        QCOMPARE(colorOf(view.root()).alpha(), 0);
        view.root()->setProperty("showtext", QStringLiteral("page down"));
        QCOMPARE(view.visibleTexts(), QStringList("page down"));
    }

    void textBoxElidesWhatIsTooLong() {
        PanelView view(QStringLiteral("qrc:/MyTextBox.qml"));
        const QQuickItem *text = view.items(QStringLiteral("QQuickText")).first();
        QVERIFY(!text->property("truncated").toBool());
        const qreal height = text->property("contentHeight").toReal();
        view.root()->setProperty("showtext", QString(60, 'm'));
        QCOMPARE(text->property("contentHeight").toReal(), height); // nothing shrinks
        QVERIFY(text->property("truncated").toBool());
        QVERIFY(text->property("contentWidth").toReal() <= text->width());
    }

    void listHasItsDefaults() {
        PanelView view(QStringLiteral("qrc:/ComboxControl.qml"));
        const QQuickItem *list = view.root();
        QCOMPARE(list->size(), QSizeF(207, 30));
        const QList<std::pair<const char *, const char *>> texts{{"fillColor", "#2F2F2F"},
                                                                 {"borderColor", "#606060"},
                                                                 {"selectFillColor", "#3D3D3D"},
                                                                 {"icondown", "qrc:/icon-down@3x.png"},
                                                                 {"iconup", "qrc:/icon-up@3x.png"}};
        for (const auto &[property, value] : texts)
            QCOMPARE(list->property(property).toString(), QString::fromLatin1(value));
        const auto *background = list->property("background").value<QQuickItem *>();
        QCOMPARE(background->property("radius").toReal(), 5.0);
        QCOMPARE(borderWidth(background), 1);
        const auto *text = list->property("contentItem").value<QQuickItem *>();
        QCOMPARE(text->x() + text->property("leftPadding").toReal(), 10.0);
        QCOMPARE(text->property("elide").toInt(), static_cast<int>(Qt::ElideRight));
        const auto *popup = list->property("popup").value<QObject *>();
        QCOMPARE(popup->property("background").value<QQuickItem *>()->property("radius").toReal(), 5.0);
    }

    void switchAsksAndDoesNotTurnItself() {
        PanelView view(QStringLiteral("qrc:/SwitchControl.qml"));
        QSignalSpy clicks(view.root(), SIGNAL(clicked()));
        view.click({19, 10});
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(view.root()->property("myChecked"), QVariant(false));
    }

    void viewsHaveTheirProperties_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QSizeF>("size");
        QTest::addColumn<QVariantMap>("properties");
        const QVariantMap button{{"btnID", 0}, {"checked", false}};
        QTest::newRow("key 2") << QStringLiteral("Key2Window") << QSizeF(257, 188) << button;
        QTest::newRow("key 3") << QStringLiteral("Key3Window") << QSizeF(257, 188) << button;
        QVariantMap key4 = button;
        key4["borderColor"] = QStringLiteral("#707070");
        QTest::newRow("key 4") << QStringLiteral("Key4Window") << QSizeF(257, 500) << key4;
        QTest::newRow("settings") << QStringLiteral("SetWindow") << QSizeF(257, 188) << QVariantMap();
        QTest::newRow("pen") << QStringLiteral("PizhuSetPenColor") << QSizeF(207, 272)
                             << QVariantMap{{"curpenColorID", 0},
                                            {"selBorderColor", QStringLiteral("#FFCD36")},
                                            {"normalBorderColor", QStringLiteral("white")},
                                            {"pencolor0", QStringLiteral("#000000")},
                                            {"pencolor1", QStringLiteral("#000000")},
                                            {"pencolor2", QStringLiteral("#000000")}};
    }
    void viewsHaveTheirProperties() {
        QFETCH(QString, file);
        QFETCH(QSizeF, size);
        QFETCH(QVariantMap, properties);
        PanelView view(QStringLiteral("qrc:/%1.qml").arg(file));
        QCOMPARE(view.root()->size(), size);
        for (const QString &name : properties.keys())
            QCOMPARE(view.root()->property(qPrintable(name)), properties.value(name));
    }

    void otherIdentifiersLeaveAViewAlone_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QList<int>>("own");
        QTest::newRow("key 1") << QStringLiteral("Key1Window") << QList<int>{8, 9, 10, 11};
        QTest::newRow("key 2") << QStringLiteral("Key2Window") << QList<int>{12};
        QTest::newRow("key 3") << QStringLiteral("Key3Window") << QList<int>{13};
        QTest::newRow("key 4") << QStringLiteral("Key4Window") << QList<int>{2, 3, 4, 5, 6, 7, 14, 15};
        QTest::newRow("settings") << QStringLiteral("SetWindow") << QList<int>{16, 17};
        QTest::newRow("laser") << QStringLiteral("LightpenSetWindow") << QList<int>{6, 7, 15};
        QTest::newRow("magnifier") << QStringLiteral("MagnifierSetWindow") << QList<int>{4, 5, 15};
        QTest::newRow("spotlight") << QStringLiteral("SportLightSetWindow") << QList<int>{2, 3, 15};
    }
    void otherIdentifiersLeaveAViewAlone() {
        QFETCH(QString, file);
        QFETCH(QList<int>, own);
        PanelView view(QStringLiteral("qrc:/%1.qml").arg(file));
        view.moveTo({0, 0});
        const QImage before = view.widget().grabFramebuffer();
        for (int id = -1; id <= 18; ++id)
            if (!own.contains(id))
                view.push(id, 2);
        view.push(1000, 0);
        QCOMPARE(view.widget().grabFramebuffer(), before);
    }
};

VEXA_WIDGET_TEST_MAIN(ControlsTest)
#include "ControlsTest.moc"
