// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <string>
#include <vector>

/// Something that an exported record is linked to.
struct ExportedLink
{
    qint64 key = 0;
    std::string name; ///< UTF-8
};

/// What an exported record holds of a field. Texts are UTF-8.
struct ExportedValue
{
    enum class Type
    {
        Missing,
        Whole,
        Real,
        Text
    };

    Type type = Type::Missing;       ///< of what the file holds
    qint64 whole = 0;                ///< of a whole number; of a key, also that of a missing one
    double real = 0;                 ///< of a number
    std::string text;                ///< as the file holds it, a number as text; of a key, its name
    bool lacksName = false;          ///< of a key: whether its name is one that the program made up
    std::vector<ExportedLink> links; ///< each once, without a placeholder
};

/// A record with the values of all fields, in their order.
struct ExportedRecord
{
    qint64 identifier = 0;
    std::vector<ExportedValue> values;
};
