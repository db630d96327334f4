#pragma once

#include "data/SQLObject.h"

#include <QString>

#include <vector>

class DatabaseSession;

/// How many documents of a view are of one type.
struct DocumentTypeCount
{
    QString name;
    qint64 documents = 0;
};

/// The documents that a query shows, counted by type, in the order of the database. A document counts once
/// for each of its types; documents without a type do not count. Throws Error.
std::vector<DocumentTypeCount> countDocumentTypes(DatabaseSession& session, const SQLObject& query);

/// Leaves of hundreds of types, whose bars nobody can tell apart, the fifty with most documents, in the order
/// in which they were. Returns how many it left out, 0 of fewer types.
std::size_t keepReadable(std::vector<DocumentTypeCount>& counts);
