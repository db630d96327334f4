#include "browse/list/RecordList.h"

#include "util/TextCompare.h"
#include "util/TypedDate.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RecordList)
};

constexpr int noSubType = 1;
constexpr std::string_view noState = "None";

namespace documentField {
constexpr std::size_t name = 0, author = 1, date = 2, fileType = 3, source = 4, location = 5;
}
namespace eventField {
constexpr std::size_t name = 0, startDate = 1, startTime = 2, endDate = 3, endTime = 4;
}
namespace organizationField {
constexpr std::size_t name = 0, type = 1, subType = 2, function = 3, city = 4, state = 5;
}

struct FieldNames
{
    QStringView identifier;
    QStringView number;
    QStringView flag;
    QStringView released;
    std::vector<QStringView> texts;
};

FieldNames fieldNames(ViewKind kind)
{
    switch (kind) {
    case ViewKind::Documents:
        return {u"DocumentID",
                u"FileTypeID",
                u"KeyDocument",
                u"ReleaseForm",
                {u"DocumentName", u"Author", u"DocumentDate", u"FileTypeName", u"OrganizationName",
                 u"FileLocation"}};
    case ViewKind::Events:
        return {u"EventID",
                {},
                u"KeyEvent",
                {},
                {u"EventName", u"StartDate", u"StartTime", u"EndDate", u"EndTime"}};
    case ViewKind::Organizations:
        return {u"OrganizationID",
                u"OrganizationSubTypeID",
                {},
                {},
                {u"OrganizationName", u"OrganizationTypeName", u"OrganizationSubTypeName", u"FunctionName",
                 u"City", u"State"}};
    case ViewKind::Home:
    case ViewKind::SearchResults:
        break;
    }
    return {};
}

void join(std::string& text, std::string_view separator, std::string_view more)
{
    if (!text.empty() && !more.empty()) text += separator;
    text += more;
}

} // namespace

const std::vector<ListColumn>& listColumns(ViewKind kind)
{
    static const std::vector<ListColumn> documents{
        {QT_TRANSLATE_NOOP("RecordList", "Title"), 6420}, {"", 300},
        {QT_TRANSLATE_NOOP("RecordList", "Author"), 0},   {QT_TRANSLATE_NOOP("RecordList", "Date"), 0},
        {QT_TRANSLATE_NOOP("RecordList", "File"), 0},     {QT_TRANSLATE_NOOP("RecordList", "Source"), 0}};
    static const std::vector<ListColumn> events{{QT_TRANSLATE_NOOP("RecordList", "Name"), 6450},
                                                {"", 300},
                                                {QT_TRANSLATE_NOOP("RecordList", "Date - Time"), 6450}};
    static const std::vector<ListColumn> organizations{{QT_TRANSLATE_NOOP("RecordList", "Name"), 4560},
                                                       {QT_TRANSLATE_NOOP("RecordList", "Type"), 1905},
                                                       {QT_TRANSLATE_NOOP("RecordList", "Function"), 2175},
                                                       {QT_TRANSLATE_NOOP("RecordList", "Location"), 1440}};
    static const std::vector<ListColumn> none;
    switch (kind) {
    case ViewKind::Documents:
        return documents;
    case ViewKind::Events:
        return events;
    case ViewKind::Organizations:
        return organizations;
    case ViewKind::Home:
    case ViewKind::SearchResults:
        break;
    }
    return none;
}

void RecordList::beginReading(const RecordSet& rows)
{
    const FieldNames names = fieldNames(m_kind);
    const auto optional = [&rows](QStringView name) { return name.isEmpty() ? -1 : rows.column(name); };
    m_identifierColumn = rows.column(names.identifier);
    m_numberColumn = optional(names.number);
    m_flagColumn = optional(names.flag);
    m_releasedColumn = optional(names.released);
    m_fieldCount = names.texts.size();
    for (std::size_t i = 0; i < m_fieldCount; ++i)
        m_fieldColumns[i] = rows.column(names.texts[i]);
}

void RecordList::append(const RecordSet& rows)
{
    Row row;
    row.identifier = rows.integer(m_identifierColumn);
    row.begin = m_texts.size();
    for (std::size_t i = 0; i < m_fieldCount; ++i) {
        const std::string_view text = rows.held(m_fieldColumns[i]);
        m_texts += text;
        row.lengths[i] = static_cast<std::uint32_t>(text.size());
    }
    if (m_numberColumn >= 0) row.number = static_cast<std::int32_t>(rows.integer(m_numberColumn));
    if (m_flagColumn >= 0) row.flag = rows.integer(m_flagColumn) != 0;
    if (m_releasedColumn >= 0) row.released = rows.integer(m_releasedColumn) != 0;
    m_rows.push_back(row);
}

std::string_view RecordList::field(const Row& row, std::size_t index) const
{
    std::size_t begin = row.begin;
    for (std::size_t i = 0; i < index; ++i)
        begin += row.lengths[i];
    return std::string_view(m_texts).substr(begin, row.lengths[index]);
}

EventTimes RecordList::times(const Row& row) const
{
    return {field(row, eventField::startDate), field(row, eventField::startTime),
            field(row, eventField::endDate), field(row, eventField::endTime)};
}

