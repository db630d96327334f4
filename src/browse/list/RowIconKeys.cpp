// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/RowIconKeys.h"

#include "data/DatabaseSession.h"
#include "files/ProgramFolder.h"
#include "util/Error.h"

void RowIconKeys::clear()
{
    m_keys.clear();
    m_documents.reset();
}

QString RowIconKeys::key(const RecordList& list, std::size_t row)
{
    if (m_keys.size() <= row) m_keys.resize(list.count());
    if (m_keys[row].isNull()) m_keys[row] = look(list, row);
    return m_keys[row];
}

QString RowIconKeys::look(const RecordList& list, std::size_t row)
{
    switch (list.kind()) {
    case RecordKind::Document:
        if (!m_documents) m_documents.emplace(m_folder.folderPath(ProgramFolders::documents));
        return list.documentIcon(row, isInFolder(list.fileLocation(row)));
    case RecordKind::Event:
        return QStringLiteral("Event");
    case RecordKind::Organization:
        break;
    }
    return hasChart(list.identifier(row)) ? QStringLiteral("Organization_cd")
                                          : QStringLiteral("Organization_wc");
}

/// Whether the command that opens the document would find its file in the documents folder.
bool RowIconKeys::isInFolder(const QString& fileName) const
{
    return ProgramFolder::isPlainName(fileName) && m_documents->contains(fileName);
}

bool RowIconKeys::hasChart(qint64 organization)
{
    try {
        const RecordTable profiles = m_session.readAll(
            QStringLiteral("SELECT ChartOption FROM OrganizationProfile WHERE OrganizationProfileID = ") +
            QString::number(organization));
        return profiles.count() == 1 && profiles.integer(0, u"ChartOption") != 0;
    } catch (const Error&) {
        // no message while the list is painted: its own statement reports what is wrong with the database
        return false;
    }
}
