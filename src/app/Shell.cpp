// SPDX-License-Identifier: MIT
#include "app/Shell.h"

#include <QEventLoop>
#include <QProcess>
#include <QTimer>

#include <csignal>
#include <unistd.h>

namespace vexa {

namespace {

/// Leads a process group of its own: the processes that it starts can be killed with it, and the interrupt
/// key of a terminal reaches the program only.
class GroupLeader : public QProcess {
public:
    void killGroup() {
        ::kill(-static_cast<pid_t>(processId()), SIGKILL);
        kill(); // a process that has just been forked may not lead its group yet
        waitForFinished();
    }

protected:
    void setupChildProcess() override { setpgid(0, 0); }
};

} // namespace

bool runInShell(const QString &command, std::chrono::milliseconds limit) {
    GroupLeader shell;
    shell.setProcessChannelMode(QProcess::ForwardedChannels);
    shell.setStandardInputFile(QProcess::nullDevice());
    QEventLoop loop;
    QObject::connect(&shell, &QProcess::stateChanged, &loop, [&loop](QProcess::ProcessState state) {
        if (state == QProcess::NotRunning)
            loop.quit();
    });
    QTimer::singleShot(limit, &loop, &QEventLoop::quit);
    shell.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), command});
    if (shell.state() != QProcess::NotRunning)
        loop.exec();
    if (shell.state() == QProcess::NotRunning)
        return shell.error() != QProcess::FailedToStart && shell.exitStatus() == QProcess::NormalExit &&
               shell.exitCode() == 0;
    shell.killGroup();
    return false;
}

} // namespace vexa
