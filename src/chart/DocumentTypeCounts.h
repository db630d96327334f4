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
    qint64 type = 0; ///< its identifier; two types may have the same name
};

enum class TypeOrder
{
    AsRead,
    ByNumber, ///< most documents first, then by name
    ByName,
};

/// Counts the documents of a query by type; the types are in the order in which the database returns them. A
/// document counts once for each of its types; documents without a type do not count. Throws Error.
std::vector<DocumentTypeCount> countDocumentTypes(DatabaseSession& session, const SQLObject& query);

/// Keeps the fifty types with the most documents, in their order, if there are more than two hundred, whose
/// bars could not be told apart. Returns the number of types left out.
std::size_t keepReadable(std::vector<DocumentTypeCount>& counts);

/// Sorts types that are in the order in which they were read.
void sortTypes(std::vector<DocumentTypeCount>& counts, TypeOrder order);

/// The most documents that one of the types has; 0 without types.
[[nodiscard]] qint64 highestCount(const std::vector<DocumentTypeCount>& counts);
