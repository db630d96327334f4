#pragma once

#include <QString>

/// What of a text can be read on one line: the first thousand characters, with an ellipsis for the rest. To
/// measure and draw megabytes takes seconds, for a line that shows a few words of them.
[[nodiscard]] QString readableLine(const QString& text);
