// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QSocketNotifier;

namespace e2e {

/// The part of a desktop that ends its programs at log-out, for one program: it asks it to save, lets it
/// object, and then tells it to die. Works while the test's event loop runs.
class SessionManager : public QObject {
public:
    SessionManager();
    ~SessionManager() override;

    /// For the variable SESSION_MANAGER of the program.
    QString address() const;

    /// A program has registered and saved its state for the first time.
    bool hasClient() const;
    void logOut();
    /// The program has prevented the log-out.
    bool wasRefused() const;

private:
    void watch(int descriptor, const std::function<void()> &onData);

    std::vector<std::unique_ptr<QSocketNotifier>> m_notifiers;
};

} // namespace e2e
