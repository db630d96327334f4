#pragma once

#include <QString>

/// What the program says to its user and asks of them. The only door to message boxes and to the bell.
class Messages
{
public:
    virtual ~Messages() = default;

    /// One message with an OK button and no title of its own.
    virtual void show(const QString& text) = 0;

    /// A question with Yes and No; true for Yes. Closing the box answers No.
    [[nodiscard]] virtual bool ask(const QString& question) = 0;

    virtual void beep() = 0;

protected:
    Messages() = default;
    Messages(const Messages&) = default;
    Messages& operator=(const Messages&) = default;
};
