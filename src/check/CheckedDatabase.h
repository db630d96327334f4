// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/DatabaseSession.h"
#include "files/FileBlocks.h"

#include <QString>
#include <QTemporaryDir>

#include <optional>
#include <utility>
#include <vector>

/// The database of a collection as a check reads it, without changing anything: the file itself or, if SQLite
/// would have to write beside it before it can read, a copy that goes with the object.
class CheckedDatabase
{
public:
    explicit CheckedDatabase(QString file) : m_file(std::move(file)) {}

    /// Does the next step of what has to be done before the file is read. Returns false once it can be.
    /// Throws Error.
    bool prepare();

    /// The file to read; of a database that is not prepared yet, the file itself.
    [[nodiscard]] const QString& path() const { return m_copy.isEmpty() ? m_file : m_copy; }

    /// The session with it, which can only read. Throws Error if it cannot be opened.
    [[nodiscard]] DatabaseSession& session();

private:
    void beginCopy(const QString& beside);
    void finishCopy() const;

    QString m_file;
    QString m_copy; ///< empty if the file itself is read
    bool m_isBegun = false;
    std::optional<QTemporaryDir> m_folder;
    std::vector<std::pair<QString, QString>> m_toCopy; ///< the next one last
    std::optional<BlockCopy> m_copying;
    DatabaseSession m_session;
};
