// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportFile.h"
#include "export/ExportFormat.h"
#include "export/ExportTexts.h"
#include "export/HtmlText.h"
#include "export/RecordSheet.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* style = R"css(
:root { color-scheme: light dark; }
body { font: 1em/1.45 system-ui, sans-serif; max-width: 60em; margin: 2em auto; padding: 0 1em; }
h1 { font-size: 1.6em; line-height: 1.2; margin: 0 0 0.7em; }
h2 { font-size: 1.2em; line-height: 1.3; margin: 0 0 0.5em; }
h1, h2, th, td { unicode-bidi: plaintext; overflow-wrap: anywhere; }
img { display: block; max-width: 100%; margin: 0 0 1.5em; }
table { border-collapse: collapse; width: 100%; }
th, td { border-bottom: 1px solid rgba(128, 128, 128, 0.4); padding: 0.3em 0.6em; text-align: left; vertical-align: top; }
td { white-space: pre-wrap; }
.list th, .list td { overflow-wrap: break-word; }
.list th:first-child { width: 35%; }
.list th, :target h2 { background: rgba(128, 128, 128, 0.15); }
.fields th { width: 11em; font-weight: normal; opacity: 0.75; }
.sheet { margin: 2.5em 0; }
.back { margin: 0.5em 0; font-size: 0.9em; }
a { text-decoration: none; }
a:hover, a:focus { text-decoration: underline; }
@media print {
  body { font-size: 10pt; max-width: none; margin: 0; padding: 0; }
  a { color: inherit; }
  .back { display: none; }
  thead { display: table-header-group; }
  tr, img { break-inside: avoid; }
  h2 { break-after: avoid; }
  .sheets { break-before: page; }
  .sheet { break-inside: avoid; margin: 0 0 2em; }
}
@page { margin: 1.8cm; }
)css";

/// One page that needs nothing else: the picture, the list, and a sheet for each record, to which its name in
/// the list leads.
class HtmlWriter final : public RecordWriter
{
public:
    HtmlWriter(const ExportOrder& order, ExportFile& file)
        : m_order(order), m_list(order.kind, order.fields, FieldChoice::OfList), m_html(file.text())
    {
        const QString& caption = order.options.caption;
        beginPage((caption.isEmpty() ? titleOf(order.kind) : caption).toStdString());
        if (!order.options.picture.isEmpty()) addPicture();
    }

    [[nodiscard]] int passes() const override { return 2; }

    void beginPass(int pass) override
    {
        m_isList = pass == 0;
        if (m_isList) {
            beginList();
        } else {
            endList();
            m_html += "<div class=\"sheets\">\n";
        }
    }

    void add(const ExportedRecord& record) override { m_isList ? addRow(record) : addSheet(record); }

    bool finish() override
    {
        m_html += "</div>\n</body>\n</html>\n";
        return false;
    }

private:
    void beginPage(const std::string& title)
    {
        m_html += "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\"/>\n"
                  "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
                  "<meta name=\"generator\" content=\"Orvik Database\"/>\n<title>";
        HtmlText::append(title, m_html);
        m_html += "</title>\n<style>";
        m_html += style;
        m_html += "</style>\n</head>\n<body>\n<h1>";
        HtmlText::appendLines(title, m_html);
        m_html += "</h1>\n";
    }

    void addPicture()
    {
        m_html += "<img alt=\"";
        HtmlText::append(ExportTexts::tr("The graphic of this view").toStdString(), m_html);
        m_html += "\" width=\"" + std::to_string(m_order.options.pictureWidth);
        m_html += "\" src=\"data:image/png;base64,";
        m_html += m_order.options.picture.toBase64().toStdString();
        m_html += "\"/>\n";
    }

    void beginList()
    {
        m_html += "<table class=\"list\" id=\"list\">\n<thead><tr>";
        for (std::size_t column = 0; column < m_list.count(); ++column) {
            m_html += "<th>";
            HtmlText::append(m_list.title(column).toStdString(), m_html);
            m_html += "</th>";
        }
        m_html += "</tr></thead>\n<tbody>\n";
    }

    /// The first column has the name.
    void addRow(const ExportedRecord& record)
    {
        ++m_count;
        m_html += "<tr>";
        for (std::size_t column = 0; column < m_list.count(); ++column) {
            m_cell.clear();
            m_list.appendText(record, column, m_cell);
            m_html += "<td>";
            if (column > 0) {
                HtmlText::appendLines(m_cell, m_html);
            } else {
                if (m_cell.empty()) m_cell = FieldTexts::withoutName(record.identifier).toStdString();
                m_html += "<a href=\"#" + sheetAnchor(record.identifier) + "\">";
                HtmlText::appendLines(m_cell, m_html);
                m_html += "</a>";
            }
            m_html += "</td>";
        }
        m_html += "</tr>\n";
    }

    void endList()
    {
        m_html += "</tbody>\n</table>\n<p class=\"count\">";
        const QString count = titleOf(m_order.kind) + u": "_s + QLocale().toString(m_count);
        HtmlText::append(count.toStdString(), m_html);
        m_html += "</p>\n";
    }

    static std::string sheetAnchor(qint64 identifier) { return "record-" + std::to_string(identifier); }

    void addSheet(const ExportedRecord& record)
    {
        m_html += "<div class=\"sheet\" id=\"" + sheetAnchor(record.identifier) + "\">\n";
        appendRecordSheet(m_order.kind, m_order.fields, record, m_html);
        m_html += "<p class=\"back\"><a href=\"#list\">";
        HtmlText::append(ExportTexts::tr("Back to the list").toStdString(), m_html);
        m_html += "</a></p>\n</div>\n";
    }

    const ExportOrder& m_order;
    ExportTable m_list;
    std::string& m_html;
    std::string m_cell;
    qint64 m_count = 0;
    bool m_isList = true;
};

} // namespace

ExportFormat htmlFormat()
{
    return {.name = u"html"_s,
            .title = QT_TRANSLATE_NOOP("Export", "Page with a sheet for each record (HTML)"),
            .remark = QT_TRANSLATE_NOOP(
                "Export", "To read, print or pass on; each name in the list leads to its sheet."),
            .ending = u".html"_s,
            .hasPicture = true,
            .begin = [](const ExportOrder& order, ExportFile& file) -> std::unique_ptr<RecordWriter> {
                return std::make_unique<HtmlWriter>(order, file);
            }};
}
