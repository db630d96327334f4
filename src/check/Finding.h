// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

/// What a check of a collection looks at, in the order in which it does.
enum class CheckTopic
{
    EngineIntegrity,      ///< what SQLite says of the file
    ForeignKeys,          ///< what SQLite says of the references that the file declares
    LinksWithoutRecord,   ///< links and keys that lead to no record or to no entry of a list
    UnreadableDates,      ///< dates and times that are not in held form
    HistoryWithoutRecord, ///< former versions, or rows of the journal, of records that are not there
    MissingFiles,         ///< files that records name and that are not in their folder
    StrayFiles,           ///< files that no record names
    FileTexts,            ///< files whose text could not be read for searches
    ChangedRecords,       ///< records that are not what they were when the program saved them last
    ChangedFiles          ///< files that are not what they were when the program took them in
};

/// A fault that a check found.
struct Finding
{
    /// What the user can have done about it; nothing is done by itself.
    enum class Step
    {
        None,
        ShowRecord,
        FindFile, ///< by its hash, in a folder that the user chooses
        PutAside  ///< the file, into a folder of its own
    };

    struct Record
    {
        RecordKind kind;
        qint64 identifier;
    };

    QString text; ///< a sentence for the user
    Step step = Step::None;
    std::optional<Record> record = std::nullopt;
    QString file = {};      ///< relative to the data folder, such as `documents/2.pdf`; empty for none
    QByteArray sha256 = {}; ///< what the file held when it was taken in, if that is known
};

/// What came of one check.
struct CheckResult
{
    CheckTopic topic;
    bool isDone = false;
    std::vector<Finding> findings = {};
    int more = 0;           ///< findings beyond those, which were only counted
    QString hindrance = {}; ///< why the check could not be made to its end; empty if it could
    QString remark = {};    ///< what the user should know although it is no fault; mostly empty

    /// The number of all findings.
    [[nodiscard]] int count() const { return static_cast<int>(findings.size()) + more; }
};

/// The name of a check for programs, such as `missing-files`; does not depend on the language.
[[nodiscard]] QString checkName(CheckTopic topic);

/// The name of a check for the user.
[[nodiscard]] QString checkCaption(CheckTopic topic);
