// SPDX-License-Identifier: GPL-3.0-or-later

#include "NameIndex.h"

using namespace Qt::StringLiterals;

NameIndex::NameIndex(QString kind) : m_kind(std::move(kind))
{
    m_identifiers.insert(u"None"_s, 1);
}

qint64 NameIndex::add(const QString& name, const SourceRow& row)
{
    if (m_identifiers.contains(name)) row.fail(u"the %1 \"%2\" is there already"_s.arg(m_kind, name));
    m_identifiers.insert(name, ++m_last);
    return m_last;
}

qint64 NameIndex::find(const QString& name, const SourceRow& row) const
{
    const auto found = m_identifiers.constFind(name);
    if (found == m_identifiers.constEnd()) row.fail(u"there is no %1 \"%2\""_s.arg(m_kind, name));
    return *found;
}

std::set<qint64> NameIndex::findAll(const QString& column, const SourceRow& row) const
{
    std::set<qint64> identifiers;
    for (const QString& name : row.list(column))
        identifiers.insert(find(name, row));
    return identifiers;
}
