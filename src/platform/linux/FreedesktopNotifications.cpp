// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/FreedesktopNotifications.h"

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto service = u"org.freedesktop.Notifications"_s;
const auto applicationId = u"com.morvanta.Tarvik"_s;

QDBusMessage methodCall(const QString& method)
{
    return QDBusMessage::createMethodCall(service, u"/org/freedesktop/Notifications"_s, service, method);
}

/// Empty when `answer` is none.
QString errorText(const QDBusMessage& answer)
{
    if (answer.type() == QDBusMessage::ReplyMessage)
        return {};
    return answer.errorMessage().isEmpty() ? answer.errorName() : answer.errorMessage();
}

/// Whether it is the bus that answers, which knows of no daemon or could not start one.
bool saysNobodyIsThere(const QDBusMessage& answer)
{
    return answer.errorName() == "org.freedesktop.DBus.Error.ServiceUnknown"_L1
        || answer.errorName() == "org.freedesktop.DBus.Error.NameHasNoOwner"_L1
        || answer.errorName().startsWith("org.freedesktop.DBus.Error.Spawn."_L1);
}

QString escaped(QString text)
{
    return text.replace(u'&', "&amp;"_L1).replace(u'<', "&lt;"_L1).replace(u'>', "&gt;"_L1);
}

} // namespace

FreedesktopNotifications::FreedesktopNotifications(QDBusConnection sessionBus, QString icon)
    : m_bus(std::move(sessionBus))
    , m_icon(std::move(icon))
    , m_names(m_bus, {service})
{
    m_names.onKnown = [this] { followOwner(); };
    m_names.onOwnerChange = [this](const QString&) { followOwner(); };
}

void FreedesktopNotifications::requestAuthorization(std::function<void(bool granted, const QString& error)> done)
{
    m_requests.push_back(std::move(done));
    answerRequests();
}

void FreedesktopNotifications::answerRequests()
{
    afterReadingCapabilities([this](const QString& error) {
        if (m_isAbsent)
            return;
        for (const auto& done : std::exchange(m_requests, {}))
            done(error.isEmpty(), error);
    });
}

void FreedesktopNotifications::post(
    const QString&, const QString& title, const QString& body, std::function<void(const QString& error)> done)
{
    if (m_readsMarkup) {
        notify(title, body, std::move(done));
        return;
    }
    afterReadingCapabilities([this, title, body, done = std::move(done)](const QString& error) {
        if (error.isEmpty())
            notify(title, body, done);
        else
            done(error);
    });
}

void FreedesktopNotifications::afterReadingCapabilities(Receiver next)
{
    m_waiting.push_back(std::move(next));
    if (!m_capabilitiesCall)
        readCapabilities();
}

void FreedesktopNotifications::readCapabilities()
{
    m_askedPredecessor = false;
    m_hasAppeared = false;
    m_capabilitiesCall = callAsync(m_bus,
        methodCall(u"GetCapabilities"_s),
        [this](const QDBusMessage& answer) { receiveCapabilities(answer); },
        {.startsService = true});
}

void FreedesktopNotifications::receiveCapabilities(const QDBusMessage& answer)
{
    m_capabilitiesCall.reset();
    m_isAbsent = saysNobodyIsThere(answer);
    // QtDBus may tell of a new owner ahead of an older answer.
    if (m_isAbsent && m_hasAppeared) {
        readCapabilities();
        return;
    }
    const QString error = errorText(answer);
    if (error.isEmpty())
        m_readsMarkup = answer.arguments().value(0).toStringList().contains("body-markup"_L1);
    for (const Receiver& next : std::exchange(m_waiting, {}))
        next(error);
}

void FreedesktopNotifications::followOwner()
{
    const QString before = std::exchange(m_owner, m_names.owner(service));
    m_readsMarkup.reset();
    if (!before.isEmpty())
        m_askedPredecessor = static_cast<bool>(m_capabilitiesCall);
    // The predecessor's answer would say nothing about this daemon, and may never come.
    if (m_askedPredecessor && m_capabilitiesCall && !m_owner.isEmpty())
        readCapabilities();
    m_hasAppeared = m_capabilitiesCall && !m_owner.isEmpty();
    if (!m_capabilitiesCall && !m_owner.isEmpty() && !m_requests.empty())
        answerRequests();
}

void FreedesktopNotifications::notify(const QString& title, const QString& body, Receiver done)
{
    constexpr uint replacesNone = 0;
    constexpr uchar urgencyNormal = 1;
    constexpr int expiresAsTheDaemonLikes = -1;
    QDBusMessage message = methodCall(u"Notify"_s);
    message.setArguments({u"Tarvik"_s,
        replacesNone,
        m_icon,
        title,
        m_readsMarkup.value_or(false) ? escaped(body) : body,
        QStringList(),
        QVariantMap{{u"desktop-entry"_s, applicationId}, {u"urgency"_s, QVariant::fromValue(urgencyNormal)}},
        expiresAsTheDaemonLikes});
    const unsigned number = ++m_lastPost;
    m_posts[number] = callAsync(m_bus,
        message,
        [this, number, done = std::move(done)](const QDBusMessage& answer) {
            m_posts.erase(number);
            done(errorText(answer));
        },
        {.startsService = true});
}

} // namespace Tarvik
