// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "browse/list/RecordList.h"
#include "files/FolderNames.h"

#include <QString>

#include <optional>
#include <vector>

class DatabaseSession;

/// The icon of each row of a list. A row is looked up once, when it is first painted; a later change of its
/// file or its chart shows when the list is shown again.
class RowIconKeys
{
public:
    /// `documentsFolder` is a path of the file system. The session must outlive the object.
    RowIconKeys(DatabaseSession& session, QString documentsFolder)
        : m_session(session), m_documentsFolder(std::move(documentsFolder))
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
    QString m_documentsFolder;
    std::optional<FolderNames> m_documents;
    std::vector<QString> m_keys;
};
