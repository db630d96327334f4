// SPDX-License-Identifier: GPL-3.0-or-later

#include "FileContent.h"

#include "PageText.h"
#include "TextDecoding.h"
#include "util/Error.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

bool endsWithAny(const QString& name, const QStringList& endings)
{
    return std::any_of(endings.begin(), endings.end(),
                       [&name](const QString& ending) { return name.endsWith(ending, Qt::CaseInsensitive); });
}

/// The encoding that a web page declares, or nothing.
QByteArray declaredEncoding(QByteArrayView page)
{
    static const QRegularExpression declaration(
        uR"((?:<meta[^>]*\scharset|<meta[^>]*;\s*charset|<\?xml[^>]*\sencoding)\s*=\s*["']?\s*([\w:.-]+))"_s,
        QRegularExpression::CaseInsensitiveOption);
    const auto beginning = page.first(std::min(page.size(), FileContent::beginningSize));
    return declaration.match(QString::fromLatin1(beginning)).captured(1).toLatin1();
}

} // namespace

FileContent::Kind FileContent::kindOf(QByteArrayView beginning, const QString& name)
{
    constexpr qsizetype pdfBeginning = 1024; // readers allow for something before it
    if (beginning.first(std::min(beginning.size(), pdfBeginning)).contains("%PDF-")) return Kind::Pdf;
    if (!TextDecoding::isText(beginning)) {
        return name.endsWith(u".pdf"_s, Qt::CaseInsensitive) ? Kind::Pdf : Kind::Other;
    }
    if (endsWithAny(name, {u".htm"_s, u".html"_s, u".xhtml"_s, u".shtml"_s})) return Kind::Page;
    const QString text = TextDecoding::decoded(beginning).trimmed();
    static const QRegularExpression page(uR"(^<!doctype\s+html|^<\?xml|<html[\s>]|<body[\s>])"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    return page.match(text).hasMatch() ? Kind::Page : Kind::Text;
}

QByteArray FileContent::pageTextOf(const QString& file, qint64 most)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) throw Error(EIO, source.errorString());
    const QByteArray content = source.read(most);
    return pageText(TextDecoding::decoded(content, declaredEncoding(content)));
}

QString FileContent::cleaned(QString text)
{
    constexpr QChar softHyphen(0x00ad);
    constexpr char16_t firstLigature = 0xfb00; // ff
    constexpr char16_t lastLigature = 0xfb06;  // st
    QString result;
    result.reserve(text.size());
    for (const QChar letter : std::as_const(text)) {
        if (letter == softHyphen) continue;
        if (letter.unicode() >= firstLigature && letter.unicode() <= lastLigature)
            result += letter.decomposition();
        else
            result += letter.category() == QChar::Other_Control ? QChar(u' ') : letter;
    }
    return result.simplified();
}
