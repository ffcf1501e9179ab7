// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "base/PlainText.h"
#include "hookconfig/JsonDocument.h"

#include <utility>

namespace Tarvik::JsonDocument {

namespace {

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

int hexadecimalDigit(char character)
{
    if (isDigit(character))
        return character - '0';
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool isHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void appendUtf8(std::string& text, char32_t codePoint)
{
    const auto append = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (codePoint < 0x80) {
        append(codePoint);
    } else if (codePoint < 0x800) {
        append(0xC0 | codePoint >> 6);
        append(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        append(0xE0 | codePoint >> 12);
        append(0x80 | (codePoint >> 6 & 0x3F));
        append(0x80 | (codePoint & 0x3F));
    } else {
        append(0xF0 | codePoint >> 18);
        append(0x80 | (codePoint >> 12 & 0x3F));
        append(0x80 | (codePoint >> 6 & 0x3F));
        append(0x80 | (codePoint & 0x3F));
    }
}

bool isUtf8(std::string_view bytes)
{
    while (!bytes.empty()) {
        const std::size_t size = PlainText::firstCharacter(bytes).size;
        if (size == 0)
            return false;
        bytes.remove_prefix(size);
    }
    return true;
}

/// Recursive descent over text that is known to be UTF-8. Each function starts at the first character of what it reads
/// and leaves off behind it; nothing means that the document is refused.
class Parser {
public:
    explicit Parser(std::string_view text)
        : m_text(text)
    {
    }

    std::optional<JsonValue> document()
    {
        skipBlanks();
        auto result = value();
        skipBlanks();
        return m_position == m_text.size() ? std::move(result) : std::nullopt;
    }

private:
    /// NUL, which JSON allows nowhere, stands for the end.
    char peek() const { return m_position < m_text.size() ? m_text[m_position] : '\0'; }

    bool take(char expected)
    {
        if (peek() != expected)
            return false;
        ++m_position;
        return true;
    }

    void skipBlanks()
    {
        while (peek() == ' ' || peek() == '\t' || peek() == '\n' || peek() == '\r')
            ++m_position;
    }

    std::optional<JsonValue> value()
    {
        switch (peek()) {
        case '{':
            return nested(&Parser::object);
        case '[':
            return nested(&Parser::array);
        case '"':
            return wrap(string());
        case 't':
            return word("true", JsonValue{true});
        case 'f':
            return word("false", JsonValue{false});
        case 'n':
            return word("null", JsonValue{});
        default:
            return wrap(number());
        }
    }

    template <typename Content>
    static std::optional<JsonValue> wrap(std::optional<Content> content)
    {
        if (!content)
            return {};
        return JsonValue{*std::move(content)};
    }

    std::optional<JsonValue> word(std::string_view spelling, JsonValue meaning)
    {
        if (m_text.substr(m_position, spelling.size()) != spelling)
            return {};
        m_position += spelling.size();
        return meaning;
    }

    template <typename Container>
    std::optional<JsonValue> nested(std::optional<Container> (Parser::*read)())
    {
        if (m_depth == maximumDepth)
            return {};
        ++m_depth;
        auto result = (this->*read)();
        --m_depth;
        return wrap(std::move(result));
    }

    std::optional<JsonValue::Array> array()
    {
        JsonValue::Array result;
        take('[');
        skipBlanks();
        if (take(']'))
            return result;
        do {
            skipBlanks();
            auto element = value();
            if (!element)
                return {};
            result.push_back(*std::move(element));
            skipBlanks();
        } while (take(','));
        return take(']') ? std::optional(std::move(result)) : std::nullopt;
    }

    std::optional<JsonValue::Object> object()
    {
        JsonValue::Object result;
        take('{');
        skipBlanks();
        if (take('}'))
            return result;
        do {
            skipBlanks();
            auto key = string();
            skipBlanks();
            if (!key || !take(':'))
                return {};
            skipBlanks();
            auto member = value();
            if (!member || !result.try_emplace(*std::move(key), *std::move(member)).second)
                return {};
            skipBlanks();
        } while (take(','));
        return take('}') ? std::optional(std::move(result)) : std::nullopt;
    }

    bool takeDigits()
    {
        const std::size_t start = m_position;
        while (isDigit(peek()))
            ++m_position;
        return m_position > start;
    }

    std::optional<JsonValue::Number> number()
    {
        const std::size_t start = m_position;
        take('-');
        if (!take('0') && !takeDigits())
            return {};
        if (take('.') && !takeDigits())
            return {};
        if (take('e') || take('E')) {
            if (!take('+'))
                take('-');
            if (!takeDigits())
                return {};
        }
        return JsonValue::Number{std::string(m_text.substr(start, m_position - start))};
    }

    std::optional<std::string> string()
    {
        if (!take('"'))
            return {};
        std::string result;
        while (!take('"')) {
            const char character = peek();
            if (static_cast<unsigned char>(character) < 0x20)
                return {};
            ++m_position;
            if (character != '\\')
                result.push_back(character);
            else if (!appendEscape(result))
                return {};
        }
        return result;
    }

    bool appendEscape(std::string& text)
    {
        constexpr std::string_view names = R"("\/bfnrt)";
        constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
        if (take('u'))
            return appendCodePoint(text);
        const std::size_t index = names.find(peek());
        if (index == std::string_view::npos)
            return false;
        ++m_position;
        text.push_back(meanings[index]);
        return true;
    }

    bool appendCodePoint(std::string& text)
    {
        const auto first = codeUnit();
        if (!first || isLowSurrogate(*first))
            return false;
        if (!isHighSurrogate(*first)) {
            appendUtf8(text, *first);
            return true;
        }
        if (!take('\\') || !take('u'))
            return false;
        const auto second = codeUnit();
        if (!second || !isLowSurrogate(*second))
            return false;
        appendUtf8(text, 0x10000 + ((*first - 0xD800) << 10) + (*second - 0xDC00));
        return true;
    }

    std::optional<char32_t> codeUnit()
    {
        char32_t unit = 0;
        for (int digit = 0; digit < 4; ++digit) {
            const int value = hexadecimalDigit(peek());
            if (value < 0)
                return {};
            unit = unit << 4 | static_cast<char32_t>(value);
            ++m_position;
        }
        return unit;
    }

    std::string_view m_text;
    std::size_t m_position = 0;
    int m_depth = 0;
};

} // namespace

std::optional<JsonValue> parse(std::string_view bytes)
{
    return isUtf8(bytes) ? Parser(bytes).document() : std::nullopt;
}

} // namespace Tarvik::JsonDocument
