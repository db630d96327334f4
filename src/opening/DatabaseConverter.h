// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "opening/ImportReport.h"

#include <QString>

/// Converts Access files into databases of the program, while the user can watch and cancel it.
class DatabaseConverter
{
public:
    virtual ~DatabaseConverter() = default;

    struct Result
    {
        enum class End
        {
            Done,
            Cancelled,
            Failed
        };

        End end = End::Failed;
        int status = 0;      ///< exit status of the process that converts, if it failed
        QString error;       ///< its error message, if it failed
        ImportReport report; ///< complete if the conversion is done
    };

    /// Makes the database `target` from the file `source`. With `replace`, an existing target is replaced
    /// once the new one is complete; without, it makes the conversion fail. Never ends the program, whatever
    /// the file holds.
    [[nodiscard]] virtual Result convert(const QString& source, const QString& target, bool replace) = 0;

protected:
    DatabaseConverter() = default;
    DatabaseConverter(const DatabaseConverter&) = default;
    DatabaseConverter& operator=(const DatabaseConverter&) = default;
};
