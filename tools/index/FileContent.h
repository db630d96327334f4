// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// What a file holds, whatever its name says.
namespace FileContent {

enum class Kind
{
    Pdf,
    Page, ///< a web page
    Text,
    Other
};

/// As many bytes of a file's beginning tell its kind.
inline constexpr qsizetype beginningSize = 4096;

/// The kind of a file by its beginning. The name decides only if that leaves it open.
[[nodiscard]] Kind kindOf(QByteArrayView beginning, const QString& name);

/// The text of a web page, in UTF-8. Reads at most `most` bytes of the file. Throws Error if it cannot be
/// read.
[[nodiscard]] QByteArray pageTextOf(const QString& file, qint64 most);

/// A text as the index keeps it and shows its passages: on one line, without what parts or joins the letters
/// of a word on paper.
[[nodiscard]] QString cleaned(QString text);

} // namespace FileContent
