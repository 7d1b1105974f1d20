// SPDX-License-Identifier: MIT
#include "app/WriteFailures.h"

#include <QTest>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Runs it in a process of its own; the exit code, or minus the signal that has ended the process.
int resultOf(const std::function<int()> &act) {
    const pid_t child = fork();
    if (child == 0)
        _exit(act());
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace

class WriteFailuresTest : public QObject {
    Q_OBJECT

private slots:
    void wordsThatNobodyReadsDoNotEndTheProgram() {
        QCOMPARE(resultOf([] {
                     vexa::outliveWriteFailures();
                     int ends[2];
                     if (pipe(ends) != 0 || close(ends[0]) != 0)
                         return 1;
                     return write(ends[1], "x", 1) < 0 && errno == EPIPE ? 0 : 2;
                 }),
                 0);
    }

    void aFileThatMayNotGrowDoesNotEndTheProgram() {
        QCOMPARE(resultOf([] {
                     vexa::outliveWriteFailures();
                     const rlimit none{0, 0};
                     const int file = open("/tmp", O_RDWR | O_TMPFILE, 0600);
                     if (file < 0 || setrlimit(RLIMIT_FSIZE, &none) != 0)
                         return 1;
                     return write(file, "x", 1) < 0 && errno == EFBIG ? 0 : 2;
                 }),
                 0);
    }

    void nothingElseGetsTheNumberOfAClosedStream() {
        for (const QVector<int> &closed :
             {QVector<int>{2}, QVector<int>{0, 2}, QVector<int>{1}, QVector<int>{0, 1, 2}}) {
            QCOMPARE(resultOf([&closed] {
                         const int before = open("/dev/null", O_RDONLY);
                         for (int stream : closed)
                             close(stream);
                         vexa::outliveWriteFailures();
                         const int next = open("/dev/null", O_RDONLY);
                         // The number that came next before comes next now, none was used up.
                         return next == before + 1 && fcntl(2, F_GETFD) >= 0 ? 0 : 1;
                     }),
                     0);
        }
    }

    void openStreamsStayWhatTheyAre() {
        QCOMPARE(resultOf([] {
                     int ends[2];
                     if (pipe(ends) != 0 || dup2(ends[1], STDERR_FILENO) < 0)
                         return 1;
                     vexa::outliveWriteFailures();
                     char got = 0;
                     return write(STDERR_FILENO, "x", 1) == 1 && read(ends[0], &got, 1) == 1 && got == 'x'
                                ? 0
                                : 2;
                 }),
                 0);
    }

    void startedProgramsHaveTheUsualSignals() {
        QCOMPARE(resultOf([] {
                     vexa::outliveWriteFailures();
                     execl("/bin/sh", "sh", "-c", "kill -PIPE $$", nullptr);
                     return 1;
                 }),
                 -SIGPIPE);
    }
};

QTEST_GUILESS_MAIN(WriteFailuresTest)
#include "WriteFailuresTest.moc"
