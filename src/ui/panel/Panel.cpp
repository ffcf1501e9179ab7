// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/panel/Panel.h"

#include "core/Logging.h"
#include "ui/mirror/Appearance.h"
#include "ui/mirror/SettingsMirror.h"
#include "ui/mirror/StatusMirror.h"
#include "ui/placement/LayerShell.h"
#include "ui/placement/WindowActivation.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

/// A click on the tray takes the focus from the panel before the tray reports it.
constexpr qint64 sameClickMilliseconds = 250;

} // namespace

Panel::Panel(QQmlEngine& engine, const Models& models, const QDBusConnection& bus)
    : m_engine(engine)
    , m_models(models)
    , m_bus(bus)
    , m_layerShell(LayerShell::ofApplication())
{
}

Panel::~Panel()
{
    // An open window hides when it goes, when nothing is left to act on that.
    if (m_window)
        m_window->disconnect(this);
}

bool Panel::isVisible() const
{
    return m_window && m_window->isVisible();
}

bool Panel::closeByClick()
{
    if (isVisible() && (m_window->isActive() || m_host->isTransient())) {
        m_window->close();
        return true;
    }
    const bool hasClosed = m_sinceFocusLoss.isValid() && !m_sinceFocusLoss.hasExpired(sameClickMilliseconds);
    m_sinceFocusLoss.invalidate();
    return hasClosed;
}

void Panel::open(const PanelHost::TrayPoint& tray, const QString& activationToken)
{
    if (!m_window && !create())
        return;
    m_window->setProperty("isComposited", m_host->isComposited());
    layOut(*m_window->contentItem());
    m_host->open(tray, activationToken);
}

bool Panel::create()
{
    QQmlComponent component(&m_engine, QUrl(u"qrc:/qt/qml/Tarvik/Panel/PanelWindow.qml"_s));
    QObject* object = component.createWithInitialProperties({
        {u"appearance"_s, QVariant::fromValue<QObject*>(&m_models.appearance)},
        {u"settings"_s, QVariant::fromValue<QObject*>(&m_models.settings)},
        {u"status"_s, QVariant::fromValue<QObject*>(&m_models.status)},
        {u"isComposited"_s, true},
    });
    m_window.reset(qobject_cast<QQuickWindow*>(object));
    if (!m_window) {
        qCWarning(logSystem, "The panel cannot be shown: %ls", qUtf16Printable(component.errorString()));
        return false;
    }
    QQuickWindow* window = m_window.get();
    connect(window, SIGNAL(lockScreen()), &m_models.status, SLOT(lockScreen()));
    connect(window, SIGNAL(quit()), &m_models.status, SLOT(quit()));
    connect(window, SIGNAL(openSettings()), this, SIGNAL(settingsWanted()));
    connect(window, &QWindow::visibleChanged, this, [this](bool visible) {
        if (!visible) {
            forgetPointer();
            forgetFocus(*m_window);
        }
        Q_EMIT visibleChanged();
    });
    m_host = PanelHost::create(*window, m_layerShell.get(), m_bus);
    connect(window, &QWindow::activeChanged, this, [this, window] {
        if (window->isActive() || !window->isVisible() || !m_host->isTransient())
            return;
        m_sinceFocusLoss.start();
        window->close();
    });
    return true;
}

void Panel::forgetPointer()
{
    // Nobody tells a hidden window that the pointer has left it; what was under the pointer would stay highlighted.
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_window.get(), &leave);
}

} // namespace Tarvik
