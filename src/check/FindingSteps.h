// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

class ProgramFolder;

/// What the user can have done about a finding that names a file. A file is whole at every moment, and no
/// content is ever lost. Every failure is an Error; then all is as it was.
namespace FindingSteps {

/// Moves a file, or a folder, of a finding into the folder `aside` of the collection's data, under its own
/// name and a number if that is taken. Returns where it is now.
[[nodiscard]] QString putAside(const ProgramFolder& folder, const QString& file);

/// Copies a file that was found elsewhere to the place of a finding's file. What lies there is put aside.
/// Throws Error if the found file does not hold what it should.
void bringBack(const ProgramFolder& folder, const QString& file, const QByteArray& sha256,
               const QString& found);

} // namespace FindingSteps
