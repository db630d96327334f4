// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProcess>

#include <memory>

/// Ends a program at once; none of the process's signals arrives any more. One that waits for a dead disk
/// outlasts that: it is left to end by itself, so that nobody waits for it.
void endProcess(std::unique_ptr<QProcess> process);
