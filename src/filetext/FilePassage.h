// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "util/TextRange.h"

#include <QMetaType>
#include <QString>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

class TextWords;

/// A word that is looked for in the texts of files, as the index has it.
struct SoughtWord
{
    std::string word;
    bool isBeginning = false; ///< whether it is found as the beginning of a word, too
};

/// A few words of the text of a file, on one line.
struct FilePassage
{
    QString text;
    std::vector<TextRange> marks; ///< the words that were looked for, from left to right

    /// Returns the place of a text, in UTF-8, that has the most of the words close together; an empty passage
    /// if the first megabytes have none of them.
    static FilePassage in(std::string_view text, const TextWords& splitter,
                          const std::vector<SoughtWord>& sought);
};

/// Returns what is shown of the file of a document; an empty passage if nothing is.
using FilePassages = std::function<FilePassage(qint64 document)>;

Q_DECLARE_METATYPE(FilePassage)
