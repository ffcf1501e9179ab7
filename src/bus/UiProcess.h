// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDeadlineTimer>
#include <QObject>

#include <chrono>
#include <optional>

namespace Tarvik {

class UiLauncher;

/// Tarvik's side of the conversation with the process that shows its windows: starts it when a window is wanted and
/// tells it which. Windows that do not come up are logged and tried again at the next wish, a process that hangs is
/// killed for it; nothing else is affected.
class UiProcess : public QObject {
    Q_OBJECT

public:
    /// `launcher` must outlive the object, which takes over its callback.
    UiProcess(UiLauncher& launcher, const QDBusConnection& bus);
    ~UiProcess() override;

    /// Where the tray item was clicked, as the tray tells it; the token may be empty.
    void showPanel(int x, int y, const QString& activationToken);
    void showSettings(const QString& activationToken);

private:
    struct Wish {
        QString method;
        QVariantList arguments;
        /// A window that comes later than this would come as a surprise.
        QDeadlineTimer patience = QDeadlineTimer(std::chrono::seconds(3));
        /// The process may leave just when it is called; then it is started for this wish, once.
        bool wasLaunchedFor = false;
        bool wasLaunchedForAgain = false;
    };

    void send(const Wish& wish);
    void launchFor(Wish wish);
    void noticeEnd(const QString& failure);

    UiLauncher& m_launcher;
    QDBusConnection m_bus;
    QDBusServiceWatcher m_serviceWatcher;
    /// Waits for the process to come up.
    std::optional<Wish> m_wish;
};

} // namespace Tarvik
