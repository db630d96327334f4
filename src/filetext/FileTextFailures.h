// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QString>

/// Why a file has no text in the index: what stands in `File.Failure`, in English. Besides these there are
/// the failures of a `LimitedProcess`.
namespace FileTextFailures {

inline constexpr const char* empty = QT_TRANSLATE_NOOP("FileText", "It is empty.");
inline constexpr const char* withoutWords =
    QT_TRANSLATE_NOOP("FileText", "It holds no text. Scanned pages are pictures.");
inline constexpr const char* otherType =
    QT_TRANSLATE_NOOP("FileText", "It is not a PDF, a web page or a text.");
inline constexpr const char* noFile = QT_TRANSLATE_NOOP("FileText", "It is not a file.");
inline constexpr const char* unreadable = QT_TRANSLATE_NOOP("FileText", "It cannot be read.");
inline constexpr const char* tooLarge = QT_TRANSLATE_NOOP("FileText", "It is too large.");

/// A failure in the language of the program.
[[nodiscard]] QString translated(const QString& failure);

} // namespace FileTextFailures
