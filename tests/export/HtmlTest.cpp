// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportedCollection.h"
#include "support/OtherPrograms.h"

#include <QXmlStreamReader>

namespace {

/// What a reader of a page sees of it.
struct Page
{
    QString title;
    QString heading;
    QString count;
    QStringList list;               ///< the cells of each row, joined by ` | `
    QMap<QString, QString> sheets;  ///< the fields by the address of a sheet and their caption
    QMap<QString, QString> anchors; ///< the text there
    QMap<QString, QString> links;   ///< the text by the address
    QStringList pictures;
};

/// Reads a page element by element, which has to be well formed.
class PageReader
{
public:
    explicit PageReader(const QByteArray& html) : m_xml(html)
    {
        while (!m_xml.atEnd()) {
            const auto token = m_xml.readNext();
            if (token == QXmlStreamReader::StartElement) begin(m_xml.name().toString());
            if (token == QXmlStreamReader::Characters) m_text += m_xml.text();
            if (token == QXmlStreamReader::EndElement) end(m_xml.name().toString());
        }
        if (m_xml.hasError()) m_page.title = u"not well formed: "_s + m_xml.errorString();
    }

    [[nodiscard]] const Page& page() const { return m_page; }

private:
    void begin(const QString& element)
    {
        const QXmlStreamAttributes attributes = m_xml.attributes();
        if (element == u"br") return m_text.append(u'\n'), void();
        if (element == u"img")
            m_page.pictures << attributes.value(u"width"_s).toString()
                            << attributes.value(u"src"_s).toString();
        if (element == u"table") m_isList = attributes.value(u"class"_s) == u"list";
        if (element == u"tr") m_row.clear();
        if (attributes.hasAttribute(u"id"_s)) m_id = attributes.value(u"id"_s).toString();
        if (element == u"a") m_address = attributes.value(u"href"_s).toString();
        if (element != u"a") m_text.clear();
    }

    void end(const QString& element)
    {
        if (element == u"title") m_page.title = m_text;
        if (element == u"h1") m_page.heading = m_text;
        if (element == u"h2") m_page.anchors[m_id] = m_text;
        if (element == u"p" && m_page.count.isEmpty()) m_page.count = m_text;
        if (element == u"a") m_page.links[m_address] = m_text;
        if (element == u"td" || element == u"th") m_row << m_text;
        if (element == u"tr" && m_isList) m_page.list << m_row.join(u" | ");
        if (element == u"tr" && !m_isList) m_page.sheets[m_id + u' ' + m_row[0]] = m_row.mid(1).join(u" | ");
    }

    QXmlStreamReader m_xml;
    Page m_page;
    QString m_text;
    QString m_id;
    QString m_address;
    QStringList m_row;
    bool m_isList = false;
};

/// As a page can show it.
QString shown(QString text)
{
    for (const QChar lost : u"\0\x01\x0B\x0C\x1B\x1F\x7F\x85\uFFFE\uFFFF"_s)
        text.replace(lost, QChar::ReplacementCharacter);
    return text;
}

struct Expected
{
    const char* field;
    const char* value;
};

void expectFields(const Page& page, const std::vector<Expected>& fields)
{
    for (const Expected& each : fields)
        EXPECT_EQ(page.sheets.value(QString::fromUtf8(each.field), u"(not there)"_s),
                  QString::fromUtf8(each.value))
            << each.field;
}

} // namespace

TEST(Html, ShowsEveryTextOnAValidPage)
{
    ExportedCollection collection;
    ExportOptions options;
    options.caption = u"Search \"<b>\" \x01 & more"_s;
    options.picture = QByteArray::fromHex("89504E470D0A1A0A00FF3E");
    options.pictureWidth = 516;
    for (const RecordKind kind : recordKinds) {
        const QByteArray html = collection.exported("html", kind, options);
        EXPECT_EQ(runProgram(u"tidy"_s, {u"-e"_s, u"-q"_s, u"-utf8"_s}, html).errors, QByteArray());
        const Page page = PageReader(html).page();
        EXPECT_EQ(page.title, u"Search \"<b>\" \uFFFD & more"_s);
        EXPECT_EQ(page.heading, page.title);
        EXPECT_EQ(page.pictures,
                  (QStringList{u"516"_s, u"data:image/png;base64,"_s +
                                             QString::fromLatin1(options.picture.toBase64())}));
        const QString table = recordNames(kind).record;
        for (const qint64 identifier : collection.identifiers(kind)) {
            const QString key = QString::number(identifier);
            for (const TextField& each : textFields) {
                if (each.kind != kind) continue;
                const QString field = u"record-%1 "_s.arg(key) + QString::fromLatin1(each.caption);
                EXPECT_EQ(page.sheets.value(field),
                          shown(collection.held(kind, QString::fromLatin1(each.column), key)))
                    << field.toStdString();
            }
            QString name = shown(collection.held(kind, recordNames(kind).name, key));
            if (name.isEmpty()) name = u"No. "_s + key;
            EXPECT_EQ(page.anchors.value(u"record-"_s + key), name);
            EXPECT_EQ(page.links.value(u"#record-"_s + key), name);
        }
        EXPECT_EQ(page.count, u"%1s: %2"_s.arg(table).arg(page.anchors.size()));
        EXPECT_TRUE(page.links.contains(u"#list"_s) && html.contains("id=\"list\""));
    }
}

TEST(Html, ShowsFieldsAsTheirUserReadsThem)
{
    ExportedCollection collection;
    const Page events = PageReader(collection.exported("html", RecordKind::Event)).page();
    EXPECT_EQ(events.title, u"Events"_s);
    EXPECT_EQ(events.list.front(), u"Name | Key | Date - Time"_s);
    EXPECT_TRUE(events.list.contains(u"Flood, \"great\" | Yes | 09/11/2001 08:46 - 09/12/2001 23:59"_s));
    EXPECT_TRUE(events.pictures.isEmpty());
    expectFields(events, {{"record-2 Key event", "Yes"},
                          {"record-2 Start date", "09/11/2001"},
                          {"record-2 Venues", "Harbour\nCafé <Ünal>"},
                          {"record-2 Related organizations", "Fire & Rescue <Troy>\nTwo profiles"},
                          {"record-3 Start date", "02/30/2001"},
                          {"record-3 Key event", "(not there)"},
                          {"record-3 Functions", "(not there)"}});
    const Page documents = PageReader(collection.exported("html", RecordKind::Document)).page();
    expectFields(documents, {{"record-2 File type", "PDF"},
                             {"record-2 Related events", "Flood, \"great\"\nDates that are none"},
                             {"record-6 Source organization", "(not there)"}});
    const Page organizations = PageReader(collection.exported("html", RecordKind::Organization)).page();
    expectFields(organizations, {{"record-2 Jurisdictions", "County"}, {"record-3 Type", "No. 3"}});
    QStringList outside;
    for (const Page& page : {documents, organizations})
        for (const QString& address : page.links.keys())
            if (!address.startsWith(u'#')) outside << address;
    EXPECT_EQ(outside, (QStringList{u"http://example.org/%22%3Cb%3E"_s, u"https://example.org/a?b=1&c=2#d"_s,
                                    u"http://example.org"_s, u"http://www.example.org"_s}));
}
