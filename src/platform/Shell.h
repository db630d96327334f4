// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QUrl>

/// Opens files as the desktop does, and starts programs. The only door to other programs.
class Shell
{
public:
    virtual ~Shell() = default;

    /// Opens a file or an address with the desktop's default program; returns false if there is none.
    [[nodiscard]] virtual bool open(const QUrl& url) = 0;

    /// Starts a program with one file as its argument, in double quotes if the system takes a command
    /// line; returns false if it cannot be started. Both are paths of the machine.
    [[nodiscard]] virtual bool start(const QString& program, const QString& file) = 0;

protected:
    Shell() = default;
    Shell(const Shell&) = default;
    Shell& operator=(const Shell&) = default;
};
