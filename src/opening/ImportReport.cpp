// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/ImportReport.h"

#include "opening/OpeningTexts.h"

namespace {

constexpr qsizetype mostNamesListed = 12;

QString unescape(const QByteArray& field)
{
    QByteArray text;
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field[i] != '\\' || i + 1 == field.size()) {
            text += field[i];
            continue;
        }
        const char kind = field[++i];
        text += kind == 't' ? '\t' : kind == 'n' ? '\n' : kind == 'r' ? '\r' : kind;
    }
    return QString::fromUtf8(text);
}

/// What the converter is at, by its own word for it.
QString phaseText(const QString& phase)
{
    if (phase == QStringLiteral("reading")) return OpeningTexts::tr("Reading …");
    if (phase == QStringLiteral("copying")) return OpeningTexts::tr("Copying …");
    if (phase == QStringLiteral("indexing")) return OpeningTexts::tr("Indexing …");
    if (phase == QStringLiteral("verifying")) return OpeningTexts::tr("Verifying …");
    return phase;
}

QString listed(const QStringList& names)
{
    if (names.size() <= mostNamesListed) return names.join(QStringLiteral(", "));
    return OpeningTexts::tr("%1 and %n more", nullptr, static_cast<int>(names.size() - mostNamesListed))
        .arg(names.mid(0, mostNamesListed).join(QStringLiteral(", ")));
}

} // namespace

std::optional<ImportProgress> ImportReport::take(const QByteArray& line)
{
    QStringList fields;
    for (const QByteArray& field : line.split('\t'))
        fields << unescape(field);
    if (fields.size() < 2) return std::nullopt;
    const QString kind = fields.takeFirst();
    if (kind == QStringLiteral("summary")) {
        takeSummary(fields);
        return std::nullopt;
    }
    if (kind == QStringLiteral("phase")) {
        return ImportProgress{m_percent, phaseText(fields.front())};
    }
    if (kind != QStringLiteral("progress") || fields.size() < 4) return std::nullopt;
    m_percent = fields[0].toInt();
    if (fields[3].isEmpty()) return ImportProgress{m_percent, {}};
    return ImportProgress{
        m_percent, OpeningTexts::tr("Copying %1 (%2 of %3 rows) …").arg(fields[3], fields[1], fields[2])};
}

void ImportReport::takeSummary(const QStringList& fields)
{
    const auto field = [&fields](qsizetype index) { return fields.value(index); };
    const QString key = field(0);
    if (key == QStringLiteral("tables")) {
        m_tables = field(1);
    } else if (key == QStringLiteral("rows")) {
        m_rows = field(1);
    } else if (key == QStringLiteral("known")) {
        m_knownTables = field(1).toInt();
    } else if (key == QStringLiteral("unknown-table")) {
        m_unknown << field(1);
    } else if (key == QStringLiteral("unknown-column") || key == QStringLiteral("missing-column")) {
        (key.startsWith(u'u') ? m_unknown : m_missing) << field(1) + u'.' + field(2);
    } else if (key == QStringLiteral("missing-table")) {
        m_missing << field(1);
    } else if (key == QStringLiteral("linked-table")) {
        m_notes << OpeningTexts::tr("The rows of %1 are in another file and were not taken.").arg(field(1));
    } else if (key == QStringLiteral("hidden")) {
        m_hidden << OpeningTexts::tr("%1: %2 deleted, %3 without a status").arg(field(1), field(2), field(3));
    } else if (key == QStringLiteral("orphans")) {
        m_notes << OpeningTexts::tr("%1 rows of %2 name a %3 that does not exist.")
                       .arg(field(4), field(1), field(3));
    } else if (key == QStringLiteral("repeated")) {
        m_notes << OpeningTexts::tr("%1 rows of %2 with a repeated identifier are in %3.")
                       .arg(field(2), field(1), field(3));
    } else if (key == QStringLiteral("unfit")) {
        m_notes << OpeningTexts::tr("%1 values of %2.%3 are whole in %4.")
                       .arg(field(3), field(1), field(2), field(4));
    } else if (key == QStringLiteral("warning")) {
        m_notes << field(1);
    }
}

QString ImportReport::text() const
{
    QStringList lines;
    lines << OpeningTexts::tr("%1 tables with %2 rows were taken over and checked.").arg(m_tables, m_rows);
    if (m_knownTables == 0)
        lines << OpeningTexts::tr("None of them is a table of the program: its lists are empty.");
    if (!m_unknown.isEmpty())
        lines << OpeningTexts::tr("Unknown, taken over as they are: %1.").arg(listed(m_unknown));
    if (!m_missing.isEmpty()) lines << OpeningTexts::tr("Missing, made empty: %1.").arg(listed(m_missing));
    if (!m_hidden.isEmpty())
        lines << OpeningTexts::tr("Not shown in lists: %1.").arg(m_hidden.join(QStringLiteral("; ")));
    lines << m_notes.mid(0, mostNamesListed);
    if (m_notes.size() > mostNamesListed)
        lines << OpeningTexts::tr("… and %n more notes.", nullptr,
                                  static_cast<int>(m_notes.size() - mostNamesListed));
    return lines.join(u'\n');
}
