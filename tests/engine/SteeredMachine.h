// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/CoordinatedMachine.h"

namespace Tarvik {

/// Lets a machine go through what lines of text say; tests/engine/traces/README.md lists them.
class SteeredMachine {
public:
    /// `machine` must outlive the object.
    explicit SteeredMachine(CoordinatedMachine& machine)
        : m(machine)
    {
    }

    /// False for a line that is none of these, or whose value is wrong.
    bool play(const QString& line)
    {
        const bool isKnown = go(line);
        while (m.helper.living > 0 && m.helper.connection->waiting() > 0)
            m.helper.connection->reply(true);
        return isKnown;
    }

private:
    bool go(const QString& line)
    {
        const QString word = line.section(QLatin1Char(' '), 0, 0);
        const QString value = line.section(QLatin1Char(' '), 1);
        if (word == QLatin1String("set"))
            return setSetting(value.section(QLatin1Char(' '), 0, 0), value.section(QLatin1Char(' '), 1));
        if (word == QLatin1String("mains"))
            return setMains(oneOf(value, "off on"));
        if (word == QLatin1String("battery"))
            return setBattery(value);
        if (word == QLatin1String("thermal"))
            return setThermal(oneOf(value, "nominal fair serious critical"));
        if (word == QLatin1String("lid"))
            return setLid(oneOf(value, "open closed none"));
        if (word == QLatin1String("helper"))
            return setHelper(oneOf(value, "missing installed unapproved"));
        if (word == QLatin1String("install-helper") || word == QLatin1String("reinstall-helper"))
            return installHelper(word == QLatin1String("reinstall-helper"));
        if (word == QLatin1String("installed-helper"))
            return finishInstallation(value);
        if (word == QLatin1String("work"))
            return setWork(value);
        if (word == QLatin1String("apps"))
            return setApplications(value);
        if (word == QLatin1String("wait"))
            return wait(value);
        if (word == QLatin1String("start"))
            return start();
        return false;
    }

    /// Where the word stands in the list; -1 for none of it.
    static int oneOf(const QString& word, const char* words)
    {
        return static_cast<int>(QString::fromLatin1(words).split(QLatin1Char(' ')).indexOf(word));
    }

    bool start()
    {
        m.start();
        return true;
    }

    bool wait(const QString& seconds)
    {
        bool isNumber = false;
        m.clock.advance(Seconds{seconds.toInt(&isNumber)});
        return isNumber;
    }

    bool setSetting(const QString& key, const QString& text)
    {
        const bool isFlag = text == QLatin1String("true") || text == QLatin1String("false");
        bool isNumber = false;
        const qint64 number = text.toLongLong(&isNumber);
        if (!isFlag && !isNumber)
            return false;
        const QVariant value = isFlag ? QVariant(text == QLatin1String("true")) : QVariant(number);
        if (!m.settings) {
            m.store.values[key] = value;
            return true;
        }
        const bool isKnown = m.settings->setProperty(key.toLatin1().constData(), value);
        CoordinatedMachine::settle();
        return isKnown;
    }

    bool setMains(int isOn)
    {
        m_isOnAC = isOn == 1;
        return isOn >= 0 && setPower();
    }

    bool setBattery(const QString& text)
    {
        bool isNumber = false;
        const int percent = text.toInt(&isNumber);
        m_percent = isNumber ? std::optional(percent) : std::nullopt;
        return (isNumber || text == QLatin1String("none")) && setPower();
    }

    bool setPower()
    {
        m.setPower(m_isOnAC, m_percent);
        CoordinatedMachine::settle();
        return true;
    }

    bool setThermal(int level)
    {
        if (level < 0)
            return false;
        m.setThermal(static_cast<ThermalLevel>(level));
        return true;
    }

    bool setLid(int isClosed)
    {
        m.lid.closed = isClosed == 1;
        if (isClosed == 2)
            m.lid.setPresent(false);
        return isClosed >= 0;
    }

    /// Of a machine with a lid.
    bool setHelper(int status)
    {
        if (status < 0)
            return false;
        m.lid.setPresent(true);
        m.helper.setStatus(static_cast<HelperStatus>(status));
        CoordinatedMachine::settle();
        return true;
    }

    bool installHelper(bool isAnew)
    {
        if (!m.lidClosed)
            return false;
        isAnew ? m.lidClosed->reinstallHelper() : m.lidClosed->installHelper();
        return true;
    }

    bool finishInstallation(const QString& error)
    {
        m.helper.finish(error);
        CoordinatedMachine::settle();
        return true;
    }

    bool setWork(const QString& executables)
    {
        QByteArray processes;
        for (const QString& name : executables.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            if (name != QLatin1String("off"))
                processes += (name == QLatin1String("on") ? QStringLiteral("claude") : name).toLocal8Bit() + '\n';
        }
        if (m.process)
            m.run(processes);
        else
            m.processTable.output = processes;
        return true;
    }

    bool setApplications(const QString& names)
    {
        QList<AllowlistedApp> chosen;
        QList<RunningApplication> running;
        for (const QString& name : names.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
            chosen.append({.bundleID = name, .name = name});
            running.append({.id = name, .localizedName = name});
        }
        if (!m.settings)
            return false;
        m.settings->setAllowlist(chosen);
        m.applications.set(running);
        CoordinatedMachine::settle();
        return true;
    }

    CoordinatedMachine& m;
    bool m_isOnAC = true;
    std::optional<int> m_percent;
};

} // namespace Tarvik
