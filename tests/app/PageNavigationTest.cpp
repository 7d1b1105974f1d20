// SPDX-License-Identifier: MIT
#include "app/PageNavigation.h"

#include "support/TestMain.h"

#include <QPushButton>
#include <QStackedWidget>
#include <QWidget>

using vexa::PageNavigation;

/// A window with the parts that the navigation moves, and a page in every slot.
struct Pages {
    QWidget window;
    QStackedWidget stack{&window};
    QPushButton back{&window};
    PageNavigation::Slots bySlot{};
    QWidget *start = new QWidget;

    Pages() {
        stack.addWidget(start);
        for (QWidget *&page : bySlot) {
            page = new QWidget;
            stack.addWidget(page);
        }
        back.hide();
    }
};

class PageNavigationTest : public QObject {
    Q_OBJECT

private slots:
    void everyPageHasItsSlotAndItsSizes_data();
    void everyPageHasItsSlotAndItsSizes();
    void onlyTheFirstPageHidesTheWayBack();
    void otherValuesDoNothing();
    void withoutPagesOnlyTheSizesChange();
    void backGoesThroughTheHistoryFromItsEnd();
    void backWithAnEmptyHistoryChangesNoPage();
    void settingsPageRemembersThePageItWasCalledFrom();
    void settingsPageIsNotRememberedItself();
};

void PageNavigationTest::everyPageHasItsSlotAndItsSizes_data() {
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("slot");
    QTest::addColumn<int>("stackHeight");
    QTest::addColumn<int>("windowHeight");

    QTest::newRow("0") << 0 << 0 << 428 << 519;
    QTest::newRow("1") << 1 << 3 << 515 << 606;
    QTest::newRow("2") << 2 << 4 << 515 << 606;
    QTest::newRow("3") << 3 << 5 << 348 << 439;
    QTest::newRow("4") << 4 << 1 << 520 << 611;
    QTest::newRow("5") << 5 << 2 << 515 << 606;
    QTest::newRow("6") << 6 << 6 << 600 << 691;
    QTest::newRow("7") << 7 << 7 << 600 << 691;
    QTest::newRow("8") << 8 << 8 << 600 << 691;
    QTest::newRow("9") << 9 << 9 << 450 << 541;
}

void PageNavigationTest::everyPageHasItsSlotAndItsSizes() {
    QFETCH(int, page);
    QFETCH(int, slot);
    QFETCH(int, stackHeight);
    QFETCH(int, windowHeight);
    Pages pages;
    PageNavigation navigation(pages.window, pages.stack, pages.back, pages.bySlot);
    navigation.show(static_cast<Page_Num>(page));
    QCOMPARE(pages.stack.size(), QSize(640, stackHeight));
    QCOMPARE(pages.window.size(), QSize(640, windowHeight));
    QCOMPARE(pages.stack.currentWidget(), pages.bySlot.at(std::size_t(slot)));
}

void PageNavigationTest::onlyTheFirstPageHidesTheWayBack() {
    Pages pages;
    PageNavigation navigation(pages.window, pages.stack, pages.back, pages.bySlot);
    for (int page = 9; page >= 0; --page) {
        pages.back.show();
        navigation.show(static_cast<Page_Num>(page));
        QCOMPARE(pages.back.isHidden(), page == 0);
    }
}

void PageNavigationTest::otherValuesDoNothing() {
    Pages pages;
    PageNavigation navigation(pages.window, pages.stack, pages.back, pages.bySlot);
    pages.window.resize(300, 200);
    for (int page : {-1, 10, 1000}) {
        navigation.show(static_cast<Page_Num>(page));
        QCOMPARE(pages.window.size(), QSize(300, 200));
        QCOMPARE(pages.stack.currentWidget(), pages.start);
    }
}

void PageNavigationTest::withoutPagesOnlyTheSizesChange() {
    Pages pages;
    PageNavigation navigation(pages.window, pages.stack, pages.back);
    navigation.show(Page_6);
    QCOMPARE(pages.window.size(), QSize(640, 691));
    QCOMPARE(pages.stack.currentWidget(), pages.start);
    navigation.showSettings();
    QCOMPARE(pages.window.size(), QSize(640, 541));
    QVERIFY(pages.back.isHidden());
}

void PageNavigationTest::backGoesThroughTheHistoryFromItsEnd() {
    Pages pages;
    PageNavigation navigation(pages.window, pages.stack, pages.back, pages.bySlot);
    navigation.remember(Page_1);
    QVERIFY(!pages.back.isHidden());
    navigation.remember(Page_3);
    navigation.goBack();
    QCOMPARE(pages.stack.currentWidget(), pages.bySlot.at(5));
    navigation.goBack();
    QCOMPARE(pages.stack.currentWidget(), pages.bySlot.at(3));
    navigation.show(Page_8);
    navigation.goBack();
    QCOMPARE(pages.stack.currentWidget(), pages.bySlot.at(8));
}

void PageNavigationTest::backWithAnEmptyHistoryChangesNoPage() {
    Pages pages;
    PageNavigation navigation(pages.window, pages.stack, pages.back, pages.bySlot);
    pages.window.resize(300, 200);
    navigation.goBack();
    QCOMPARE(pages.stack.currentWidget(), pages.start);
    QCOMPARE(pages.window.size(), QSize(300, 200));
}

void PageNavigationTest::settingsPageRemembersThePageItWasCalledFrom() {
    Pages pages;
    PageNavigation navigation(pages.window, pages.stack, pages.back, pages.bySlot);
    navigation.show(Page_4);
    navigation.showSettings();
    QVERIFY(!pages.back.isHidden());
    QCOMPARE(pages.stack.size(), QSize(640, 450));
    QCOMPARE(pages.stack.currentWidget(), pages.bySlot.at(9));
    navigation.goBack();
    QCOMPARE(pages.stack.currentWidget(), pages.bySlot.at(1));
}

void PageNavigationTest::settingsPageIsNotRememberedItself() {
    Pages pages;
    PageNavigation navigation(pages.window, pages.stack, pages.back, pages.bySlot);
    navigation.show(Page_9);
    navigation.showSettings();
    QVERIFY(pages.back.isHidden());
    navigation.goBack();
    QCOMPARE(pages.stack.currentWidget(), pages.bySlot.at(9));
}

VEXA_WIDGET_TEST_MAIN(PageNavigationTest)
#include "PageNavigationTest.moc"
