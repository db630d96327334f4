// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// A file's path in program form (with `\` between folders), cut into its parts.
class FileStrings
{
public:
    /// Fills the parts. A path without an extension gets a file name that ends in a point.
    void CrackFileName(const QString& path);

    [[nodiscard]] const QString& path() const { return m_path; }
    [[nodiscard]] const QString& drive() const { return m_drive; }         ///< such as `C:\`, or empty
    [[nodiscard]] const QString& directory() const { return m_directory; } ///< up to and with the last `\`
    [[nodiscard]] const QString& baseName() const { return m_baseName; }
    [[nodiscard]] const QString& extension() const { return m_extension; } ///< without the point
    [[nodiscard]] QString fileName() const { return m_baseName + u'.' + m_extension; }
    [[nodiscard]] QString fullPath() const { return m_directory + fileName(); }

private:
    QString m_path;
    QString m_drive;
    QString m_directory;
    QString m_baseName;
    QString m_extension;
};
