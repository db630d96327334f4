// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/SQLObject.h"

#include <QString>

#include <vector>

class DatabaseSession;

/// The number of documents of one type in a view.
struct DocumentTypeCount
{
    QString name;
    qint64 documents = 0;
};

/// Counts the documents of a query by type; the types are in the order in which the database returns them. A
/// document counts once for each of its types; documents without a type do not count. Throws Error.
std::vector<DocumentTypeCount> countDocumentTypes(DatabaseSession& session, const SQLObject& query);

/// Keeps the fifty types with the most documents, in their order, if there are more than two hundred, whose
/// bars could not be told apart. Returns the number of types left out.
std::size_t keepReadable(std::vector<DocumentTypeCount>& counts);
