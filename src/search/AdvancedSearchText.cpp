#include "search/AdvancedSearch.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(AdvancedSearch)
};

constexpr qsizetype namesInFull = 4;

/// Returns `A`, `A or B`, `A, B or C`; of more than four names, the first three and how many others there
/// are.
QString oneOf(const QStringList& names)
{
    if (names.size() == 1) return names.front();
    if (names.size() <= namesInFull) {
        return Texts::tr("%1 or %2")
            .arg(names.first(names.size() - 1).join(QStringLiteral(", ")), names.back());
    }
    const qsizetype shown = namesInFull - 1;
    return Texts::tr("%1 or one of %n others", nullptr, static_cast<int>(names.size() - shown))
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
    return Texts::tr("%1 (the numbers of several venues are read as one: choose one venue)")
        .arg(venues.value(number, Texts::tr("number %1, which no venue has").arg(number)));
}

QStringList locationNames(const clsAdvSearch::Items& items)
{
    QStringList names;
    for (const clsPickListItem& item : items) {
        const auto [city, state] = clsAdvSearch::cityAndState(item.itemName);
        names << (state.isEmpty() ? Texts::tr("%1 without a state").arg(city)
                                  : city + QStringLiteral(", ") + state);
    }
    return names;
}

QString datesText(const clsAdvSearch& search)
{
    const QString date = QStringLiteral("MM/dd/yyyy");
    const QString time = QStringLiteral("hh:mm");
    QString text = Texts::tr("that start from %1 to %2, each day between %3 and %4")
                       .arg(search.eventStartDate.toString(date), search.eventEndDate.toString(date),
                            search.eventStartTime.toString(time), search.eventEndTime.toString(time));
    if (search.eventEndDate < search.eventStartDate || search.eventEndTime < search.eventStartTime) {
        text = Texts::tr("%1 (there is no such moment)").arg(text);
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
    return Texts::tr("whose %1 is %2").arg(Texts::tr(criterion.inSentence), choices);
}

QString searchesText(RecordKind kind, const QString& restrictions)
{
    switch (kind) {
    case RecordKind::Document:
        return restrictions.isEmpty() ? Texts::tr("Searches all documents")
                                      : Texts::tr("Searches documents %1").arg(restrictions);
    case RecordKind::Event:
        return restrictions.isEmpty() ? Texts::tr("Searches all events")
                                      : Texts::tr("Searches events %1").arg(restrictions);
    case RecordKind::Organization:
        break;
    }
    return restrictions.isEmpty() ? Texts::tr("Searches all organizations")
                                  : Texts::tr("Searches organizations %1").arg(restrictions);
}

} // namespace

QString advancedSearchText(RecordKind kind, const clsAdvSearch& search, const VenueNames& venues)
{
    QStringList restrictions;
    QStringList unrestricted;
    for (const SearchCriterion& criterion : criteriaOf(kind)) {
        if (!(search.*criterion.flag)) continue;
        if (criterion.items != nullptr && (search.*criterion.items).empty()) {
            unrestricted << Texts::tr(criterion.inSentence);
        } else {
            restrictions << choiceText(criterion, search, venues);
        }
    }
    const QString text = searchesText(kind, restrictions.join(Texts::tr(", and ")));
    if (unrestricted.isEmpty()) return Texts::tr("%1.").arg(text);
    return Texts::tr("%1; no %2 is chosen, so it may be any.")
        .arg(text, unrestricted.join(Texts::tr(" and no ")));
}
