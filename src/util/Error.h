// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <exception>
#include <string>
#include <utility>

/// The one error type of the program: what SQLite, the system or a check of ours reports.
/// `number` is the reporter's own code (6 for an overflow); `description` is one line for the user.
class Error : public std::exception
{
public:
    Error(int number, QString description)
        : m_number(number), m_description(std::move(description)), m_what(m_description.toStdString())
    {
    }

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] const QString& description() const { return m_description; }
    /// Whether another program locks the database.
    [[nodiscard]] bool isOfLock() const { return m_number == lockNumber; }
    /// Whether the database cannot be read because it is damaged, or is none.
    [[nodiscard]] bool isOfDamage() const { return m_number == damageNumber || m_number == noDatabaseNumber; }
    [[nodiscard]] const char* what() const noexcept override { return m_what.c_str(); }

private:
    static constexpr int lockNumber = 5;        // SQLITE_BUSY
    static constexpr int damageNumber = 11;     // SQLITE_CORRUPT
    static constexpr int noDatabaseNumber = 26; // SQLITE_NOTADB

    int m_number;
    QString m_description;
    std::string m_what;
};
