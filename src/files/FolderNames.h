#pragma once

#include <QSet>
#include <QString>

/// The names of the files in one folder, read once, so that a list can tell for each of its rows whether a
/// file is there without a look at the disk for each. Letter case does not matter.
class FolderNames
{
public:
    FolderNames() = default;

    /// A folder that cannot be read holds no names.
    explicit FolderNames(const QString& folder);

    [[nodiscard]] bool contains(const QString& fileName) const;

private:
    QSet<QString> m_names;
};
