// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/Value.h"

#include <QString>
#include <QStringView>

#include <string>
#include <string_view>

/// Writes one JSON document in UTF-8, member by member in the order in which they are given: lists of tens of
/// thousands of records are never held twice.
class JsonWriter
{
public:
    /// Appends to `text`, which must outlive the writer.
    explicit JsonWriter(std::string& text) : m_text(text) {}

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }

    /// Ends the document.
    void finish() { m_text += '\n'; }

    /// Begins a member of an object; its value has to follow.
    void name(QStringView name);

    void value(const QString& text);
    void value(const char* text) { value(QString::fromUtf8(text)); }
    void value(std::string_view utf8);
    void value(qint64 number);
    void value(int number) { value(qint64{number}); }
    void value(double number);
    void value(bool flag);
    void value(const Value& any);

    template <typename Any>
    void member(QStringView name, const Any& any)
    {
        this->name(name);
        value(any);
    }

private:
    void begin(char bracket);
    void end(char bracket);
    void separate();

    std::string& m_text;
    bool m_needsComma = false;
};
