// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <string>

/// What a run of the tool prints. It is kept until all of it is there, so that no error leaves behind a part
/// that looks like a result.
class Output
{
public:
    /// Adds a line for people. Characters that would command their terminal are shown as blanks.
    void line(const QString& text = {});

    /// All of it, in UTF-8.
    [[nodiscard]] std::string& text() { return m_text; }

    /// Writes it to the standard output. Throws Error if that does not take all of it.
    void write();

    /// A text without characters that would command a terminal; a line end stays one if it may.
    [[nodiscard]] static QString printable(QString text, bool keepsLines = false);

private:
    std::string m_text;
};
