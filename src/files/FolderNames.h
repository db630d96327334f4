// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSet>
#include <QString>

/// The names of the files in one folder, read once, so that a list can tell for each of its rows whether a
/// file is there without a look at the disk for each. Links that lead out of the folder are no files of it.
class FolderNames
{
public:
    FolderNames() = default;

    /// A folder that cannot be read holds no names.
    explicit FolderNames(const QString& folder);

    [[nodiscard]] bool contains(const QString& fileName) const;

    /// A file's name such that two names that mean the same file are equal: letter case does not matter, and
    /// a web page may end in `.htm` or `.html`.
    [[nodiscard]] static QString comparable(const QString& fileName);

private:
    QSet<QString> m_names;
};
