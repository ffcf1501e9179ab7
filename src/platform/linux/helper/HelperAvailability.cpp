// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/helper/HelperAvailability.h"

#include "core/Logging.h"
#include "dbus/BusDaemon.h"

#include <QDBusArgument>

#include <algorithm>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto unit = u"tarvik-helper.service"_s;
const auto action = u"com.morvanta.Tarvik.helper.set-keep-awake"_s;

const auto systemd = u"org.freedesktop.systemd1"_s;
const auto systemdPath = u"/org/freedesktop/systemd1"_s;
const auto systemdInterface = u"org.freedesktop.systemd1.Manager"_s;
const auto polkit = u"org.freedesktop.PolicyKit1"_s;
const auto polkitPath = u"/org/freedesktop/PolicyKit1/Authority"_s;
const auto polkitInterface = u"org.freedesktop.PolicyKit1.Authority"_s;

QDBusMessage systemdCall(const QString& method)
{
    return QDBusMessage::createMethodCall(systemd, systemdPath, systemdInterface, method);
}

/// Whether the program with this name on the bus may, without asking its user.
QDBusMessage authorizationQuestion(const QString& uniqueName)
{
    QDBusArgument subject;
    subject.beginStructure();
    subject << u"system-bus-name"_s << QVariantMap{{u"name"_s, uniqueName}};
    subject.endStructure();
    QDBusArgument noDetails;
    noDetails.beginMap(QMetaType::fromType<QString>(), QMetaType::fromType<QString>());
    noDetails.endMap();
    constexpr uint noFlags = 0;
    auto call = QDBusMessage::createMethodCall(polkit, polkitPath, polkitInterface, u"CheckAuthorization"_s);
    call.setArguments({QVariant::fromValue(subject), action, QVariant::fromValue(noDetails), noFlags, QString()});
    return call;
}

} // namespace

HelperAvailability::HelperAvailability(const QDBusConnection& systemBus, QString label)
    : m_bus(systemBus)
    , m_label(std::move(label))
    , m_names(m_bus, {systemd, polkit})
    , m_loss(m_bus, BusDaemon::lossOfConnection(), [this](const QDBusMessage&) { read(); })
    // Not every bus tells of them; they come from nobody with a unique name.
    , m_busChanges(m_bus,
          {.sender = {},
              .path = u"/org/freedesktop/DBus"_s,
              .interface = u"org.freedesktop.DBus"_s,
              .name = u"ActivatableServicesChanged"_s,
              .arguments = {}},
          [this](const QDBusMessage&) { read(); })
{
    m_names.onKnown = [this] { follow(); };
    m_names.onOwnerChange = [this](const QString&) { follow(); };
    ask();
}

void HelperAvailability::read(std::function<void()> done)
{
    if (done)
        m_waitingLonger.push_back(std::move(done));
    if (m_questions.isEmpty())
        ask();
    else
        m_readsAgain = true;
}

void HelperAvailability::follow()
{
    const QString systemdOwner = m_names.owner(systemd);
    const QString polkitOwner = m_names.owner(polkit);
    const auto listen = [this](auto& subscription,
                            const QString& owner,
                            const QString& path,
                            const QString& interface,
                            const QString& name) {
        subscription.reset();
        if (!owner.isEmpty())
            subscription.emplace(
                m_bus, DBusSignal::Source{owner, path, interface, name, {}}, [this](const QDBusMessage&) { read(); });
    };
    listen(m_unitFileChanges, systemdOwner, systemdPath, systemdInterface, u"UnitFilesChanged"_s);
    listen(m_reloads, systemdOwner, systemdPath, systemdInterface, u"Reloading"_s);
    listen(m_polkitChanges, polkitOwner, polkitPath, polkitInterface, u"Changed"_s);
    // Without subscribers systemd tells nobody.
    if (!systemdOwner.isEmpty())
        m_subscribing = callAsync(m_bus, systemdCall(u"Subscribe"_s), [](const QDBusMessage&) {});
    read();
}

void HelperAvailability::ask()
{
    m_reading = State::absent;
    std::ranges::move(std::exchange(m_waitingLonger, {}), std::back_inserter(m_waiting));
    send(BusDaemon::call(u"ListActivatableNames"_s, {}), &HelperAvailability::takeNames);
}

void HelperAvailability::send(const QDBusMessage& question, Receiver take, bool startsService)
{
    const auto done = [this, take](const QDBusMessage& answer) {
        (this->*take)(answer);
        if (m_questions.isEmpty())
            finish();
    };
    m_questions.send(m_bus, question, done, {.startsService = startsService, .patience = patience});
}

void HelperAvailability::takeNames(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "as"_L1) {
        if (!std::exchange(m_isLossTold, true))
            qCWarning(logSystem,
                "the system bus does not say whether there is a background helper: %ls",
                qUtf16Printable(answer.errorMessage()));
        return;
    }
    if (!answer.arguments().constFirst().toStringList().contains(m_label))
        return;
    m_reading = State::usable;
    auto unitStateQuestion = systemdCall(u"GetUnitFileState"_s);
    unitStateQuestion << unit;
    send(unitStateQuestion, &HelperAvailability::takeUnitState);
    send(authorizationQuestion(m_bus.baseService()), &HelperAvailability::takeAuthorization, true);
}

void HelperAvailability::takeUnitState(const QDBusMessage& answer)
{
    // "masked", or "masked-runtime" until the next boot.
    if (answer.signature() == "s"_L1 && answer.arguments().constFirst().toString().startsWith("masked"_L1))
        m_reading = State::blocked;
}

void HelperAvailability::takeAuthorization(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "(bba{ss})"_L1)
        return;
    // What is allowed only after a password is refused by the helper, which nobody must wait for.
    bool isAllowed = false;
    const auto result = answer.arguments().constFirst().value<QDBusArgument>();
    result.beginStructure();
    result >> isAllowed;
    result.endStructure();
    if (!isAllowed)
        m_reading = State::blocked;
}

void HelperAvailability::finish()
{
    if (std::exchange(m_readsAgain, false)) {
        ask();
        return;
    }
    const bool hasChanged = std::exchange(m_state, m_reading) != m_reading;
    const auto waiting = std::exchange(m_waiting, {});
    if (hasChanged && onChange)
        onChange();
    for (const auto& done : waiting)
        done();
}

} // namespace Tarvik
