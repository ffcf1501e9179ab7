// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "tool/StatusReport.h"

#include "support/TestSupport.h"
#include "tool/DBusWriter.h"

using namespace Tarvik;

static DBusMessage answer()
{
    DBusWriter writer;
    writer.string("Awake · 1 agent");
    writer.uint32(1);
    DBusMessage message;
    message.type = DBusMessageType::methodReturn;
    message.signature = "sb";
    message.body = writer.bytes();
    return message;
}

class StatusReportTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void anAnswerIsATextAndWhetherTarvikIsAwake()
    {
        QVERIFY(readStatus(answer()) == (StatusReport{.text = "Awake · 1 agent", .isAwake = true}));
    }

    void anAnswerThatIsCutOffIsNone()
    {
        DBusMessage message = answer();
        const std::string whole = message.body;
        for (std::size_t size = 0; size < whole.size(); ++size) {
            message.body = whole.substr(0, size);
            QVERIFY(!readStatus(message));
        }
    }

    void anErrorIsNoStatus()
    {
        DBusMessage message = answer();
        message.type = DBusMessageType::error;
        QVERIFY(!readStatus(message));
        message.type = DBusMessageType::methodReturn;
        message.signature = "s";
        QVERIFY(!readStatus(message));
    }
};

QTEST_GUILESS_MAIN(StatusReportTest)
#include "StatusReportTest.moc"
