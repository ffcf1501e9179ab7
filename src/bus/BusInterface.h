// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "bus/BusAnswer.h"

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tarvik {

/// One interface of Tarvik's object on the session bus; the XML file that bears its name is the contract. The functions
/// that are added here run when somebody calls and see no value of another type than their own. Changes of properties
/// are announced by PropertiesChanged, once for each turn of the event loop and only what differs from the last time.
class BusInterface : public QObject {
    Q_OBJECT

public:
    BusInterface(const char* name, QDBusConnection bus);

    const QString& name() const { return m_name; }

    /// Offers the properties of `object`, apart from those of QObject and those of a type that the bus does not know;
    /// all of its NOTIFY signals announce. `object` must outlive the interface.
    void addProperties(QObject& object);

    /// Offers a property, in place of one of the same name.
    template <typename Read>
    void addProperty(const QString& property, Read read)
    {
        using Value = std::invoke_result_t<Read>;
        add({property, QMetaType::fromType<Value>(), [read] { return QVariant::fromValue(read()); }});
    }

    /// `write` is void, or returns a BusAnswer to be able to refuse.
    template <typename Read, typename Write>
    void addProperty(const QString& property, Read read, Write write)
    {
        using Value = std::invoke_result_t<Read>;
        add({property,
            QMetaType::fromType<Value>(),
            [read] { return QVariant::fromValue(read()); },
            [write](const QVariant& value) { return BusAnswer::of([&] { return write(value.value<Value>()); }); }});
    }

    /// Only the fact of a change of this property is ever announced, see `invalidateSoon()`.
    void announceWithoutValue(const QString& property);

    /// Offers a method. `call` is void, or returns what the caller gets, or a BusAnswer to be able to refuse, or
    /// to answer later.
    template <typename Call>
    void addMethod(const QString& method, Call call)
    {
        addFunction(method, std::function(std::move(call)));
    }

    /// The present values count as known; from here on, changes are announced.
    void start();

    Q_SLOT void announceSoon();
    void invalidateSoon(const QString& property);

    BusAnswer get(const QString& property) const;
    BusAnswer set(const QString& property, const QVariant& value);
    QVariantMap getAll() const;

    bool hasMethod(const QString& method) const;
    BusAnswer call(const QString& method, const QVariantList& arguments);

private:
    struct Property {
        QString name;
        QMetaType type;
        std::function<QVariant()> read;
        std::function<BusAnswer(const QVariant& value)> write = {};
        bool isAnnouncedWithValue = true;
    };

    struct Method {
        QString name;
        QList<QMetaType> types;
        std::function<BusAnswer(const QVariantList& arguments)> call;
    };

    template <typename Result, typename... Arguments>
    void addFunction(const QString& method, std::function<Result(Arguments...)> function)
    {
        add(Method{
            method, {QMetaType::fromType<std::decay_t<Arguments>>()...}, [function](const QVariantList& arguments) {
                const auto call = [&]<std::size_t... index>(std::index_sequence<index...>)
                {
                    return function(arguments[qsizetype{index}].template value<std::decay_t<Arguments>>()...);
                };
                return BusAnswer::of([&] { return call(std::index_sequence_for<Arguments...>()); });
            }});
    }

    void add(Property property);
    void add(Method method);
    const Property* find(const QString& property) const;
    void announce();
    QVariantMap announcedValues() const;

    QString m_name;
    QDBusConnection m_bus;
    std::vector<Property> m_properties;
    std::vector<Method> m_methods;
    QVariantMap m_announced;
    QStringList m_invalidated;
    bool m_isScheduled = false;
};

} // namespace Tarvik
