// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <QString>

#include <optional>

class DatabaseSession;
class QUrl;

/// A record that an address of a page leads to.
struct LinkedRecord
{
    RecordKind kind = RecordKind::Document;
    qint64 identifier = 0;
};

/// A record as a page of HTML: its name, its fields, and links to the records and the web pages that it
/// names. Empty if the record is not there or deleted. Throws Error.
[[nodiscard]] QString recordPage(DatabaseSession& session, RecordKind kind, qint64 identifier);

/// The record that an address of such a page leads to; std::nullopt if it is that of a web page.
[[nodiscard]] std::optional<LinkedRecord> linkedRecord(const QUrl& address);
