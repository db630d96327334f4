// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/AdvancedSearch.h"
#include "search/SearchTexts.h"

#include <QStringList>

namespace {

constexpr qsizetype namesInFull = 4;

/// Returns `A`, `A or B`, `A, B or C`; of more than four names, the first three and how many others there
/// are.
QString oneOf(const QStringList& names)
{
    if (names.size() == 1) return names.front();
    if (names.size() <= namesInFull) {
        return SearchTexts::tr("%1 or %2")
            .arg(names.first(names.size() - 1).join(QStringLiteral(", ")), names.back());
    }
    const qsizetype shown = namesInFull - 1;
    return SearchTexts::tr("%1 or one of %n others", nullptr, static_cast<int>(names.size() - shown))
        .arg(names.first(shown).join(QStringLiteral(", ")));
}

QStringList namesOf(const clsAdvSearch::Items& items)
{
    QStringList names;
    for (const clsPickListItem& item : items)
        names << item.itemName;
    return names;
}

/// The search joins the identifiers of several document venues to one number; this says which venue that is.
QString joinedVenue(const clsAdvSearch::Items& chosen, const VenueNames& venues)
{
    QString number;
    for (const clsPickListItem& venue : chosen)
        number += QString::number(venue.itemID);
    return SearchTexts::tr("%1 (the numbers of several venues are read as one: choose one venue)")
        .arg(venues.value(number, SearchTexts::tr("number %1, which no venue has").arg(number)));
}

QStringList locationNames(const clsAdvSearch::Items& items)
{
    QStringList names;
    for (const clsPickListItem& item : items) {
        const auto [city, state] = clsAdvSearch::cityAndState(item.itemName);
        names << (state.isEmpty() ? SearchTexts::tr("%1 without a state").arg(city)
                                  : city + QStringLiteral(", ") + state);
    }
    return names;
}

QString datesText(const clsAdvSearch& search)
{
    const QString date = QStringLiteral("MM/dd/yyyy");
    const QString time = QStringLiteral("hh:mm");
    QString text = SearchTexts::tr("that start from %1 to %2, each day between %3 and %4")
                       .arg(search.eventStartDate.toString(date), search.eventEndDate.toString(date),
                            search.eventStartTime.toString(time), search.eventEndTime.toString(time));
    if (search.eventEndDate < search.eventStartDate || search.eventEndTime < search.eventStartTime) {
        text = SearchTexts::tr("%1 (there is no such moment)").arg(text);
    }
    return text;
}

QString choiceText(const SearchCriterion& criterion, const clsAdvSearch& search, const VenueNames& venues)
{
    if (criterion.items == nullptr) return datesText(search);
    const clsAdvSearch::Items& items = search.*criterion.items;
    QString choices;
    if (criterion.items == &clsAdvSearch::docVenues && items.size() > 1) {
        choices = joinedVenue(items, venues);
    } else if (criterion.items == &clsAdvSearch::orgLocations) {
        choices = oneOf(locationNames(items));
    } else {
        choices = oneOf(namesOf(items));
    }
    return SearchTexts::tr("whose %1 is %2").arg(SearchTexts::tr(criterion.inSentence), choices);
}

QString searchesText(RecordKind kind, const QString& restrictions)
{
    switch (kind) {
    case RecordKind::Document:
        return restrictions.isEmpty() ? SearchTexts::tr("Searches all documents")
                                      : SearchTexts::tr("Searches documents %1").arg(restrictions);
    case RecordKind::Event:
        return restrictions.isEmpty() ? SearchTexts::tr("Searches all events")
                                      : SearchTexts::tr("Searches events %1").arg(restrictions);
    case RecordKind::Organization:
        break;
    }
    return restrictions.isEmpty() ? SearchTexts::tr("Searches all organizations")
                                  : SearchTexts::tr("Searches organizations %1").arg(restrictions);
}

} // namespace

QString advancedSearchText(RecordKind kind, const clsAdvSearch& search, const VenueNames& venues)
{
    QStringList restrictions;
    QStringList unrestricted;
    for (const SearchCriterion& criterion : criteriaOf(kind)) {
        if (!(search.*criterion.flag)) continue;
        if (criterion.items != nullptr && (search.*criterion.items).empty()) {
            unrestricted << SearchTexts::tr(criterion.inSentence);
        } else {
            restrictions << choiceText(criterion, search, venues);
        }
    }
    const QString text = searchesText(kind, restrictions.join(SearchTexts::tr(", and ")));
    if (unrestricted.isEmpty()) return SearchTexts::tr("%1.").arg(text);
    return SearchTexts::tr("%1; no %2 is chosen, so it may be any.")
        .arg(text, unrestricted.join(SearchTexts::tr(" and no ")));
}
