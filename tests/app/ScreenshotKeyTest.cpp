// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "overlays/PromptWindow.h"
#include "settings/ZrToolXmlClass.h"
#include "support/Patience.h"
#include "support/PatternWindow.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <QDirIterator>
#include <QLabel>
#include <QTemporaryDir>

#include <memory>

using namespace vexa::test;

using Settings = ZrToolXmlClass;

/// The screenshot by the pen's key: the file shows the screen, and the word about it comes after.
class ScreenshotKeyTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QVERIFY(m_pattern.display());
        m_expected = pattern(m_pattern.size());
    }

    void init() {
        userfile::clear();
        m_home = std::make_unique<QTemporaryDir>();
        qputenv("HOME", QFile::encodeName(m_home->path()));
        QCursor::setPos(0, 0);
        m_panel = std::make_unique<ToolPanel>();
        Settings::Key4C = Number(KeyAction::Screenshot);
        // The prompt of the start is part of what the screen shows: it has come and gone when the shots are
        // taken.
        QTRY_VERIFY_WITH_TIMEOUT(startPrompt() && startPrompt()->size() == QSize(300, 60), patience);
        QTRY_COMPARE_WITH_TIMEOUT(startPrompt()->windowOpacity(), 0.0, patience); // three seconds later
        QTRY_VERIFY_WITH_TIMEOUT(m_pattern.seen(), patience);
    }

    void cleanup() { m_panel.reset(); }
    void cleanupTestCase() { userfile::clear(); }

    void promptAppearsAndTheFileShowsTheScreenWithoutIt() {
        QVERIFY(prompt());
        QCOMPARE(prompt()->windowOpacity(), 0.0);
        m_panel->press(pen::d);
        QTRY_VERIFY_WITH_TIMEOUT(prompt()->windowOpacity() > 0.5, patience);
        QVERIFY(prompt()->isVisible());
        QCOMPARE(prompt()->size(), QSize(380, 180));
        checkTheShots();
        QCOMPARE(files().size(), 1);
    }

    void promptOfTheShotBeforeDoesNotStandInTheNext() {
        m_panel->chord(pen::d);
        QTRY_VERIFY_WITH_TIMEOUT(!m_pattern.seen(), patience); // the card is on the screen
        m_panel->chord(pen::d);
        QTRY_VERIFY_WITH_TIMEOUT(prompt()->windowOpacity() > 0.5, patience); // the second shot is taken
        checkTheShots();
    }

    void severalKeysAtOnceShowTheScreenWithoutThePrompt() {
        for (int i = 0; i < 4; ++i)
            m_panel->chord(pen::d);
        QTRY_VERIFY_WITH_TIMEOUT(prompt()->windowOpacity() > 0.5, patience); // the last shot is taken
        checkTheShots();
    }

    void programAnswersThePenWhileAPictureIsWritten() {
        // On a busy machine the writer may be done before the key has been answered; not every time, though.
        bool answeredFirst = false;
        for (int attempt = 0; attempt < 20 && !answeredFirst; ++attempt) {
            prompt()->hideWindow(); // or the shot itself would wait
            m_panel->chord(pen::d);
            answeredFirst = files().isEmpty();
            m_panel->chord(pen::i);
            QCOMPARE(ToolPanel::open<PizhuForm>().size(), 1);
            m_panel->chord(pen::i);
            QTRY_COMPARE_WITH_TIMEOUT(files().size(), 1, patience);
            QVERIFY(QFile::remove(files().constFirst()));
        }
        QVERIFY(answeredFirst);
    }

    void endOfTheProgramWaitsForTheFile() {
        m_panel->chord(pen::d);
        checkTheShots();
        QCOMPARE(files().size(), 1);
    }

private:
    static PromptWindow *promptSaying(const char *text) {
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *card = qobject_cast<PromptWindow *>(widget))
                if (card->findChild<QLabel *>(QStringLiteral("label"))->text() == QString::fromUtf8(text))
                    return card;
        return nullptr;
    }

    static PromptWindow *prompt() { return promptSaying("截屏已保存"); }
    static PromptWindow *startPrompt() { return promptSaying("Vexa Orbilo Setting"); }

    QStringList files() const {
        QStringList found;
        QDirIterator all(m_home->path(), {QStringLiteral("*.png")}, QDir::Files,
                         QDirIterator::Subdirectories);
        while (all.hasNext())
            found += all.next();
        return found;
    }

    bool showsThePattern(const QString &file) const {
        return QImage(file).convertToFormat(QImage::Format_RGB32) == m_expected;
    }

    /// Ends the program, which waits for the files: a busy writer takes longer than the prompt is seen. Shots
    /// of one second share a file.
    void checkTheShots() {
        m_panel.reset();
        QVERIFY(!files().isEmpty());
        for (const QString &file : files())
            QVERIFY2(showsThePattern(file), qPrintable(file));
    }

    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<ToolPanel> m_panel;
    PatternWindow m_pattern;
    QImage m_expected;
};

VEXA_WIDGET_TEST_MAIN(ScreenshotKeyTest)
#include "ScreenshotKeyTest.moc"
