// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "opening/ImportReport.h"

#include <QString>

#include <optional>

class DatabaseConverter;

/// The conversion of one Access file, whoever asks for it.
namespace AccessConversion {

/// The name of the database that is made of an Access file.
QString databaseName(const QString& accessFile);

/// Converts a file, as DatabaseConverter does; std::nullopt if the user cancelled it. Throws Error.
std::optional<ImportReport> run(DatabaseConverter& converter, const QString& source, const QString& target,
                                bool replace);

/// The message for the user. `report` is what came of it.
QString message(const QString& source, const QString& target, const QString& report);

} // namespace AccessConversion
