// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportFile.h"
#include "export/ExportFormat.h"
#include "export/Reference.h"

using namespace Qt::StringLiterals;

namespace {

const char* codeOf(ReferenceType type)
{
    switch (type) {
    case ReferenceType::Article:
        return "JOUR";
    case ReferenceType::Report:
        return "RPRT";
    case ReferenceType::Book:
        return "BOOK";
    case ReferenceType::Map:
        return "MAP";
    case ReferenceType::WebPage:
        return "ELEC";
    case ReferenceType::Law:
        return "STAT";
    case ReferenceType::Other:
        break;
    }
    return "GEN";
}

/// A value is one line: what another line held would be taken for the next tag. Readers know more line ends
/// than two.
QString folded(QString value)
{
    constexpr char16_t nextLine = 0x85;
    for (QChar& character : value) {
        const bool isLineEnd = character == u'\n' || character == nextLine ||
                               character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
        if (isLineEnd) character = u' ';
    }
    return value.trimmed();
}

/// `YYYY/MM/DD/other`, of which any part may be empty.
QString dateOf(const Reference& reference)
{
    if (reference.date.isEmpty()) return {};
    if (reference.year == 0) return u"///"_s + reference.date;
    const auto part = [](int number, int width) {
        return number == 0 ? QString() : u"%1"_s.arg(number, width, 10, QChar(u'0'));
    };
    return u"%1/%2/%3/"_s.arg(part(reference.year, 4), part(reference.month, 2), part(reference.day, 2));
}

/// References as RIS, in UTF-8: a tag of two characters and a value in each line.
class RisWriter final : public RecordWriter
{
public:
    RisWriter(const ExportOrder& order, ExportFile& file) : m_reader(order.fields), m_text(file.text()) {}

    void add(const ExportedRecord& record) override
    {
        const Reference reference = m_reader.read(record);
        addLine("TY", QLatin1StringView(codeOf(reference.type)));
        addLine("ID", QString::number(reference.identifier));
        addLine("TI", reference.title);
        for (const ReferenceAuthor& each : reference.authors)
            addLine("AU", each.name);
        if (reference.year != 0) addLine("PY", u"%1"_s.arg(reference.year, 4, 10, QChar(u'0')));
        addLine("DA", dateOf(reference));
        addLine("T2", reference.publication);
        addLine("VL", reference.volume);
        addLine("IS", reference.number);
        addLine("SP", reference.firstPage);
        addLine("EP", reference.lastPage);
        addLine("PB", reference.organization);
        addLine("UR", reference.url);
        addLine("L1", reference.file);
        for (const QString& each : reference.keywords)
            addLine("KW", each);
        addLine("AB", reference.description);
        addLine("N1", reference.notes);
        m_text += "ER  - \r\n\r\n";
    }

    bool finish() override { return false; }

private:
    void addLine(const char* tag, const QString& value)
    {
        const QString line = folded(value);
        if (line.isEmpty()) return;
        m_text += tag;
        m_text += "  - " + line.toStdString() + "\r\n";
    }

    ReferenceReader m_reader;
    std::string& m_text;
};

} // namespace

ExportFormat risFormat()
{
    return {.name = u"ris"_s,
            .title = QT_TRANSLATE_NOOP("Export", "References (RIS)"),
            .remark =
                QT_TRANSLATE_NOOP("Export", "For programs that keep references and cite them in a paper."),
            .ending = u".ris"_s,
            .kind = RecordKind::Document,
            .begin = [](const ExportOrder& order, ExportFile& file) -> std::unique_ptr<RecordWriter> {
                return std::make_unique<RisWriter>(order, file);
            }};
}
