// SPDX-License-Identifier: MIT
#include "e2e/Program.h"

#include <QFile>

#include <csignal>
#include <filesystem>
#include <system_error>

namespace e2e {

namespace {

QByteArray settingsText(const Program::Settings &settings) {
    QByteArray text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<PenSetting FirstRun=\"1\"><Setting>";
    for (auto setting = settings.begin(); setting != settings.end(); ++setting) {
        const QByteArray name = setting.key().toUtf8();
        text += '<' + name + '>' + QByteArray::number(setting.value()) + "</" + name + '>';
    }
    return text + "</Setting></PenSetting>\n";
}

/// A second name for the executable serves as well as a copy of its many megabytes.
bool placeExecutable(const QString &place) {
    const QString original = QStringLiteral(VEXA_ORBILO);
    std::error_code failure;
    std::filesystem::create_hard_link(QFile::encodeName(original).toStdString(),
                                      QFile::encodeName(place).toStdString(), failure);
    return !failure || QFile::copy(original, place);
}

Program::End endOf(QProcess &process) {
    process.waitForFinished(-1);
    const bool normal = process.exitStatus() == QProcess::NormalExit;
    const QByteArray how =
        (normal ? "ended with " : "killed by signal ") + QByteArray::number(process.exitCode());
    return {how, process.readAllStandardError(), process.readAllStandardOutput()};
}

} // namespace

Program::Program(Settings settings) : m_executable(m_folder.filePath(QStringLiteral("VexaOrbilo"))) {
    if (!placeExecutable(m_executable))
        qFatal("cannot place the program in %s", qPrintable(m_folder.path()));
    if (!settings.isEmpty()) {
        if (!settings.contains("ShowPrivacyWindow"))
            settings.insert("ShowPrivacyWindow", 0);
        QFile file(settingsPath());
        if (!file.open(QIODevice::WriteOnly) || file.write(settingsText(settings)) < 0)
            qFatal("cannot write %s", qPrintable(settingsPath()));
    }
    m_process.setProcessEnvironment(QProcessEnvironment::systemEnvironment());
}

Program::~Program() {
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished(-1);
}

void Program::setEnvironment(const QString &name, const QString &value) {
    QProcessEnvironment environment = m_process.processEnvironment();
    environment.insert(name, value);
    m_process.setProcessEnvironment(environment);
}

void Program::unsetEnvironment(const QString &name) {
    QProcessEnvironment environment = m_process.processEnvironment();
    environment.remove(name);
    m_process.setProcessEnvironment(environment);
}

Program::End Program::runToTheEnd() const {
    QProcess another;
    another.setProcessEnvironment(m_process.processEnvironment());
    another.start(m_executable, QStringList());
    return endOf(another);
}

bool Program::start() {
    m_process.start(m_executable, QStringList());
    return m_process.waitForStarted(-1);
}

void Program::signal(int number) const {
    kill(static_cast<pid_t>(m_process.processId()), number);
}

Program::End Program::waitForEnd() {
    return endOf(m_process);
}

QByteArray Program::settingsFile() const {
    QFile file(settingsPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace e2e
