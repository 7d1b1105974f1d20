// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/// The real program, run from a folder of its own: its settings file lies beside it there. It inherits the
/// display, the session bus and the home folder of the test. What still runs when this object goes is killed.
namespace e2e {

class Program {
public:
    /// Values for the settings file to start with, without the guide unless it is asked for; none: there is
    /// no file, as in a fresh installation.
    using Settings = QMap<QString, int>;
    explicit Program(Settings settings = {{"ShowPrivacyWindow", 0}});
    ~Program();

    /// Changes the environment of later starts.
    void setEnvironment(const QString &name, const QString &value);
    void unsetEnvironment(const QString &name);

    /// Runs the executable once more beside this one, from the same folder, and waits for its end.
    struct End {
        QByteArray how; ///< "ended with 0", "killed by signal 11"
        QByteArray errors;
        QByteArray output;
    };
    End runToTheEnd() const;

    bool start();
    bool isRunning() const { return m_process.state() == QProcess::Running; }
    qint64 pid() const { return m_process.processId(); }
    void signal(int number) const;
    /// Waits for the end of the started program.
    End waitForEnd();

    QString settingsPath() const { return m_folder.filePath(QStringLiteral("VexaPenSetting.xml")); }
    QByteArray settingsFile() const;
    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    QString m_executable;
    QProcess m_process;
};

} // namespace e2e
