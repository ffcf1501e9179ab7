// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hookconfig/JsonDocument.h"

#include <utility>

namespace Tarvik::JsonDocument {

namespace {

class Printer {
public:
    explicit Printer(std::size_t maximumBytes)
        : m_maximumBytes(maximumBytes)
    {
    }

    std::optional<std::string> document(const JsonValue& value)
    {
        print(value);
        m_text.push_back('\n');
        return m_text.size() <= m_maximumBytes ? std::optional(std::move(m_text)) : std::nullopt;
    }

private:
    void print(const JsonValue& value)
    {
        std::visit([this](const auto& content) { printContent(content); }, value.content);
    }

    void printContent(std::monostate) { m_text += "null"; }
    void printContent(bool value) { m_text += value ? "true" : "false"; }
    void printContent(const JsonValue::Number& number) { m_text += number.text; }
    void printContent(const std::string& text)
    {
        constexpr std::string_view hexadecimal = "0123456789abcdef";
        m_text.push_back('"');
        for (const char character : text) {
            const auto byte = static_cast<unsigned char>(character);
            if (character == '"' || character == '\\')
                (m_text += '\\') += character;
            else if (character == '\n')
                m_text += "\\n";
            else if (character == '\t')
                m_text += "\\t";
            else if (byte < 0x20)
                ((m_text += "\\u00") += hexadecimal[byte >> 4]) += hexadecimal[byte & 0xF];
            else
                m_text += character;
        }
        m_text.push_back('"');
    }

    void printContent(const JsonValue::Array& array)
    {
        printList('[', array, ']', [this](const JsonValue& element) { print(element); });
    }

    void printContent(const JsonValue::Object& object)
    {
        printList('{', object, '}', [this](const auto& member) {
            printContent(member.first);
            m_text += ": ";
            print(member.second);
        });
    }

    template <typename List, typename PrintItem>
    void printList(char opening, const List& list, char closing, PrintItem printItem)
    {
        m_text.push_back(opening);
        m_indentation += 2;
        bool isFirst = true;
        for (const auto& item : list) {
            if (!std::exchange(isFirst, false))
                m_text.push_back(',');
            startLine();
            printItem(item);
        }
        m_indentation -= 2;
        if (!list.empty())
            startLine();
        m_text.push_back(closing);
    }

    void startLine()
    {
        m_text.push_back('\n');
        // Many short lines far within take a thousand times the room of the compact text.
        if (m_text.size() < m_maximumBytes)
            m_text.append(m_indentation, ' ');
    }

    std::size_t m_maximumBytes;
    std::string m_text;
    std::size_t m_indentation = 0;
};

} // namespace

std::optional<std::string> print(const JsonValue& value, std::size_t maximumBytes)
{
    return Printer(maximumBytes).document(value);
}

} // namespace Tarvik::JsonDocument
