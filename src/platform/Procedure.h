// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Messages.h"
#include "util/Error.h"

#include <QCoreApplication>
#include <QString>

#include <exception>
#include <utility>

/// Runs the body of a procedure. A failure shows one message, `name Error (number): description`, and ends
/// the procedure, never the program; what was done so far stays. Returns true if nothing failed.
template <typename Body>
bool runProcedure(Messages& messages, const QString& name, Body&& body)
{
    const auto report = [&](int number, const QString& description) {
        messages.show(QCoreApplication::translate("Procedure", "%1 Error (%2): %3")
                          .arg(name, QString::number(number), description));
    };
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const Error& error) {
        report(error.number(), error.description());
    } catch (const std::exception& exception) {
        report(0, QString::fromLocal8Bit(exception.what()));
    }
    return false;
}
