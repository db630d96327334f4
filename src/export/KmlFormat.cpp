// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/DatabaseSession.h"
#include "data/ListEntry.h"
#include "export/ExportFile.h"
#include "export/ExportFormat.h"
#include "export/PlainText.h"

#include <QLocale>
#include <QXmlStreamWriter>

#include <cmath>
#include <unordered_map>

using namespace Qt::StringLiterals;

namespace {

/// The organizations as places of a map, each with a text to read and with all its fields. One without a
/// position is a place without a point.
class KmlWriter final : public RecordWriter
{
public:
    KmlWriter(const ExportOrder& order, ExportFile& file)
        : m_fields(order.fields), m_table(order.kind, order.fields, FieldChoice::All), m_text(file.text())
    {
        readPoints(order.session);
        for (const char* member : {"Address1", "Address2", "Address3", "City", "State", "Zip", "Telephone",
                                   "Website", "OrganizationTypeID", "FunctionID", "Notes"})
            m_described.push_back(fieldNamed(m_fields, QString::fromLatin1(member)));
        QByteArray head;
        QXmlStreamWriter xml(&head);
        xml.writeStartDocument();
        xml.writeStartElement(u"kml"_s);
        xml.writeDefaultNamespace(u"http://www.opengis.net/kml/2.2"_s);
        xml.writeStartElement(u"Document"_s);
        xml.writeTextElement(u"name"_s, plainText(order.options.caption.toStdString()));
        append(head);
    }

    void add(const ExportedRecord& record) override
    {
        QByteArray placemark;
        QXmlStreamWriter xml(&placemark);
        xml.writeStartElement(u"Placemark"_s);
        if (m_name) xml.writeTextElement(u"name"_s, plainText(record.values[*m_name].text));
        const QString described = description(record);
        if (!described.isEmpty()) xml.writeTextElement(u"description"_s, described);
        addFields(record, xml);
        if (const auto point = m_points.find(record.identifier); point != m_points.end()) {
            xml.writeStartElement(u"Point"_s);
            xml.writeTextElement(u"coordinates"_s, coordinate(point->second.longitude) + u',' +
                                                       coordinate(point->second.latitude));
            xml.writeEndElement();
        }
        xml.writeEndElement();
        append(placemark);
    }

    bool finish() override
    {
        m_text += "</Document>\n</kml>\n";
        return false;
    }

private:
    struct Point
    {
        double longitude = 0; ///< degrees, -180 to 180
        double latitude = 0;
    };

    /// All positions at once: looked up for some records at a time, the known cities would be searched anew
    /// each time.
    void readPoints(DatabaseSession& session)
    {
        RecordSet rows = session.read(u"SELECT DISTINCT Organization.OrganizationID, Lat, Lon "
                                      "FROM Q_Organization WHERE Lat IS NOT NULL AND Lon IS NOT NULL"_s);
        while (rows.next()) {
            const double latitude = rows.real(1);
            const double longitude = rows.real(2);
            // as on the map, a position that is not on earth is none
            if (std::abs(latitude) > 90 || std::abs(longitude) > 360) continue;
            m_points.emplace(rows.integer(0), Point{std::remainder(longitude, 360), latitude});
        }
    }

    static QString coordinate(double degrees)
    {
        return QString::number(degrees, 'f', QLocale::FloatingPointShortest);
    }

    /// As HTML, for which programs take it.
    [[nodiscard]] QString description(const ExportedRecord& record) const
    {
        QStringList lines;
        for (const std::optional<std::size_t>& field : m_described) {
            const QString text = field ? plainText(record.values[*field].text) : QString();
            if (text.isEmpty() || text == ListEntry::none().display) continue;
            lines << u"<b>%1:</b> "_s.arg(m_fields[*field].field.caption.toHtmlEscaped()) +
                         text.toHtmlEscaped().replace(u'\n', u"<br>"_s);
        }
        return lines.join(u"<br>"_s);
    }

    void addFields(const ExportedRecord& record, QXmlStreamWriter& xml)
    {
        xml.writeStartElement(u"ExtendedData"_s);
        for (std::size_t column = 0; column < m_table.count(); ++column) {
            m_cell.clear();
            m_table.appendText(record, column, m_cell);
            if (m_cell.empty()) continue;
            const ExportField* field = m_table.field(column);
            xml.writeStartElement(u"Data"_s);
            xml.writeAttribute(u"name"_s, field == nullptr ? recordNames(RecordKind::Organization).key
                                                           : plainText(field->member().toStdString()));
            xml.writeTextElement(u"displayName"_s, plainText(m_table.title(column).toStdString()));
            xml.writeTextElement(u"value"_s, plainText(m_cell));
            xml.writeEndElement();
        }
        xml.writeEndElement();
    }

    void append(const QByteArray& xml)
    {
        m_text.append(xml.constData(), static_cast<std::size_t>(xml.size()));
        m_text += '\n';
    }

    const std::vector<ExportField>& m_fields;
    ExportTable m_table;
    std::string& m_text;
    std::unordered_map<qint64, Point> m_points; ///< by organization
    std::optional<std::size_t> m_name = fieldNamed(m_fields, u"OrganizationName");
    std::vector<std::optional<std::size_t>> m_described;
    std::string m_cell;
};

} // namespace

ExportFormat kmlFormat()
{
    return {.name = u"kml"_s,
            .title = QT_TRANSLATE_NOOP("Export", "Places on a map (KML)"),
            .remark = QT_TRANSLATE_NOOP("Export", "For globes and maps of other programs."),
            .ending = u".kml"_s,
            .kind = RecordKind::Organization,
            .begin = [](const ExportOrder& order, ExportFile& file) -> std::unique_ptr<RecordWriter> {
                return std::make_unique<KmlWriter>(order, file);
            }};
}
