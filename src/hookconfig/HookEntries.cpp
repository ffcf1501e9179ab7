// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hookconfig/HookEntries.h"

#include "core/HookTraits.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace Tarvik::HookEntries {

namespace {

using HookConfig::Shape;
using Array = JsonValue::Array;
using Object = JsonValue::Object;

constexpr std::string_view hooksKey = "hooks";
constexpr std::string_view nameKey = "name";
constexpr std::string_view commandKey = "command";
constexpr std::string_view bashKey = "bash";
constexpr std::string_view versionKey = "version";
constexpr std::string_view marker = "tarvik";
constexpr std::string_view toolName = "tarvik";
constexpr std::array<std::string_view, 3> commandKeys{commandKey, bashKey, "powershell"};
constexpr std::array<std::string_view, 5> subCommands{"hook", "acquire", "release", "release-all", "hold"};

const JsonValue* member(const Object& object, std::string_view key)
{
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &found->second;
}

const std::string* stringMember(const JsonValue& value, std::string_view key)
{
    const Object* object = value.object();
    const JsonValue* found = object != nullptr ? member(*object, key) : nullptr;
    return found != nullptr ? found->string() : nullptr;
}

const Array* arrayMember(const JsonValue& value, std::string_view key)
{
    const Object* object = value.object();
    const JsonValue* found = object != nullptr ? member(*object, key) : nullptr;
    return found != nullptr ? found->array() : nullptr;
}

/// Executable and arguments of a shell command, as far as it takes to know our own.
std::pair<std::string_view, std::string_view> splitCommand(std::string_view command)
{
    const bool isQuoted = command.starts_with('"');
    if (isQuoted)
        command.remove_prefix(1);
    const std::size_t end = std::min(command.find(isQuoted ? '"' : ' '), command.size());
    return {command.substr(0, end), command.substr(std::min(end + 1, command.size()))};
}

bool runsOurTool(std::string_view command)
{
    auto [executable, arguments] = splitCommand(command);
    if (executable.substr(executable.rfind('/') + 1) != toolName)
        return false;
    arguments.remove_prefix(std::min(arguments.find_first_not_of(' '), arguments.size()));
    return std::ranges::find(subCommands, arguments.substr(0, arguments.find(' '))) != subCommands.end();
}

/// The lists of entries in the array of one event: those of its groups, or the array itself.
std::vector<Array> entryLists(Shape shape, const Array& array)
{
    if (shape == Shape::flatList)
        return {array};
    std::vector<Array> lists;
    for (const JsonValue& group : array) {
        if (const Array* entries = arrayMember(group, hooksKey))
            lists.push_back(*entries);
    }
    return lists;
}

/// The array of one event without our entries, and without groups in which nothing is left.
Array strip(Shape shape, Array array)
{
    if (shape == Shape::flatList) {
        std::erase_if(array, isOurs);
        return array;
    }
    std::erase_if(array, [](JsonValue& group) {
        if (arrayMember(group, hooksKey) == nullptr)
            return false;
        Array& entries = *group.object()->find(hooksKey)->second.array();
        std::erase_if(entries, isOurs);
        return entries.empty();
    });
    return array;
}

Array eventArray(const Object& events, std::string_view event)
{
    const JsonValue* value = member(events, event);
    const Array* array = value != nullptr ? value->array() : nullptr;
    return array != nullptr ? *array : Array{};
}

JsonValue text(std::string_view value)
{
    return {std::string(value)};
}

/// What is appended to the array of each event.
JsonValue newElement(const HookSpec& spec, const std::string& command)
{
    Object entry{{"type", text("command")}, {std::string(commandKey), text(command)}};
    if (spec.tagged)
        entry.emplace(nameKey, text(marker));
    if (spec.shape == Shape::nestedGroups)
        return {Object{{std::string(hooksKey), JsonValue{Array{JsonValue{std::move(entry)}}}}}};
    entry.emplace(bashKey, text(command));
    return {std::move(entry)};
}

std::vector<std::string_view> allEvents(const HookSpec& spec)
{
    std::vector<std::string_view> events(spec.startEvents.begin(), spec.startEvents.end());
    events.insert(events.end(), spec.endEvents.begin(), spec.endEvents.end());
    return events;
}

/// Those of the events that the document's top level can hold: there, a key may be the user's own and only share an
/// event's name. Then it is no list of groups.
std::vector<std::string_view> topLevelEvents(const HookSpec& spec, const Object& document)
{
    std::vector<std::string_view> events = allEvents(spec);
    std::erase_if(events, [&document](std::string_view event) {
        const JsonValue* value = member(document, event);
        if (value == nullptr)
            return false;
        const auto isGroup = [](const JsonValue& element) { return arrayMember(element, hooksKey) != nullptr; };
        return value->array() == nullptr || !std::ranges::all_of(*value->array(), isGroup);
    });
    return events;
}

void addTo(Object& events, const std::vector<std::string_view>& names, const HookSpec& spec, const std::string& command)
{
    for (const auto event : names) {
        Array array = strip(spec.shape, eventArray(events, event));
        array.push_back(newElement(spec, command));
        events.insert_or_assign(std::string(event), JsonValue{std::move(array)});
    }
}

void removeFrom(Object& events, const std::vector<std::string_view>& names, const HookSpec& spec)
{
    for (const auto event : names) {
        Array array = strip(spec.shape, eventArray(events, event));
        if (!array.empty())
            events.insert_or_assign(std::string(event), JsonValue{std::move(array)});
        else if (const auto emptied = events.find(event); emptied != events.end())
            events.erase(emptied);
    }
}

/// An object of the document that maps events to what is hooked there, and the events that it is for.
struct EventMap {
    const Object* object;
    std::vector<std::string_view> names;
};

std::vector<EventMap> eventMaps(const HookSpec& spec, const Object& document)
{
    static const Object none;
    const JsonValue* hooks = member(document, hooksKey);
    const bool hasHooks = hooks != nullptr && hooks->object() != nullptr;
    std::vector<EventMap> maps{{hasHooks ? hooks->object() : &none, allEvents(spec)}};
    if (HookTraits::of(spec.id).readsTopLevel)
        maps.push_back({&document, topLevelEvents(spec, document)});
    return maps;
}

bool hasOurs(const HookSpec& spec, const Object& events, std::string_view event)
{
    return std::ranges::any_of(entryLists(spec.shape, eventArray(events, event)),
        [](const Array& entries) { return std::ranges::any_of(entries, isOurs); });
}

const std::string* entryCommand(Shape shape, const JsonValue& entry)
{
    const std::string* bash = shape == Shape::flatList ? stringMember(entry, bashKey) : nullptr;
    return bash != nullptr ? bash : stringMember(entry, commandKey);
}

void collectCommands(Shape shape, const Array& entries, std::vector<std::string>& commands)
{
    for (const JsonValue& entry : entries) {
        if (const std::string* command = entryCommand(shape, entry))
            commands.push_back(*command);
    }
}

} // namespace