std::string RecordList::utf8(const Row& row, int column) const
{
    if (m_kind == ViewKind::Documents) {
        static constexpr std::array fields{documentField::name,     documentField::name,
                                           documentField::author,   documentField::date,
                                           documentField::fileType, documentField::source};
        return std::string(field(row, fields.at(static_cast<std::size_t>(column))));
    }
    if (m_kind == ViewKind::Events || column == 0) return std::string(field(row, eventField::name));
    std::string text;
    if (column == 1) {
        text = field(row, organizationField::type);
        if (row.number > noSubType) join(text, " - ", field(row, organizationField::subType));
    } else if (column == 2) {
        text = field(row, organizationField::function);
    } else {
        text = field(row, organizationField::city);
        const std::string_view state = field(row, organizationField::state);
        if (state != noState) join(text, ", ", state);
    }
    return text;
}

QString RecordList::text(std::size_t row, int column) const
{
    const Row& found = m_rows[row];
    const bool marksKeys = m_kind != ViewKind::Organizations && column == 1;
    if (marksKeys) return found.flag ? QStringLiteral("1") : QString();
    if (m_kind == ViewKind::Events && column == 2) return times(found).shortText();
    return QString::fromStdString(utf8(found, column));
}

QString RecordList::toolTip(std::size_t row, int column) const
{
    const Row& found = m_rows[row];
    if (m_kind == ViewKind::Events && column == 2) return times(found).longText();
    if (m_kind == ViewKind::Documents && column == 1)
        return found.flag ? Texts::tr("Key document") : QString();
    if (m_kind == ViewKind::Events && column == 1) return found.flag ? Texts::tr("Key event") : QString();
    return text(row, column);
}

QString RecordList::fileLocation(std::size_t row) const
{
    if (m_kind != ViewKind::Documents) return {};
    const std::string_view name = field(m_rows[row], documentField::location);
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

QString RecordList::documentIcon(std::size_t row, bool isInFolder) const
{
    const Row& found = m_rows[row];
    QString key = u'd' + QString::number(found.number);
    if (isInFolder) return key;
    return key + (found.released ? QStringLiteral("cd") : QStringLiteral("ng"));
}

/// The order of each row's date, with what is no date after all dates.
std::vector<qint64> RecordList::dateOrders() const
{
    std::vector<qint64> orders;
    orders.reserve(m_rows.size());
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        orders.push_back(typedDateOrder(text(row, 3)).value_or(std::numeric_limits<int>::max()));
    }
    return orders;
}

std::string_view RecordList::sortText(const Row& row, int column, std::string& scratch) const
{
    if (m_kind == ViewKind::Events && column == 2) {
        // the held forms sort as they stand once each has its full width
        static constexpr std::array<std::size_t, 4> widths{10, 8, 10, 8};
        scratch.clear();
        for (std::size_t i = 0; i < widths.size(); ++i) {
            scratch += field(row, eventField::startDate + i);
            scratch.resize(std::accumulate(widths.begin(),
                                           widths.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                                           std::size_t{0}),
                           ' ');
        }
        return scratch;
    }
    scratch = utf8(row, column);
    return scratch;
}

std::vector<std::uint32_t> RecordList::sorted(int column, bool descending) const
{
    std::vector<std::uint32_t> order(m_rows.size());
    std::iota(order.begin(), order.end(), 0U);
    const auto sortBy = [&order, descending](auto&& less) {
        std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
            return descending ? less(b, a) : less(a, b);
        });
    };
    if (column == 1 && m_kind != ViewKind::Organizations) {
        sortBy([this](std::uint32_t a, std::uint32_t b) { return m_rows[a].flag > m_rows[b].flag; });
        return order;
    }
    std::vector<std::string> texts;
    texts.reserve(m_rows.size());
    std::string scratch;
    for (const Row& row : m_rows)
        texts.emplace_back(sortText(row, column, scratch));
    if (m_kind == ViewKind::Documents && column == 3) {
        const auto dates = dateOrders();
        sortBy([&](std::uint32_t a, std::uint32_t b) {
            return dates[a] != dates[b] ? dates[a] < dates[b] : TextCompare::compare(texts[a], texts[b]) < 0;
        });
    } else {
        sortBy(
            [&](std::uint32_t a, std::uint32_t b) { return TextCompare::compare(texts[a], texts[b]) < 0; });
    }
    return order;
}

QString RecordList::countText(ViewKind kind, std::size_t count)
{
    const int number = static_cast<int>(count);
    switch (kind) {
    case ViewKind::Documents:
        return number == 1 ? Texts::tr("Displaying 1 Document")
                           : Texts::tr("Displaying %n Documents", nullptr, number);
    case ViewKind::Events:
        return number == 1 ? Texts::tr("Displaying 1 Event")
                           : Texts::tr("Displaying %n Events", nullptr, number);
    case ViewKind::Organizations:
        return number == 1 ? Texts::tr("Displaying 1 Organization")
                           : Texts::tr("Displaying %n Organizations", nullptr, number);
    case ViewKind::Home:
    case ViewKind::SearchResults:
        break;
    }
    return {};
}
