// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class DatabaseSession;

/// The texts of the about box, as rich text. Texts from outside the program, such as paths, are escaped.
class AboutText
{
public:
    /// The version of the program, such as `1.0.0`.
    [[nodiscard]] static QString version();

    /// Which database is open and how many records of each kind its lists show; or that none is open, or why
    /// it cannot be read.
    [[nodiscard]] static QString database(DatabaseSession& session);

    /// How many records of each kind the lists show. Throws Error.
    [[nodiscard]] static QString records(DatabaseSession& session);

    /// The licence of the program, and its libraries and data with their licences.
    [[nodiscard]] static QString licences();
};
