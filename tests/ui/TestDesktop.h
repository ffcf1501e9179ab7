// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeFileChooser.h"
#include "fakes/FakeSettingsPortal.h"
#include "support/TestSupport.h"
#include "ui/mirror/Appearance.h"

#include <QDesktopServices>
#include <QStringList>
#include <QUrl>

namespace Tarvik {

/// The desktop as a QML test sets it. What is set has reached the windows when the assignment is over.
class TestDesktop : public QObject {
    Q_OBJECT
    // clang-format off
    Q_PROPERTY(Tarvik::Appearance* appearance READ appearance CONSTANT)
    Q_PROPERTY(bool isDark WRITE setIsDark READ isDark)
    Q_PROPERTY(bool isAnimated WRITE setIsAnimated READ isAnimated)
    Q_PROPERTY(bool isHighContrast WRITE setIsHighContrast READ isHighContrast)
    Q_PROPERTY(double textScale WRITE setTextScale READ textScale)
    Q_PROPERTY(QColor accent WRITE setAccent READ accent RESET resetAccent)
    Q_PROPERTY(QStringList opened MEMBER m_opened)
    // clang-format on

public:
    TestDesktop()
    {
        if (!m_portal.appear())
            qFatal("There is another portal.");
        const auto answerSettings = m_portal.handler;
        m_portal.handler = [this, answerSettings](const QDBusMessage& call) {
            return FakeFileChooser::isMeant(call) ? m_files.answer(call) : answerSettings(call);
        };
        QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open");
    }
    ~TestDesktop() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }

    /// The user chooses this file whenever there is one to choose.
    Q_INVOKABLE void chooseFile(const QString& path) { m_files.chosen = {QUrl::fromLocalFile(path).toString()}; }
    /// Whether there are files to choose from.
    Q_INVOKABLE void offerFiles(bool on) { m_files.isOffered = on; }

    /// What a browser shall show from now on is added to `opened`.
    Q_INVOKABLE void open(const QUrl& url) { m_opened.append(url.toString()); }

    Appearance* appearance() { return &m_appearance; }

    bool isDark() const { return m_appearance.isDark(); }
    void setIsDark(bool on)
    {
        set(m_portal.appearanceGroup, "color-scheme", on ? 1U : 2U, [this, on] { return isDark() == on; });
    }
    bool isAnimated() const { return m_appearance.isAnimated(); }
    void setIsAnimated(bool on)
    {
        set(m_portal.interfaceGroup, "enable-animations", on, [this, on] { return isAnimated() == on; });
    }
    bool isHighContrast() const { return m_appearance.isHighContrast(); }
    void setIsHighContrast(bool on)
    {
        set(m_portal.appearanceGroup, "contrast", on ? 1U : 0U, [this, on] { return isHighContrast() == on; });
    }
    double textScale() const { return m_appearance.textScale(); }
    void setTextScale(double scale)
    {
        set(m_portal.interfaceGroup, "text-scaling-factor", scale, [this, scale] { return textScale() == scale; });
    }
    QColor accent() const { return m_appearance.accent(); }
    void setAccent(const QColor& color)
    {
        setAccent(FakeSettingsPortal::rgb(color.redF(), color.greenF(), color.blueF()), color);
    }
    void resetAccent() { setAccent(FakeSettingsPortal::rgb(-1, -1, -1), {}); }

private:
    void setAccent(const QVariant& rgb, const QColor& shown)
    {
        set(m_portal.appearanceGroup, "accent-color", rgb, [this, shown] {
            return accent().isValid() == shown.isValid() && accent().name() == shown.name();
        });
    }

    void set(const char* group, const char* key, const QVariant& value, const std::function<bool()>& hasArrived)
    {
        // What it is read as when it has not been read yet.
        m_portal.settings[QString::fromLatin1(group)][QString::fromLatin1(key)] = value;
        m_portal.change(QString::fromLatin1(group), QString::fromLatin1(key), value);
        if (!QTest::qWaitFor(hasArrived, patience))
            qFatal("%s has not arrived.", key);
    }

    QStringList m_opened;
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("portal"));
    FakeFileChooser m_files{m_bus};
    FakeSettingsPortal m_portal{m_bus};
    Appearance m_appearance{QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("windows"))};
};

} // namespace Tarvik
