// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLockFile>
#include <QString>
#include <QStringList>

#include <memory>

/// A collection that is being made. Until it is complete it stands in a folder of the name `<its own>.new`,
/// which goes with the object; if the program is killed, `clearLeftOver` removes it.
class UnfinishedCollection
{
public:
    /// Begins a collection of that name in a place, with a number after the name if it is taken. The
    /// place is made if it is missing. Throws Error.
    UnfinishedCollection(const QString& place, const QString& name);
    ~UnfinishedCollection();
    UnfinishedCollection(const UnfinishedCollection&) = delete;
    UnfinishedCollection& operator=(const UnfinishedCollection&) = delete;

    /// What the folder of an unfinished collection is called.
    [[nodiscard]] static QString workName(const QString& name) { return name + QStringLiteral(".new"); }

    /// The folder for the database and its files, as it is until the collection is complete; ends with `/`.
    [[nodiscard]] QString dataFolder() const { return m_work + u'/' + m_name + dataName; }

    /// What that folder will be called; ends with `/`.
    [[nodiscard]] QString target() const { return m_place + u'/' + m_name + dataName; }

    /// Makes the missing folders of the collection and gives it its name. Throws Error.
    void complete();

    /// Removes from a place what the program was killed over, and empty folders of such names. Never fails,
    /// and touches nothing else.
    static void clearLeftOver(const QString& place);

private:
    explicit UnfinishedCollection(QString place) : m_place(std::move(place)) {}
    void takeName(const QString& name);
    void removeWork();

    static inline const QString dataName = QStringLiteral("/data/");

    QString m_place;
    QString m_name;
    QString m_work; ///< the folder around the unfinished collection; empty if there is none
    std::unique_ptr<QLockFile> m_mark; ///< in that folder: whose it is, and whether they still work on it
    QStringList m_madeFolders;         ///< those of the place that were missing, the innermost first
};
