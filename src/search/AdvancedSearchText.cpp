#include "search/AdvancedSearch.h"

#include <QStringList>

namespace {

constexpr qsizetype namesInFull = 4;

/// Returns `A`, `A or B`, `A, B or C`; of more than four names, the first three and how many others there
/// are.
QString oneOf(const QStringList& names)
{
    if (names.size() == 1) return names.front();
    if (names.size() <= namesInFull) {
        return names.first(names.size() - 1).join(QStringLiteral(", ")) + QStringLiteral(" or ") +
               names.back();
    }
    const qsizetype shown = namesInFull - 1;
    return names.first(shown).join(QStringLiteral(", ")) +
           QStringLiteral(" or one of %1 others").arg(names.size() - shown);
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
    return venues.value(number, QStringLiteral("number %1, which no venue has").arg(number)) +
           QStringLiteral(" (the numbers of several venues are read as one: choose one venue)");
}

QStringList locationNames(const clsAdvSearch::Items& items)
{
    QStringList names;
    for (const clsPickListItem& item : items) {
        const auto [city, state] = clsAdvSearch::cityAndState(item.itemName);
        names << (state.isEmpty() ? city + QStringLiteral(" without a state")
                                  : city + QStringLiteral(", ") + state);
    }
    return names;
}

QString datesText(const clsAdvSearch& search)
{
    const QString date = QStringLiteral("MM/dd/yyyy");
    const QString time = QStringLiteral("hh:mm");
    QString text = QStringLiteral("that start from %1 to %2, each day between %3 and %4")
                       .arg(search.eventStartDate.toString(date), search.eventEndDate.toString(date),
                            search.eventStartTime.toString(time), search.eventEndTime.toString(time));
    if (search.eventEndDate < search.eventStartDate || search.eventEndTime < search.eventStartTime) {
        text += QStringLiteral(" (there is no such moment)");
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
    return QStringLiteral("whose %1 is %2").arg(criterion.word.toLower(), choices);
}

} // namespace

QString advancedSearchText(RecordKind kind, const clsAdvSearch& search, const VenueNames& venues)
{
    const QString records = kind == RecordKind::Document ? QStringLiteral("documents")
                            : kind == RecordKind::Event  ? QStringLiteral("events")
                                                         : QStringLiteral("organizations");
    QStringList restrictions;
    QStringList unrestricted;
    for (const SearchCriterion& criterion : criteriaOf(kind)) {
        if (!(search.*criterion.flag)) continue;
        if (criterion.items != nullptr && (search.*criterion.items).empty()) {
            unrestricted << criterion.word.toLower();
        } else {
            restrictions << choiceText(criterion, search, venues);
        }
    }
    QString text = restrictions.isEmpty() ? QStringLiteral("Searches all ") + records
                                          : QStringLiteral("Searches ") + records + u' ' +
                                                restrictions.join(QStringLiteral(", and "));
    if (!unrestricted.isEmpty()) {
        text += QStringLiteral("; no %1 is chosen, so it may be any")
                    .arg(unrestricted.join(QStringLiteral(" and no ")));
    }
    return text + u'.';
}
