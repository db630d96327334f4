// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// What a question is about, which decides its buttons and which of them the Return key means.
enum class Question
{
    Harmless, ///< "Yes" and "No"; Return means "Yes"
    Loss,     ///< "Yes" and "No" if Yes loses something; Return means "No"
    Discard   ///< "Discard" and "Keep Editing" if something typed is lost; Return means "Keep Editing"
};

/// What the program says to its user and asks of them. The only door to message boxes and to the bell.
class Messages
{
public:
    virtual ~Messages() = default;

    /// One message with an OK button and no title of its own.
    virtual void show(const QString& text) = 0;

    /// A question with two answers; returns true for "Yes" or "Discard". Closing the box returns false.
    [[nodiscard]] virtual bool ask(const QString& text, Question about) = 0;

    /// A question with answers of its own, each with the key after `&`, and "Cancel". Returns the number of
    /// the answer, from 0; std::nullopt for "Cancel" and for a box that is closed. Return means the first.
    [[nodiscard]] virtual std::optional<int> choose(const QString& text, const QStringList& answers) = 0;

    virtual void beep() = 0;

protected:
    Messages() = default;
    Messages(const Messages&) = default;
    Messages& operator=(const Messages&) = default;
};
