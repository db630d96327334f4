// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <QString>
#include <QStringList>

#include <optional>

struct RecordReference
{
    RecordKind kind = RecordKind::Document;
    qint64 identifier = 0;

    bool operator==(const RecordReference&) const = default;
};

/// What a start of the program is asked to do.
struct StartRequest
{
    QString path;                          ///< absolute, of what to open; empty for what the settings name
    bool readOnly = false;                 ///< whether nothing in the database may be changed
    QString keywords;                      ///< to search for; empty for no search
    std::optional<RecordReference> record; ///< to show

    bool operator==(const StartRequest&) const = default;

    /// The arguments that ask for the same.
    [[nodiscard]] QStringList arguments() const;
};

/// What the arguments of the program mean: a request or, if nothing is to be started, what to print instead.
struct CommandLine
{
    /// Reads the arguments without the name of the program; relative paths begin in `folder`. Options that
    /// Qt takes are none of the program's.
    [[nodiscard]] static CommandLine read(const QStringList& arguments, const QString& folder);

    std::optional<StartRequest> request;
    QString answer;
    bool isError = false; ///< whether the answer says what is wrong with the arguments
};
