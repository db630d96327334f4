#pragma once

#include <QString>

class DatabaseSession;

/// What the about box tells, in the rich text that a window shows. Texts of the machine, such as paths, stand
/// in it as they are, never as markup.
class AboutText
{
public:
    /// The version of the program, such as `1.0.0`.
    [[nodiscard]] static QString version();

    /// Which database is open and how many records of each kind its lists show; in its place what is wrong,
    /// where no database is open or it cannot be read.
    [[nodiscard]] static QString database(DatabaseSession& session);

    /// The licence of the program, and the libraries and data it is made of with theirs.
    [[nodiscard]] static QString licences();
};
