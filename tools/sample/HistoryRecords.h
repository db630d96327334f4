// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "DocumentRecords.h"
#include "EventRecords.h"
#include "OrganizationRecords.h"
#include "SampleDatabase.h"

#include <QDir>

/// Fills the history tables from `history.tsv`: copies of records as they stood at some time, with at most
/// one column different from today.
void addHistory(const QDir& source, const DocumentRecords& documents, const EventRecords& events,
                const OrganizationRecords& organizations, SampleDatabase& database);
