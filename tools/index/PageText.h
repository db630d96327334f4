// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

/// The text that a reader of a web page sees, with its title and the texts in place of its pictures. Words in
/// different paragraphs or cells are apart, words of which letters are emphasized are whole.
/// Throws std::bad_alloc if the page takes more memory than there is.
[[nodiscard]] QByteArray pageText(const QString& page);
