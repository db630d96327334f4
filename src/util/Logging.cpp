// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/Logging.h"

Q_LOGGING_CATEGORY(statementsLog, "orvik.statements", QtWarningMsg)
Q_LOGGING_CATEGORY(messagesLog, "orvik.messages", QtWarningMsg)
Q_LOGGING_CATEGORY(filesLog, "orvik.files", QtWarningMsg)
Q_LOGGING_CATEGORY(startLog, "orvik.start", QtWarningMsg)
