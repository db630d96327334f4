// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The part of a text that can be read on one line: the first thousand characters, with an ellipsis for the
/// rest. Measuring and drawing megabytes would take seconds, for a line that shows a few words of them.
[[nodiscard]] QString readableLine(const QString& text);
