// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/locks/ProgramLabels.h"

#include "support/TestSupport.h"

#include <unistd.h>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class ProgramLabelsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        qputenv("USER", "jane");
    }

    void anApplicationIsCalledByItsName()
    {
        QCOMPARE(labels().label(u"org.example.Player"_s, {}), u"Example Player"_s);
        QCOMPARE(labels().label(u"/usr/lib/player/org.example.Player"_s, {}), u"Example Player"_s);
        QCOMPARE(m_asked.constLast(), QStringList{u"org.example.Player"_s});
    }

    void ifItIsNotKnownByWhatItCallsItselfItIsByItsProcess()
    {
        QCOMPARE(labels().label(u"something"_s, ownProcess), u"This test"_s);
        QCOMPARE(m_asked.constLast(), (QStringList{u"something"_s, ownName}));
    }

    void anyOtherProgramIsCalledWhatItCallsItself()
    {
        QCOMPARE(labels().label(u"backup of the night"_s, {}), u"backup of the night"_s);
    }

    void aUsersNameIsNoPrograms()
    {
        QCOMPARE(labels().label(u"jane"_s, parentProcess()), parentName());
        QCOMPARE(labels().label(QString(), parentProcess()), parentName());
    }

    void thereIsAlwaysAName()
    {
        constexpr qint64 noProcess = 0;
        QCOMPARE(labels().label(QString(), noProcess), u"process 0"_s);
        QCOMPARE(labels().label(u"jane"_s, {}), u"?"_s);
    }

private:
    static constexpr auto ownExecutable = "ProgramLabelsTest";

    ProgramLabels labels()
    {
        return ProgramLabels([this](const QStringList& names) -> std::optional<QString> {
            m_asked.append(names);
            if (names.contains(u"org.example.Player"_s))
                return u"Example Player"_s;
            return names.contains(ownName) ? std::optional(u"This test"_s) : std::nullopt;
        });
    }

    static qint64 parentProcess() { return getppid(); }
    static QString parentName()
    {
        QFile file(u"/proc/%1/comm"_s.arg(parentProcess()));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll().trimmed()) : QString();
    }

    /// The kernel keeps 15 characters.
    const QString ownName = QString::fromLatin1(ownExecutable).first(15);
    const qint64 ownProcess = getpid();
    QList<QStringList> m_asked;
};

QTEST_GUILESS_MAIN(ProgramLabelsTest)
#include "ProgramLabelsTest.moc"
