// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportFile.h"
#include "export/ExportFormat.h"
#include "export/JsonWriter.h"

using namespace Qt::StringLiterals;

namespace {

/// One document with an array of records. Fields are named as the columns of the file and links as its
/// tables; they hold what the file holds, dates and times in held form, with the names of keys and links.
class RecordsAsJson final : public RecordWriter
{
public:
    RecordsAsJson(const ExportOrder& order, ExportFile& file) : m_fields(order.fields), m_json(file.text())
    {
        const RecordNames names = recordNames(order.kind);
        for (std::size_t i = 0; i < m_fields.size(); ++i) {
            const RecordField& field = m_fields[i].field;
            if (!m_fields[i].hasLinks() && field.column == names.name) m_name = i;
            const bool isChosen =
                order.options.fields == FieldChoice::All || isOfList(order.kind, m_fields[i]);
            if (isChosen) (m_fields[i].hasLinks() ? m_links : m_values).push_back(i);
        }
        m_json.beginObject();
        m_json.member(u"kind", names.record.toLower() + u's');
        m_json.member(u"caption", order.options.caption);
        m_json.name(u"records");
        m_json.beginArray();
    }

    void add(const ExportedRecord& record) override
    {
        m_json.beginObject();
        m_json.member(u"id", record.identifier);
        m_json.member(u"name", std::string_view(record.values[m_name].text));
        m_json.name(u"fields");
        m_json.beginObject();
        for (const std::size_t field : m_values) {
            m_json.name(m_fields[field].member());
            writeValue(m_fields[field].field.form, record.values[field]);
        }
        m_json.endObject();
        m_json.name(u"links");
        m_json.beginObject();
        for (const std::size_t field : m_links) {
            m_json.name(m_fields[field].member());
            m_json.beginArray();
            for (const ExportedLink& link : record.values[field].links)
                writeNamed(link.key, link.name);
            m_json.endArray();
        }
        m_json.endObject();
        m_json.endObject();
    }

    bool finish() override
    {
        m_json.endArray();
        m_json.endObject();
        m_json.finish();
        return false;
    }

private:
    void writeNamed(qint64 key, std::string_view name)
    {
        m_json.beginObject();
        m_json.member(u"id", key);
        m_json.member(u"name", name);
        m_json.endObject();
    }

    void writeValue(FieldForm form, const ExportedValue& value)
    {
        if (form == FieldForm::Key) return writeNamed(value.whole, value.text);
        if (form == FieldForm::Flag) return m_json.value(value.real != 0);
        switch (value.type) {
        case ExportedValue::Type::Whole:
            return m_json.value(value.whole);
        case ExportedValue::Type::Real:
            return m_json.value(value.real);
        case ExportedValue::Type::Text:
            return m_json.value(std::string_view(value.text));
        case ExportedValue::Type::Missing:
            return m_json.value(Value());
        }
    }

    const std::vector<ExportField>& m_fields;
    JsonWriter m_json;
    std::size_t m_name = 0;
    std::vector<std::size_t> m_values; ///< the fields that hold no links
    std::vector<std::size_t> m_links;
};

} // namespace

ExportFormat jsonFormat()
{
    return {.name = u"json"_s,
            .title = QT_TRANSLATE_NOOP("Export", "Data for programs (JSON)"),
            .remark = QT_TRANSLATE_NOOP("Export", "For programs that you or others write."),
            .ending = u".json"_s,
            .hasChoiceOfFields = true,
            .begin = [](const ExportOrder& order, ExportFile& file) -> std::unique_ptr<RecordWriter> {
                return std::make_unique<RecordsAsJson>(order, file);
            }};
}
