// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/power/LogindLidSensor.h"

#include "dbus/BusNames.h"
#include "dbus/DBusProperties.h"
#include "platform/linux/kernel/SysfsFile.h"

#include <QDBusError>
#include <QDir>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto logindPath = u"/org/freedesktop/login1"_s;
const auto logindInterface = u"org.freedesktop.login1.Manager"_s;
const auto upowerService = u"org.freedesktop.UPower"_s;
const auto upowerPath = u"/org/freedesktop/UPower"_s;
const auto upowerInterface = u"org.freedesktop.UPower"_s;

/// Three of the usual polls.
constexpr Seconds longestValidity{15};

const auto logindProperty = u"LidClosed"_s;

std::optional<bool> upowerLid(const QVariantMap& properties)
{
    if (DBusProperties::exactly<bool>(properties.value(u"LidIsPresent"_s)) == false)
        return {};
    return DBusProperties::exactly<bool>(properties.value(u"LidIsClosed"_s));
}

/// The driver's files read "state:      open" or "state:      closed".
std::optional<bool> acpiLid(const QString& procfs)
{
    const QDir lids{procfs + u"/acpi/button/lid"_s};
    for (const QString& lid : lids.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QByteArray state = SysfsFile::text(lids.filePath(lid) + u"/state"_s).value_or(QByteArray{});
        if (state.startsWith("state:") && state.endsWith("closed"))
            return true;
        if (state.startsWith("state:") && state.endsWith("open"))
            return false;
    }
    return {};
}

bool isNotAnswering(const QDBusMessage& answer)
{
    const QDBusError::ErrorType type = QDBusError{answer}.type();
    return type == QDBusError::NoReply || type == QDBusError::Timeout || type == QDBusError::TimedOut;
}

} // namespace

LogindLidSensor::LogindLidSensor(QDBusConnection connection, Clock& clock, QString procfs, QString sysfs)
    : m_connection(std::move(connection))
    , m_names(m_connection, {BusNames::logind, upowerService})
    , m_clock(clock)
    , m_procfs(std::move(procfs))
    , m_presence(m_connection, m_procfs, std::move(sysfs))
{
    m_presence.onChange = [this] { presenceChanged(); };
    m_names.onKnown = [this] { followAnnouncements(); };
    m_names.onOwnerChange = [this](const QString& service) {
        followAnnouncements();
        changeOwner(service);
    };
    ask();
}

std::optional<bool> LogindLidSensor::isClosed()
{
    ask();
    const Seconds age = m_clock.now() - m_closedAt;
    m_told = age >= Seconds::zero() && age <= longestValidity ? m_closed : std::nullopt;
    return m_told;
}

void LogindLidSensor::followAnnouncements()
{
    const auto follow
        = [this](const QString& service, const QString& path, const QString& interface, Provider provider) {
              const QString owner = m_names.owner(service);
              return owner.isEmpty()
                  ? nullptr
                  : std::make_unique<DBusSignal>(m_connection,
                      DBusProperties::changesOf(owner, path, interface),
                      [this, provider](const QDBusMessage& signal) { takeAnnouncement(provider, signal); });
          };
    m_logindChanges = follow(BusNames::logind, logindPath, logindInterface, Provider::logind);
    m_upowerChanges = follow(upowerService, upowerPath, upowerInterface, Provider::upower);
}

void LogindLidSensor::takeAnnouncement(Provider provider, const QDBusMessage& signal)
{
    const auto properties = DBusProperties::propertiesChangedIn(signal);
    if (!properties)
        return;
    if (provider == Provider::upower)
        m_presence.take(properties->changed);
    if (provider != m_provider)
        return;
    const auto closed = provider == Provider::logind
        ? DBusProperties::exactly<bool>(properties->changed.value(logindProperty))
        : upowerLid(properties->changed);
    if (closed)
        take(closed);
}

void LogindLidSensor::ask()
{
    if (m_question)
        return;
    if (m_provider == Provider::acpi) {
        askAcpi();
        return;
    }
    const auto call = m_provider == Provider::logind
        ? DBusProperties::get(BusNames::logind, logindPath, logindInterface, logindProperty)
        : DBusProperties::getAll(upowerService, upowerPath, upowerInterface);
    const auto done = [this, provider = m_provider](const QDBusMessage& answer) { takeAnswer(provider, answer); };
    m_question = callAsync(m_connection, call, done, {.startsService = true});
}

void LogindLidSensor::askAcpi()
{
    m_closed = acpiLid(m_procfs);
    m_closedAt = m_clock.now();
}

void LogindLidSensor::takeAnswer(Provider provider, const QDBusMessage& answer)
{
    const bool isCurrent = provider == m_provider;
    const auto closed = provider == Provider::logind
        ? DBusProperties::exactly<bool>(DBusProperties::propertyIn(answer))
        : upowerLid(DBusProperties::propertiesIn(answer).value_or(QVariantMap{}));
    // Whoever hears of the answer looks at it, which is no reason to ask for it once more.
    if (closed && isCurrent)
        take(closed);
    m_question.reset();
    if (!isCurrent)
        ask();
    else if (!closed && !isNotAnswering(answer))
        useNextProvider();
}

void LogindLidSensor::useNextProvider()
{
    m_provider = m_provider == Provider::logind ? Provider::upower : Provider::acpi;
    ask();
    if (m_provider == Provider::acpi)
        take(m_closed);
}

void LogindLidSensor::take(std::optional<bool> closed)
{
    m_closed = closed;
    m_closedAt = m_clock.now();
    if (m_closed != m_told)
        changed();
}

void LogindLidSensor::changeOwner(const QString& service)
{
    const bool isThere = m_names.isOwned(service);
    if (service == upowerService && isThere)
        m_presence.ask();
    if (service == BusNames::logind)
        m_provider = isThere ? Provider::logind : Provider::upower;
    else if (m_provider != Provider::logind)
        m_provider = isThere ? Provider::upower : Provider::acpi;
    else
        return;
    ask();
}

} // namespace Tarvik
