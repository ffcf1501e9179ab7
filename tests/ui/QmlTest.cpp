// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/Translation.h"
#include "ui/TestDesktop.h"
#include "ui/TestTarvik.h"
#include "ui/TestWebService.h"
#include "ui/design/ApplicationIconProvider.h"
#include "ui/design/IconProvider.h"
#include "ui/design/ShadowProvider.h"

#include <QQmlEngine>
#include <QtQuickTest>

#include <optional>

/// What the components find in the UI process.
class QmlTestSetup : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void applicationAvailable()
    {
        if (qEnvironmentVariableIsSet("TARVIK_TRANSLATIONS"))
            m_translation.emplace(
                qEnvironmentVariable("TARVIK_TRANSLATIONS"), QStringList{qEnvironmentVariable("TARVIK_LANGUAGE")});
    }

    void cleanupTestCase() { m_translation.reset(); }

    void qmlEngineAvailable(QQmlEngine* engine)
    {
        qmlRegisterType<Tarvik::TestDesktop>("Tarvik.Test", 1, 0, "TestDesktop");
        qmlRegisterType<Tarvik::TestTarvik>("Tarvik.Test", 1, 0, "TestTarvik");
        qmlRegisterType<Tarvik::TestWebService>("Tarvik.Test", 1, 0, "TestWebService");
        engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
        engine->addImageProvider(QStringLiteral("applications"), new Tarvik::ApplicationIconProvider);
        engine->addImageProvider(QStringLiteral("icons"), new Tarvik::IconProvider);
        engine->addImageProvider(QStringLiteral("shadows"), new Tarvik::ShadowProvider);
    }

private:
    std::optional<Tarvik::Translation> m_translation;
};

QUICK_TEST_MAIN_WITH_SETUP(Tarvik, QmlTestSetup)
#include "QmlTest.moc"
