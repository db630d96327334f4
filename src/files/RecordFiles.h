// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSet>
#include <QString>

class DatabaseSession;

/// The names of the files that a database's records lay claim to: those of its documents, whatever their
/// status and in former versions too, the folders of its web pages, and its organizations' charts.
class RecordFiles
{
public:
    /// Every file: for a database whose records cannot be read.
    RecordFiles() : m_isAll(true) {}

    /// Reads the names from the open database. Throws Error.
    explicit RecordFiles(DatabaseSession& session);

    /// Whether a file in the documents folder is named, in any letter case; `.htm` and `.html` are one.
    [[nodiscard]] bool hasDocument(const QString& fileName) const;

    /// Whether a folder beside the documents belongs to a page that is named.
    [[nodiscard]] bool hasPageFolder(const QString& folderName) const;

    /// Whether a file in the charts folder may be the chart of an organization that has one.
    [[nodiscard]] bool hasChart(const QString& fileName) const;

    /// Whether a file in the folder of former charts belongs to an organization whose journal tells of them.
    [[nodiscard]] bool hasFormerChart(const QString& fileName) const;

private:
    void addDocument(const QString& fileLocation);
    void addChart(qint64 organization, const QString& chosenPath);
    void addFormerCharts(DatabaseSession& session);

    bool m_isAll = false;
    QSet<QString> m_documents;
    QSet<QString> m_pageFolders;
    QSet<QString> m_charts;
    QSet<QString> m_withFormerCharts; ///< identifiers of organizations
};
