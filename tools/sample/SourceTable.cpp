// SPDX-License-Identifier: GPL-3.0-or-later

#include "SourceTable.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {

QString readUtf8(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw SourceError(u"%1: %2"_s.arg(path, file.errorString()));
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    QString text = decoder.decode(file.readAll());
    if (decoder.hasError()) throw SourceError(u"%1: the file is not UTF-8"_s.arg(path));
    return text;
}

} // namespace

SourceRow::SourceRow(std::shared_ptr<const SourceHeader> header, int line, QStringList fields)
    : m_header(std::move(header)), m_line(line), m_fields(std::move(fields))
{
}

QString SourceRow::text(const QString& column) const
{
    const qsizetype index = m_header->columns.indexOf(column);
    if (index < 0) fail(u"the file has no column %1"_s.arg(column));
    return QString(m_fields.at(index)).replace(u"\\n"_s, u"\n"_s);
}

QString SourceRow::requiredText(const QString& column) const
{
    QString value = text(column);
    if (value.isEmpty()) fail(u"%1 is empty"_s.arg(column));
    return value;
}

QStringList SourceRow::list(const QString& column) const
{
    const QString value = text(column);
    if (value.isEmpty()) return {};
    QStringList parts;
    for (const QString& part : value.split(u';')) {
        const QString name = part.trimmed();
        if (name.isEmpty()) fail(u"%1 has an empty part"_s.arg(column));
        if (parts.contains(name)) fail(u"%1 names %2 twice"_s.arg(column, name));
        parts.append(name);
    }
    return parts;
}

bool SourceRow::flag(const QString& column) const
{
    const QString value = text(column);
    if (value != u"yes"_s && value != u"no"_s) fail(u"%1 must be yes or no, not \"%2\""_s.arg(column, value));
    return value == u"yes"_s;
}

std::optional<QDate> SourceRow::date(const QString& column) const
{
    const QString value = text(column);
    if (value.isEmpty()) return std::nullopt;
    const QDate date = QDate::fromString(value, u"yyyy-MM-dd"_s);
    if (!date.isValid()) fail(u"%1 is not a date: \"%2\""_s.arg(column, value));
    return date;
}

std::optional<QTime> SourceRow::time(const QString& column) const
{
    const QString value = text(column);
    if (value.isEmpty()) return std::nullopt;
    const QTime time = QTime::fromString(value, u"HH:mm"_s);
    if (!time.isValid()) fail(u"%1 is not a time: \"%2\""_s.arg(column, value));
    return time;
}

std::optional<double> SourceRow::number(const QString& column, double lowest, double highest) const
{
    const QString value = text(column);
    if (value.isEmpty()) return std::nullopt;
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber || !(number >= lowest && number <= highest))
        fail(u"%1 is not a number from %2 to %3: \"%4\""_s.arg(column).arg(lowest).arg(highest).arg(value));
    return number;
}

std::optional<qint64> SourceRow::count(const QString& column) const
{
    const QString value = text(column);
    if (value.isEmpty()) return std::nullopt;
    bool isNumber = false;
    const qint64 number = value.toLongLong(&isNumber);
    if (!isNumber || number < 0) fail(u"%1 is not a whole number: \"%2\""_s.arg(column, value));
    return number;
}

void SourceRow::fail(const QString& message) const
{
    throw SourceError(u"%1:%2: %3"_s.arg(m_header->file).arg(m_line).arg(message));
}

SourceTable::SourceTable(const QString& path, const QStringList& requiredColumns)
{
    QStringList lines = readUtf8(path).split(u'\n');
    auto header = std::make_shared<SourceHeader>();
    header->file = QFileInfo(path).fileName();
    header->columns = lines.takeFirst().split(u'\t');
    for (const QString& column : requiredColumns) {
        if (!header->columns.contains(column))
            throw SourceError(u"%1:1: the column %2 is missing"_s.arg(header->file, column));
    }
    m_header = header;

    int line = 1;
    for (const QString& text : lines) {
        ++line;
        if (text.isEmpty()) continue;
        const QStringList fields = text.split(u'\t');
        SourceRow row(m_header, line, fields);
        if (fields.size() != header->columns.size())
            row.fail(u"%1 fields instead of %2"_s.arg(fields.size()).arg(header->columns.size()));
        m_rows.push_back(std::move(row));
    }
}
