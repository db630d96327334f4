#pragma once

#include <QString>

#include <ostream>

/// Shows a text as text where a test fails.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
