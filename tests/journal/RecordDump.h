// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

/// All rows of the records, their links and profiles and of the lists, with the types of their values, one a
/// line; those of a table in an order that does not depend on where they lie in the file. Read by SQLite
/// alone.
QByteArray recordDump(const QString& file);
