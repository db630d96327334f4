// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// What a program that is none of ours printed.
struct ProgramRun
{
    QByteArray output;
    QByteArray errors; ///< what it complained of, or that it did not end well
    bool hasEndedWell = false;
};

/// Runs a program with something to read, for at most two minutes.
[[nodiscard]] ProgramRun runProgram(const QString& program, const QStringList& arguments,
                                    const QByteArray& input = {});
