// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"
#include "support/TestMain.h"

/// Which pictures are decoded: those in sight, and no others.
class PicturesInSightTest : public QObject {
    Q_OBJECT

private slots:
    void picturesOfClosedViewsAreNotDecoded() {
        PanelView view;
        constexpr int null = 0;  // Image.Null
        constexpr int ready = 1; // Image.Ready
        const auto pictures = [&view] {
            QList<QQuickItem *> found;
            for (QQuickItem *item : qml::tree(view.root()))
                if (qml::isOfType(item, QStringLiteral("Picture")))
                    found.append(item);
            return found;
        };
        // In turn: nothing open, key 1, key 2 in its place, nothing again.
        int shown = 0;
        for (const QPoint &button : {QPoint(), QPoint(691, 469), QPoint(308, 469), QPoint(308, 469)}) {
            if (!button.isNull())
                view.click(button);
            shown = 0;
            for (const QQuickItem *picture : pictures()) {
                QCOMPARE(picture->property("status").toInt(), picture->isVisible() ? ready : null);
                shown += picture->isVisible() ? 1 : 0;
            }
            QVERIFY(shown < pictures().size());
        }
        QCOMPARE(shown, 8); // the background, five buttons, two in the title
    }
};

VEXA_WIDGET_TEST_MAIN(PicturesInSightTest)
#include "PicturesInSightTest.moc"
