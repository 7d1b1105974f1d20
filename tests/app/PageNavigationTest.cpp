// SPDX-License-Identifier: MIT
#include "app/PageNavigation.h"

#include "support/Table.h"
#include "support/TestMain.h"

#include <QPushButton>
#include <QStackedWidget>
#include <QWidget>

Q_DECLARE_METATYPE(Page_Num)

using vexa::PageNavigation;
using vexa::test::Table;

/// A window with the parts that the navigation moves, and a page in every slot.
struct Pages {
    QWidget window;
    QStackedWidget stack{&window};
    QPushButton back{&window};
    QWidget *start = add();
    PageNavigation::Slots bySlot = [this] {
        PageNavigation::Slots pages{};
        for (QWidget *&page : pages)
            page = add();
        return pages;
    }();
    PageNavigation navigation{window, stack, back, bySlot};

    Pages() { back.hide(); }

private:
    QWidget *add() { return stack.widget(stack.addWidget(new QWidget)); }
};

class PageNavigationTest : public QObject {
    Q_OBJECT

    using Sizes = Table<Page_Num, int, int, int>;

private slots:
    void everyPageHasItsSlotAndItsSizes_data() {
        Sizes::begin();

        QTest::newRow("0") << Page_0 << 0 << 428 << 519;
        QTest::newRow("1") << Page_1 << 3 << 515 << 606;
        QTest::newRow("2") << Page_2 << 4 << 515 << 606;
        QTest::newRow("3") << Page_3 << 5 << 348 << 439;
        QTest::newRow("4") << Page_4 << 1 << 520 << 611;
        QTest::newRow("5") << Page_5 << 2 << 515 << 606;
        QTest::newRow("6") << Page_6 << 6 << 600 << 691;
        QTest::newRow("7") << Page_7 << 7 << 600 << 691;
        QTest::newRow("8") << Page_8 << 8 << 600 << 691;
        QTest::newRow("9") << Page_9 << 9 << 450 << 541;
    }

    void everyPageHasItsSlotAndItsSizes() {
        const auto [page, slot, stackHeight, windowHeight] = Sizes::row();
        Pages pages;
        pages.navigation.show(page);
        QCOMPARE(pages.stack.size(), QSize(640, stackHeight));
        QCOMPARE(pages.window.size(), QSize(640, windowHeight));
        QCOMPARE(pages.stack.currentWidget(), pages.bySlot.at(std::size_t(slot)));
    }

    void onlyTheFirstPageHidesTheWayBack() {
        Pages pages;
        for (int page = Page_9; page >= Page_0; --page) {
            pages.back.show();
            pages.navigation.show(static_cast<Page_Num>(page));
            QCOMPARE(pages.back.isHidden(), page == Page_0);
        }
    }

    void otherValuesDoNothing() {
        Pages pages;
        pages.window.resize(300, 200);
        for (int page : {-1, 10, 1000}) {
            pages.navigation.show(static_cast<Page_Num>(page));
            QCOMPARE(pages.window.size(), QSize(300, 200));
            QCOMPARE(pages.stack.currentWidget(), pages.start);
        }
    }

    void withoutPagesOnlyTheSizesChange() {
        Pages pages;
        PageNavigation navigation(pages.window, pages.stack, pages.back);
        navigation.show(Page_6);
        QCOMPARE(pages.window.size(), QSize(640, 691));
        QCOMPARE(pages.stack.currentWidget(), pages.start);
        navigation.showSettings();
        QCOMPARE(pages.window.size(), QSize(640, 541));
        QVERIFY(pages.back.isHidden());
    }

    void backGoesThroughTheHistoryFromItsEnd() {
        Pages pages;
        pages.navigation.remember(Page_1);
        QVERIFY(!pages.back.isHidden());
        pages.navigation.remember(Page_3);
        pages.navigation.goBack();
        QCOMPARE(pages.stack.currentWidget(), pages.bySlot.at(5));
        pages.navigation.goBack();
        QCOMPARE(pages.stack.currentWidget(), pages.bySlot.at(3));
        pages.navigation.show(Page_8);
        pages.navigation.goBack();
        QCOMPARE(pages.stack.currentWidget(), pages.bySlot.at(8));
    }

    void backWithAnEmptyHistoryChangesNoPage() {
        Pages pages;
        pages.window.resize(300, 200);
        pages.navigation.goBack();
        QCOMPARE(pages.stack.currentWidget(), pages.start);
        QCOMPARE(pages.window.size(), QSize(300, 200));
    }

    void settingsPageRemembersThePageItWasCalledFrom() {
        Pages pages;
        pages.navigation.show(Page_4);
        pages.navigation.showSettings();
        QVERIFY(!pages.back.isHidden());
        QCOMPARE(pages.stack.size(), QSize(640, 450));
        QCOMPARE(pages.stack.currentWidget(), pages.bySlot.at(9));
        pages.navigation.goBack();
        QCOMPARE(pages.stack.currentWidget(), pages.bySlot.at(1));
    }

    void settingsPageIsNotRememberedItself() {
        Pages pages;
        pages.navigation.show(Page_9);
        pages.navigation.showSettings();
        QVERIFY(pages.back.isHidden());
        pages.navigation.goBack();
        QCOMPARE(pages.stack.currentWidget(), pages.bySlot.at(9));
    }
};

VEXA_WIDGET_TEST_MAIN(PageNavigationTest)
#include "PageNavigationTest.moc"
