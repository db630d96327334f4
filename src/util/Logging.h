// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLoggingCategory>

// What the program can log for those who look for a fault in it. All of it is off unless QT_LOGGING_RULES
// asks for it, such as `orvik.*=true`; what the user has to know is a message, never a line of the log.

/// `orvik.statements`: each statement as built and as SQLite ran it, with its time.
Q_DECLARE_LOGGING_CATEGORY(statementsLog)
/// `orvik.messages`: what the user was told and asked, with their answers.
Q_DECLARE_LOGGING_CATEGORY(messagesLog)
/// `orvik.files`: the files and addresses handed to the desktop, and the files copied.
Q_DECLARE_LOGGING_CATEGORY(filesLog)
/// `orvik.start`: the steps of a start and the databases opened.
Q_DECLARE_LOGGING_CATEGORY(startLog)
