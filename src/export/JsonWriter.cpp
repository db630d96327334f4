// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/JsonWriter.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace {

bool isPlain(unsigned char byte)
{
    constexpr unsigned char firstPrintable = 0x20;
    return byte >= firstPrintable && byte != '"' && byte != '\\';
}

/// `utf8` is valid.
void appendQuoted(std::string& text, std::string_view utf8)
{
    text += '"';
    while (!utf8.empty()) {
        const auto* const end = std::find_if_not(
            utf8.begin(), utf8.end(), [](char c) { return isPlain(static_cast<unsigned char>(c)); });
        const auto plain = static_cast<std::size_t>(end - utf8.begin());
        text += utf8.substr(0, plain);
        utf8.remove_prefix(plain);
        if (utf8.empty()) break;
        if (utf8.front() == '"' || utf8.front() == '\\') {
            text += '\\';
            text += utf8.front();
        } else {
            std::array<char, 8> escaped{};
            std::snprintf(escaped.data(), escaped.size(), "\\u%04x", static_cast<unsigned>(utf8.front()));
            text += escaped.data();
        }
        utf8.remove_prefix(1);
    }
    text += '"';
}

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

} // namespace

void JsonWriter::separate()
{
    if (m_needsComma) m_text += ',';
    m_needsComma = true;
}

void JsonWriter::begin(char bracket)
{
    separate();
    m_text += bracket;
    m_needsComma = false;
}

void JsonWriter::end(char bracket)
{
    m_text += bracket;
    m_needsComma = true;
}

void JsonWriter::name(QStringView name)
{
    separate();
    appendQuoted(m_text, name.toUtf8().toStdString());
    m_text += ':';
    m_needsComma = false;
}

void JsonWriter::value(const QString& text)
{
    separate();
    appendQuoted(m_text, text.toStdString());
}

void JsonWriter::value(std::string_view utf8)
{
    // a file may hold bytes that are no UTF-8
    if (!isAscii(utf8)) return value(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
    separate();
    appendQuoted(m_text, utf8);
}

void JsonWriter::value(qint64 number)
{
    separate();
    m_text += std::to_string(number);
}

void JsonWriter::value(double number)
{
    separate();
    m_text += std::isfinite(number)
                  ? QString::number(number, 'g', QLocale::FloatingPointShortest).toStdString()
                  : "null";
}

void JsonWriter::value(bool flag)
{
    separate();
    m_text += flag ? "true" : "false";
}

void JsonWriter::value(const Value& any)
{
    if (const auto* whole = std::get_if<qint64>(&any)) return value(*whole);
    if (const auto* real = std::get_if<double>(&any)) return value(*real);
    if (const auto* text = std::get_if<QString>(&any)) return value(*text);
    separate();
    m_text += "null";
}
