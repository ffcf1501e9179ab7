// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/WindowsAdaptor.h"

#include "dbus/WireValue.h"
#include "dbus/contracts/UiWire.h"
#include "support/Contracts.h"

#include <QMetaMethod>
#include <QTest>

using namespace Tarvik;

class WindowsAdaptorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theContractIsKept()
    {
        QMap<QString, QString> methods;
        QMap<QString, QString> announcements;
        const QMetaObject& meta = WindowsAdaptor::staticMetaObject;
        for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
            const QMetaMethod method = meta.method(index);
            auto& members = method.methodType() == QMetaMethod::Signal ? announcements : methods;
            QString& types = members[QString::fromLatin1(method.name())];
            for (int parameter = 0; parameter < method.parameterCount(); ++parameter)
                types += WireValue::signatureOf(method.parameterMetaType(parameter));
        }
        const Contracts contracts = contractsOf(QString::fromLatin1(UiWire::busName));
        QCOMPARE(contracts.keys(), QStringList{QString::fromLatin1(UiWire::windowsInterface)});
        QCOMPARE(methods, contracts.first().methods);
        QCOMPARE(announcements, contracts.first().announcements);
    }
};

QTEST_GUILESS_MAIN(WindowsAdaptorTest)
#include "WindowsAdaptorTest.moc"
