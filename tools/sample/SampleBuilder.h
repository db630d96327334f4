// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDir>
#include <QString>

/// Builds a whole program folder from the source texts: the database, the documents, the organization
/// charts and the map layer. The folder appears under its name only when it is complete.
class SampleBuilder
{
public:
    /// `source` is the folder that holds `source` and `maps`.
    SampleBuilder(const QString& source, QString schemaPath, const QString& target);

    /// Throws SourceError or SQLite::Exception; nothing is left behind then. A target that exists and is not
    /// empty is refused.
    void build() const;

private:
    void buildInto(const QDir& folder) const;
    void copyMaps(const QDir& folder) const;
    [[nodiscard]] QString schema() const;

    QDir m_source;
    QString m_schemaPath;
    QString m_target;
};
