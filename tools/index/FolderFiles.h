// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

/// What stands in one folder, read once, so that a name is found without a look at the disk for each.
class FolderFiles
{
public:
    /// A folder that cannot be read holds nothing.
    explicit FolderFiles(const QString& folder);

    /// The path of what a record's name means: as `ProgramFolder::find` has it, but also of what is no file.
    /// std::nullopt if there is nothing, or a link that leads out of the folder.
    [[nodiscard]] std::optional<QString> find(const QString& name) const;

private:
    QString m_folder;
    QHash<QString, QStringList> m_names; ///< by what is comparable of them
};