std::optional<std::string> command(std::string_view toolPath, const HookSpec& spec)
{
    if (toolPath.find_first_of("\"\\$`") != std::string_view::npos)
        return {};
    return '"' + std::string(toolPath) + "\" hook --tool " + std::string(spec.id);
}

bool isOurs(const JsonValue& entry)
{
    const std::string* name = stringMember(entry, nameKey);
    if (name != nullptr && *name == marker)
        return true;
    return std::ranges::any_of(commandKeys, [&entry](std::string_view key) {
        const std::string* command = stringMember(entry, key);
        return command != nullptr && runsOurTool(*command);
    });
}

void add(const HookSpec& spec, const std::string& command, JsonValue::Object& document)
{
    JsonValue& hooks = document[std::string(hooksKey)];
    if (hooks.object() == nullptr)
        hooks.content = Object{};
    addTo(*hooks.object(), allEvents(spec), spec, command);
    if (HookTraits::of(spec.id).readsTopLevel)
        addTo(document, topLevelEvents(spec, document), spec, command);
    if (spec.shape == Shape::flatList)
        document.try_emplace(std::string(versionKey), JsonValue{JsonValue::Number{"1"}});
}

void remove(const HookSpec& spec, JsonValue::Object& document)
{
    const auto hooks = document.find(hooksKey);
    if (hooks != document.end() && hooks->second.object() != nullptr) {
        removeFrom(*hooks->second.object(), allEvents(spec), spec);
        if (hooks->second.object()->empty())
            document.erase(hooks);
    }
    if (HookTraits::of(spec.id).readsTopLevel)
        removeFrom(document, topLevelEvents(spec, document), spec);
}

bool hasAny(const HookSpec& spec, const JsonValue::Object& document)
{
    return std::ranges::any_of(eventMaps(spec, document), [&spec](const EventMap& map) {
        return std::ranges::any_of(
            map.names, [&](std::string_view event) { return hasOurs(spec, *map.object, event); });
    });
}

bool isInstalled(const HookSpec& spec, const JsonValue::Object& document)
{
    const Object* events = eventMaps(spec, document).front().object;
    return std::ranges::all_of(spec.startEvents, [&](std::string_view event) { return hasOurs(spec, *events, event); });
}

std::vector<std::string> firstEventCommands(const HookSpec& spec, const JsonValue::Object& document)
{
    std::vector<std::string> commands;
    if (spec.startEvents.empty())
        return commands;
    for (const EventMap& map : eventMaps(spec, document)) {
        for (const Array& entries : entryLists(spec.shape, eventArray(*map.object, spec.startEvents.front())))
            collectCommands(spec.shape, entries, commands);
    }
    return commands;
}

bool isOutdated(const HookSpec& spec, const JsonValue::Object& document, std::string_view toolPath)
{
    if (spec.startEvents.empty())
        return false;
    const auto maps = eventMaps(spec, document);
    const auto isPresent = [&](const EventMap& map) { return hasOurs(spec, *map.object, spec.startEvents.front()); };
    if (std::ranges::none_of(maps, isPresent))
        return false;

    const auto commands = firstEventCommands(spec, document);
    const bool isElsewhere = std::ranges::any_of(
        commands, [&](const std::string& command) { return command.find(toolPath) == std::string::npos; });
    return isElsewhere || std::ranges::any_of(maps, [&](const EventMap& map) {
        return !std::ranges::all_of(
            map.names, [&](std::string_view event) { return hasOurs(spec, *map.object, event); });
    });
}

} // namespace Tarvik::HookEntries
