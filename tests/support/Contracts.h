// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <QMap>
#include <QStringList>
#include <QXmlStreamReader>

namespace Tarvik {

/// What the XML file of an interface promises.
struct Contract {
    /// Name to "type access".
    QMap<QString, QString> properties;
    /// Properties that are announced without value.
    QStringList invalidated;
    /// Name to the types that go in.
    QMap<QString, QString> methods;
    /// Name to the types of what it tells.
    QMap<QString, QString> announcements;

    bool operator==(const Contract&) const = default;
};

using Contracts = QMap<QString, Contract>;

inline Contracts readContracts(QXmlStreamReader& xml)
{
    Contracts contracts;
    QString interface;
    QString member;
    bool isSignal = false;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto attribute
            = [&](const char* name) { return xml.attributes().value(QLatin1StringView(name)).toString(); };
        if (xml.name() == QLatin1StringView("interface")) {
            interface = attribute("name");
        } else if (xml.name() == QLatin1StringView("property")) {
            member = attribute("name");
            contracts[interface].properties[member] = attribute("type") + u' ' + attribute("access");
        } else if (xml.name() == QLatin1StringView("annotation")
            && attribute("value") == QLatin1StringView("invalidates")) {
            contracts[interface].invalidated.append(member);
        } else if (xml.name() == QLatin1StringView("method")) {
            member = attribute("name");
            isSignal = false;
            contracts[interface].methods[member] = QString();
        } else if (xml.name() == QLatin1StringView("signal")) {
            member = attribute("name");
            isSignal = true;
            contracts[interface].announcements[member] = QString();
        } else if (xml.name() == QLatin1StringView("arg") && isSignal) {
            contracts[interface].announcements[member] += attribute("type");
        } else if (xml.name() == QLatin1StringView("arg") && attribute("direction") == QLatin1StringView("in")) {
            contracts[interface].methods[member] += attribute("type");
        }
    }
    return contracts;
}

/// All contracts of a service.
inline Contracts contractsOf(const QString& service)
{
    Contracts contracts;
    const QDir directory(QStringLiteral(CONTRACTS_DIRECTORY));
    for (const QString& name : directory.entryList({QStringLiteral("*.xml")})) {
        QFile file(directory.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("%s cannot be read", qPrintable(name));
        const QByteArray bytes = file.readAll();
        QXmlStreamReader xml(bytes);
        if (bytes.contains("<node name=\"/" + service.toLatin1().replace('.', '/') + "\">"))
            contracts.insert(readContracts(xml));
    }
    return contracts;
}

} // namespace Tarvik
