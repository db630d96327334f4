// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "browse/list/RecordList.h"
#include "files/FolderNames.h"

#include <QString>

#include <optional>
#include <vector>

class DatabaseSession;
class ProgramFolder;

/// The icon of each row of a list. A row is looked up once, when it is first painted; a later change of its
/// file or its chart shows when the list is shown again.
class RowIconKeys
{
public:
    /// `folder` is that of the session's database. Both must outlive the object.
    RowIconKeys(DatabaseSession& session, const ProgramFolder& folder) : m_session(session), m_folder(folder)
    {
    }

    /// Forgets all rows, before another list is shown.
    void clear();

    QString key(const RecordList& list, std::size_t row);

private:
    QString look(const RecordList& list, std::size_t row);
    [[nodiscard]] bool isInFolder(const QString& fileName) const;
    [[nodiscard]] bool hasChart(qint64 organization);

    DatabaseSession& m_session;
    const ProgramFolder& m_folder;
    std::optional<FolderNames> m_documents;
    std::vector<QString> m_keys;
};
