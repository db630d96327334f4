// SPDX-License-Identifier: GPL-3.0-or-later

#include "SummarySheet.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype lineWidth = 78;

QString wrapped(const QString& text)
{
    QString result;
    QString line;
    for (const QString& word : text.simplified().split(u' ')) {
        if (!line.isEmpty() && line.size() + 1 + word.size() > lineWidth) {
            result += line + u'\n';
            line.clear();
        }
        line += line.isEmpty() ? word : u' ' + word;
    }
    return result + line + u'\n';
}

QString underlined(const QString& heading, QChar stroke)
{
    const QString text = wrapped(heading);
    const qsizetype width = text.contains(u'\n') ? qMin(heading.size(), lineWidth) : heading.size();
    return text + QString(width, stroke) + u'\n';
}

QString tableRow(const QStringList& cells, const QString& tag)
{
    QString html = u"<tr>"_s;
    for (const QString& cell : cells)
        html += u"<%1>%2</%1>"_s.arg(tag, cell.toHtmlEscaped());
    return html + u"</tr>\n"_s;
}

/// A text for RTF: its three special characters escaped, all beyond ASCII as a signed UTF-16 number.
QByteArray rtfText(const QString& text)
{
    QByteArray rtf;
    for (const QChar character : text) {
        const ushort code = character.unicode();
        if (code > 126)
            rtf += "\\u" + QByteArray::number(static_cast<short>(code)) + '?';
        else if (code == '\\' || code == '{' || code == '}')
            rtf.append('\\').append(static_cast<char>(code));
        else
            rtf += static_cast<char>(code);
    }
    return rtf;
}

/// A paragraph of RTF; `size` is in half points.
QByteArray rtfParagraph(const QString& text, const char* style, int size)
{
    return QByteArray("{\\pard\\sa120") + style + "\\fs" + QByteArray::number(size) + ' ' + rtfText(text) +
           "\\par}\n";
}

QString csvLine(const QStringList& cells)
{
    QStringList quoted;
    for (QString cell : cells) {
        if (cell.contains(u',') || cell.contains(u'"')) cell = u'"' + cell.replace(u"\""_s, u"\"\""_s) + u'"';
        quoted.append(cell);
    }
    return quoted.join(u',') + u"\r\n"_s;
}

} // namespace

QString sampleNotice()
{
    return u"Summary sheet prepared for the Orvik sample collection"_s;
}

QString sheetAsText(const SummarySheet& sheet)
{
    QString text = underlined(sheet.title, u'=') + u'\n' + wrapped(sheet.notice) + u'\n';
    for (const auto& [label, value] : sheet.data)
        text += wrapped(label + u": "_s + value);
    for (const SummarySheet::Section& section : sheet.sections) {
        text += u'\n' + underlined(section.heading, u'-');
        for (const QString& paragraph : section.paragraphs)
            text += u'\n' + wrapped(paragraph);
    }
    if (sheet.figures != nullptr) {
        text += u'\n' + underlined(sheet.figures->title, u'-') + u'\n';
        for (const FigureTable::Row& row : sheet.figures->rows)
            text += wrapped(row.cells.first(3).join(u", "_s));
        text += u'\n' + wrapped(u"Source: "_s + sheet.figures->source);
    }
    return text;
}

QString sheetAsHtmlBody(const SummarySheet& sheet, const QString& picture)
{
    QString html = u"<h1>%1</h1>\n<p class=\"notice\"><i>%2</i></p>\n"_s.arg(sheet.title.toHtmlEscaped(),
                                                                             sheet.notice.toHtmlEscaped());
    html += u"<table cellpadding=\"3\">\n"_s;
    for (const auto& [label, value] : sheet.data)
        html +=
            u"<tr><td><b>%1</b></td><td>%2</td></tr>\n"_s.arg(label.toHtmlEscaped(), value.toHtmlEscaped());
    html += u"</table>\n"_s;
    for (const SummarySheet::Section& section : sheet.sections) {
        html += u"<h2>%1</h2>\n"_s.arg(section.heading.toHtmlEscaped());
        for (const QString& paragraph : section.paragraphs)
            html += u"<p>%1</p>\n"_s.arg(paragraph.toHtmlEscaped());
    }
    if (sheet.figures != nullptr) {
        html += u"<h2>%1</h2>\n"_s.arg(sheet.figures->title.toHtmlEscaped());
        if (!picture.isEmpty())
            html += u"<p><img src=\"%1\" alt=\"%2\" width=\"460\"></p>\n"_s.arg(
                picture, sheet.figures->title.toHtmlEscaped());
        html += u"<table border=\"1\" style=\"border-collapse: collapse\" cellpadding=\"2\">\n"_s;
        html += tableRow(sheet.figures->columns, u"th"_s);
        for (const FigureTable::Row& row : sheet.figures->rows)
            html += tableRow(row.cells, u"td"_s);
        html += u"</table>\n<p>Source: %1</p>\n"_s.arg(sheet.figures->source.toHtmlEscaped());
    }
    return html;
}

QByteArray sheetAsRtf(const SummarySheet& sheet)
{
    QByteArray rtf = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fswiss Helvetica;}}\n";
    rtf += rtfParagraph(sheet.title, "\\b", 36) + rtfParagraph(sheet.notice, "\\i", 20);
    for (const auto& [label, value] : sheet.data)
        rtf += rtfParagraph(label + u": "_s + value, "", 20);
    for (const SummarySheet::Section& section : sheet.sections) {
        rtf += rtfParagraph(section.heading, "\\sb240\\b", 26);
        for (const QString& paragraph : section.paragraphs)
            rtf += rtfParagraph(paragraph, "", 20);
    }
    return rtf + "}\n";
}

QString figuresAsCsv(const FigureTable& figures)
{
    QString csv = u"# %1\r\n# %2\r\n# Source: %3\r\n"_s.arg(figures.title, sampleNotice(), figures.source);
    csv += csvLine(figures.columns);
    for (const FigureTable::Row& row : figures.rows)
        csv += csvLine(row.cells);
    return csv;
}
