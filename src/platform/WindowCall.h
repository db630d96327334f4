// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// What one start of the program asks of the window of another: to come to the front and to do what a command
/// line says.
struct WindowCall
{
    /// The most bytes of a message; a longer one is refused.
    static constexpr qint64 longestMessage = 65536;

    QStringList arguments;
    QString activationToken; ///< of the desktop, with which a window may come to the front; may be empty

    bool operator==(const WindowCall&) const = default;

    /// Lines of ASCII that begin with a name and a version and end with `end`.
    [[nodiscard]] QByteArray message() const;

    /// Whether these are the beginning of a message or all of it. What is not can be refused at once.
    [[nodiscard]] static bool isBegun(const QByteArray& bytes);

    /// Whether the last line of a message is there.
    [[nodiscard]] static bool isWhole(const QByteArray& bytes);

    /// Returns std::nullopt for bytes that are no message.
    [[nodiscard]] static std::optional<WindowCall> fromMessage(const QByteArray& bytes);
};
