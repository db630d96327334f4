// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/HtmlText.h"

#include <QString>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool staysAsItIs(char each)
{
    const auto byte = static_cast<unsigned char>(each);
    return byte >= ' ' && byte < 0x7F && byte != '&' && byte != '<' && byte != '>' && byte != '"';
}

bool isAllowed(char32_t each)
{
    constexpr char32_t lastOfPlane = 0xFFFE; // the last two of each plane are no characters
    if (each < U' ') return each == U'\t';
    return (each < 0x7F || each > 0x9F) && (each < 0xFDD0 || each > 0xFDEF) &&
           (each & lastOfPlane) != lastOfPlane;
}

QString valid(const QString& text)
{
    QString valid;
    for (const char32_t each : text.toUcs4())
        valid += QChar::fromUcs4(isAllowed(each) ? each : U'\uFFFD');
    return valid;
}

void appendWith(const QString& lineEnd, std::string_view utf8, std::string& html)
{
    if (std::all_of(utf8.begin(), utf8.end(), staysAsItIs)) {
        html += utf8;
        return;
    }
    QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    bool isFirst = true;
    for (const QString& line : text.split(u'\n')) {
        if (!isFirst) html += lineEnd.toStdString();
        html += valid(line).toHtmlEscaped().toStdString();
        isFirst = false;
    }
}

/// An empty address if the text is none.
QUrl addressOf(std::string_view utf8)
{
    constexpr std::size_t longest = 2000;
    if (utf8.size() > longest) return {};
    const QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())).trimmed();
    const bool isWeb = text.startsWith("http://"_L1, Qt::CaseInsensitive) ||
                       text.startsWith("https://"_L1, Qt::CaseInsensitive);
    const bool isBare = text.startsWith("www."_L1, Qt::CaseInsensitive);
    const bool isOneWord = std::none_of(text.begin(), text.end(), [](QChar each) { return each.isSpace(); });
    if ((!isWeb && !isBare) || !isOneWord) return {};
    const QUrl address(isBare ? u"http://"_s + text : text);
    return address.isValid() && !address.host().isEmpty() ? address : QUrl();
}

} // namespace

void HtmlText::append(std::string_view utf8, std::string& html)
{
    appendWith(u"\n"_s, utf8, html);
}

void HtmlText::appendLines(std::string_view utf8, std::string& html)
{
    appendWith(u"<br/>"_s, utf8, html);
}

void HtmlText::appendLinked(std::string_view utf8, std::string& html)
{
    const QUrl address = addressOf(utf8);
    if (address.isEmpty()) return appendLines(utf8, html);
    html += "<a href=\"";
    append(address.toEncoded().toStdString(), html);
    html += "\">";
    appendLines(utf8, html);
    html += "</a>";
}
