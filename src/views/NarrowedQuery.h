// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "data/SQLObject.h"

#include <QtGlobal>

#include <vector>

/// Returns the condition for the records of a kind that have one of the keys, to follow a where clause.
QString keysAmong(RecordKind kind, const std::vector<qint64>& keys);

/// Returns a query for those rows of another whose records are among `shown`; `all` are the records of all
/// its rows. Conditions on links stay as they are, so that a graphic counts the same links as before.
SharedQuery narrowedTo(RecordKind kind, const SharedQuery& query, std::vector<qint64> shown,
                       std::vector<qint64> all);
