// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// The encodings of files that do not say theirs, or say a wrong one.
namespace TextDecoding {

/// Whether the beginning of a file is that of a text in any encoding.
[[nodiscard]] bool isText(QByteArrayView beginning);

/// A text by its byte order mark; else UTF-16 if it looks like that; else in the encoding that is declared,
/// which may be empty or unknown; else UTF-8 if that is what it holds; else Windows-1252. A declared Latin-1
/// is often what an editor wrote without asking, so UTF-8 comes before it.
[[nodiscard]] QString decoded(QByteArrayView text, const QByteArray& declared = {});

} // namespace TextDecoding
