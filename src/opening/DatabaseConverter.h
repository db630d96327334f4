#pragma once

#include "opening/ImportReport.h"

#include <QString>

/// Converts an Access file into a database of the program, where the user can watch and stop it.
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
        int status = 0;      ///< of the process that converts, where it failed
        QString error;       ///< what it said, where it failed
        ImportReport report; ///< what it told, where it is done
    };

    /// Makes `target` of `source`. An existing target is replaced, once the new one is complete, where
    /// `replace` says so, and is else a failure. Never ends the program, whatever the file holds.
    [[nodiscard]] virtual Result convert(const QString& source, const QString& target, bool replace) = 0;

protected:
    DatabaseConverter() = default;
    DatabaseConverter(const DatabaseConverter&) = default;
    DatabaseConverter& operator=(const DatabaseConverter&) = default;
};
