// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/SharedFolderSplit.h"

#include <QString>

#include <vector>

class ProgramFolder;
struct Platform;

/// Sees to it that no two databases share a folder of files.
namespace SharedFolders {

struct Outcome
{
    QString file; ///< where the database that is to be opened lies now
    std::vector<MovedDatabase> moved;
};

/// Gives the databases beside one that is to be opened folders of their own, and tells the user. The database
/// that the settings name keeps the folder if it is in it. New folders are made in `place`. What fails is
/// told too; the database can be opened all the same. Throws Error only while another window is doing this.
Outcome separate(const Platform& platform, const ProgramFolder& home, const QString& place,
                 const QString& file);

/// What the user should know; empty if there is nothing.
QString reportOf(const SharedFolderSplit::Result& result);

} // namespace SharedFolders
