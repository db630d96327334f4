// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/ListLayout.h"

#include "browse/list/ListTexts.h"
#include "util/TypedDate.h"

#include <limits>

namespace {

constexpr int noSubType = 1;
constexpr std::string_view noState = "None";

namespace documentField {
constexpr std::size_t name = 0, author = 1, date = 2, fileType = 3, source = 4;
static_assert(source + 1 == fileLocationField && fileType == fileTypeField);
} // namespace documentField
namespace eventField {
constexpr std::size_t name = 0, startDate = 1, startTime = 2, endDate = 3, endTime = 4;
}
namespace organizationField {
constexpr std::size_t name = 0, type = 1, subType = 2, function = 3, city = 4, state = 5;
}

void join(std::string& text, std::string_view separator, std::string_view more)
{
    if (!text.empty() && !more.empty()) text += separator;
    text += more;
}

template <std::size_t index>
std::string_view field(const ListRow& row)
{
    return row.fields[index];
}

std::string organizationType(const ListRow& row)
{
    std::string text(field<organizationField::type>(row));
    if (row.number > noSubType) join(text, " - ", field<organizationField::subType>(row));
    return text;
}

std::string organizationPlace(const ListRow& row)
{
    std::string text(field<organizationField::city>(row));
    const std::string_view state = field<organizationField::state>(row);
    if (state != noState) join(text, ", ", state);
    return text;
}

EventTimes times(const ListRow& row)
{
    return {field<eventField::startDate>(row), field<eventField::startTime>(row),
            field<eventField::endDate>(row), field<eventField::endTime>(row)};
}

/// The held forms sort as they are once each is filled up to its full length.
ListSortKey timesKey(const ListRow& row)
{
    constexpr std::array<std::size_t, 4> lengths{10, 8, 10, 8};
    ListSortKey key;
    std::size_t length = 0;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        key.text += row.fields[eventField::startDate + i];
        length += lengths[i];
        key.text.resize(length, ' ');
    }
    return key;
}

/// A column that shows and sorts the text that `utf8` returns for a row.
template <auto utf8>
ListColumn textColumn(const char* title, int widthInTwips = 0)
{
    return {title, widthInTwips, [](const ListRow& row) { return std::string(utf8(row)); },
            [](const ListRow& row) {
                return ListSortKey{0, std::string(utf8(row))};
            },
            [](const ListRow& row) {
                const auto text = utf8(row);
                return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
            }};
}

/// What is not a date sorts after all dates.
ListColumn documentDateColumn()
{
    ListColumn column = textColumn<field<documentField::date>>(QT_TRANSLATE_NOOP("List", "Date"));
    column.sortKey = [](const ListRow& row) {
        const std::string_view date = field<documentField::date>(row);
        const auto order =
            typedDateOrder(QString::fromUtf8(date.data(), static_cast<qsizetype>(date.size())));
        return ListSortKey{order.value_or(std::numeric_limits<int>::max()), std::string(date)};
    };
    return column;
}

/// Key records sort before the others.
ListColumn keyColumn(QString (*toolTip)(const ListRow&))
{
    constexpr int width = 300;
    return {"",
            width,
            [](const ListRow& row) { return std::string(row.isKey ? "1" : ""); },
            [](const ListRow& row) {
                return ListSortKey{row.isKey ? 0 : 1, {}};
            },
            toolTip,
            true};
}

ListLayout documentLayout()
{
    ListColumn author = textColumn<field<documentField::author>>(QT_TRANSLATE_NOOP("List", "Author"));
    author.fitsTexts = true;
    return {
        u"DocumentID",
        u"FileTypeID",
        u"KeyDocument",
        u"ReleaseForm",
        {u"DocumentName", u"Author", u"DocumentDate", u"FileTypeName", u"OrganizationName", u"FileLocation"},
        {textColumn<field<documentField::name>>(QT_TRANSLATE_NOOP("List", "Title"), 6420),
         keyColumn([](const ListRow& row) { return row.isKey ? ListTexts::tr("Key document") : QString(); }),
         author, documentDateColumn(),
         textColumn<field<documentField::fileType>>(QT_TRANSLATE_NOOP("List", "File")),
         textColumn<field<documentField::source>>(QT_TRANSLATE_NOOP("List", "Source"))}};
}

template <Years years>
std::string timesText(const ListRow& row)
{
    return times(row).text(years).toStdString();
}

template <Years years>
ListLayout eventLayout()
{
    return {u"EventID",
            {},
            u"KeyEvent",
            {},
            {u"EventName", u"StartDate", u"StartTime", u"EndDate", u"EndTime"},
            {textColumn<field<eventField::name>>(QT_TRANSLATE_NOOP("List", "Name"), 6450),
             keyColumn([](const ListRow& row) { return row.isKey ? ListTexts::tr("Key event") : QString(); }),
             {QT_TRANSLATE_NOOP("List", "Date - Time"), 6450, &timesText<years>, &timesKey,
              [](const ListRow& row) { return times(row).text(Years::FourDigits); }}}};
}

ListLayout organizationLayout()
{
    return {u"OrganizationID",
            u"OrganizationSubTypeID",
            {},
            {},
            {u"OrganizationName", u"OrganizationTypeName", u"OrganizationSubTypeName", u"FunctionName",
             u"City", u"State"},
            {textColumn<field<organizationField::name>>(QT_TRANSLATE_NOOP("List", "Name"), 4560),
             textColumn<organizationType>(QT_TRANSLATE_NOOP("List", "Type"), 1905),
             textColumn<field<organizationField::function>>(QT_TRANSLATE_NOOP("List", "Function"), 2175),
             textColumn<organizationPlace>(QT_TRANSLATE_NOOP("List", "Location"), 1440)}};
}

} // namespace

const ListLayout& listLayout(RecordKind kind, Years years)
{
    static const ListLayout documents = documentLayout();
    static const ListLayout events = eventLayout<Years::TwoDigits>();
    static const ListLayout eventsWithWholeYears = eventLayout<Years::FourDigits>();
    static const ListLayout organizations = organizationLayout();
    switch (kind) {
    case RecordKind::Document:
        return documents;
    case RecordKind::Event:
        return years == Years::FourDigits ? eventsWithWholeYears : events;
    case RecordKind::Organization:
        break;
    }
    return organizations;
}
