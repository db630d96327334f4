// SPDX-License-Identifier: GPL-3.0-or-later

#include "chart/DocumentTypeCounts.h"

#include "data/DatabaseSession.h"
#include "util/TextCompare.h"

#include <algorithm>
#include <functional>

namespace {

constexpr std::size_t mostTypes = 200; ///< with fewer, the chart shows all, scrolled if need be
constexpr std::size_t keptTypes = 50;

} // namespace

std::size_t keepReadable(std::vector<DocumentTypeCount>& counts)
{
    if (counts.size() <= mostTypes) return 0;
    std::vector<qint64> highest;
    highest.reserve(counts.size());
    for (const DocumentTypeCount& count : counts)
        highest.push_back(count.documents);
    const auto last = highest.begin() + keptTypes - 1;
    std::nth_element(highest.begin(), last, highest.end(), std::greater<>());
    const qint64 least = *last;
    // of the types with as many documents as the last one that is kept, the first ones are kept
    auto alike = static_cast<std::ptrdiff_t>(keptTypes) -
                 std::count_if(counts.begin(), counts.end(),
                               [least](const DocumentTypeCount& count) { return count.documents > least; });
    return std::erase_if(counts, [&](const DocumentTypeCount& count) {
        return count.documents < least || (count.documents == least && --alike < 0);
    });
}

void sortTypes(std::vector<DocumentTypeCount>& counts, TypeOrder order)
{
    if (order == TypeOrder::AsRead) return;
    const bool isByNumber = order == TypeOrder::ByNumber;
    std::ranges::stable_sort(counts, [isByNumber](const auto& left, const auto& right) {
        if (isByNumber && left.documents != right.documents) return left.documents > right.documents;
        return TextCompare::compare(left.name.toStdString(), right.name.toStdString()) < 0;
    });
}

qint64 highestCount(const std::vector<DocumentTypeCount>& counts)
{
    const auto highest = std::ranges::max_element(counts, {}, &DocumentTypeCount::documents);
    return highest == counts.end() ? 0 : highest->documents;
}

std::vector<DocumentTypeCount> countDocumentTypes(DatabaseSession& session, const SQLObject& query)
{
    RecordSet rows = session.read(
        QStringLiteral("SELECT DocumentTypeID, DocumentTypeName, count(Document.DocumentID) as Docs ") +
        query.FromClause + u' ' + query.WhereClause + QStringLiteral(" AND DocumentTypeID > 0") +
        QStringLiteral(" GROUP BY DocumentTypeID, DocumentTypeName"));
    const int type = rows.column(u"DocumentTypeID");
    const int name = rows.column(u"DocumentTypeName");
    const int documents = rows.column(u"Docs");
    std::vector<DocumentTypeCount> counts;
    while (rows.next())
        counts.push_back({rows.text(name), rows.integer(documents), rows.integer(type)});
    return counts;
}
