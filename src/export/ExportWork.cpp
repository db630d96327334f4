// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportWork.h"

#include "data/DatabaseSession.h"
#include "export/ExportTexts.h"

#include <QLocale>

#include <algorithm>
#include <unordered_set>

namespace {

/// The rows of a list may repeat a record.
std::vector<qint64> eachOnce(std::vector<qint64> identifiers)
{
    std::unordered_set<qint64> taken;
    std::erase_if(identifiers, [&taken](qint64 each) { return !taken.insert(each).second; });
    return identifiers;
}

} // namespace

ExportWork::ExportWork(DatabaseSession& session, RecordKind kind, std::vector<qint64> identifiers,
                       const ExportFormat& format, ExportOptions options, const QString& file)
    : m_reader(session, kind),
      m_identifiers(eachOnce(std::move(identifiers))),
      m_options(std::move(options)),
      m_file(std::make_unique<ExportFile>(file)),
      m_order{kind, m_reader.fields(), m_options, m_identifiers.size(), session},
      m_writer(format.begin(m_order, *m_file))
{
    m_writer->beginPass(0);
}

bool ExportWork::step()
{
    if (m_next == m_identifiers.size() && m_pass + 1 < m_writer->passes()) {
        m_writer->beginPass(++m_pass);
        m_next = 0;
        m_written = 0;
    }
    if (m_next == m_identifiers.size()) {
        if (m_writer->finish()) {
            m_file->passOn();
            return true;
        }
        m_writer.reset();
        m_file->finish();
        return false;
    }
    const std::size_t count = std::min(RecordReader::mostAtOnce, m_identifiers.size() - m_next);
    for (const ExportedRecord& record : m_reader.read(std::span(m_identifiers).subspan(m_next, count))) {
        m_writer->add(record);
        ++m_written;
    }
    m_next += count;
    m_file->passOn();
    return true;
}

bool ExportWork::undoStep()
{
    if (m_writer && m_writer->abandon()) return true;
    m_writer.reset();
    m_file.reset();
    return false;
}

QString ExportWork::title() const
{
    return ExportTexts::tr("Exporting");
}

QString ExportWork::text() const
{
    const QLocale locale;
    return ExportTexts::tr("Writing the records (%1 of %2) …")
        .arg(locale.toString(static_cast<qint64>(done())),
             locale.toString(static_cast<qint64>(m_identifiers.size())));
}

std::optional<int> ExportWork::percent() const
{
    return m_identifiers.empty() ? 100 : static_cast<int>(100 * done() / m_identifiers.size());
}

/// How many records are done; those that are handed over twice are half done after the first pass.
std::size_t ExportWork::done() const
{
    if (!m_writer) return m_identifiers.size();
    return (m_identifiers.size() * static_cast<std::size_t>(m_pass) + m_next) /
           static_cast<std::size_t>(m_writer->passes());
}

std::vector<qint64> ExportWork::every(DatabaseSession& session, RecordKind kind, const QString& statement)
{
    RecordSet rows = session.read(statement);
    const int key = rows.column(recordNames(kind).key);
    std::vector<qint64> identifiers;
    while (rows.next())
        identifiers.push_back(rows.integer(key));
    return identifiers;
}
