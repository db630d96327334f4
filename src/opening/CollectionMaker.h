// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class DatabaseConverter;
class FolderList;
class Messages;
class ProgramFolder;
class UnfinishedCollection;
class WorkRunner;

/// Makes a collection of its own of an Access file or a database of the program that lies elsewhere. The
/// folders `documents` and `orgcharts` beside the file, in any letter case, are brought along if the user
/// likes. The file and the folders are only read; a collection that does not become complete leaves nothing.
class CollectionMaker
{
public:
    /// The references must outlive the maker. `place` is where the collection is made.
    CollectionMaker(Messages& messages, WorkRunner& works, DatabaseConverter& converter,
                    const ProgramFolder& home, QString place)
        : m_messages(messages),
          m_works(works),
          m_converter(converter),
          m_home(home),
          m_place(std::move(place))
    {
    }

    /// Returns the database in the new collection; std::nullopt if the user changed their mind. Throws Error.
    [[nodiscard]] std::optional<QString> make(const QString& file);

    /// What was made of a file.
    struct Made
    {
        QString database;
        QStringList report; ///< what the user should know of its conversion; empty if there was none
    };

    /// The files beside a database or an Access file, which are still to be listed.
    [[nodiscard]] static FolderList filesBeside(const ProgramFolder& home, const QString& file);

    /// Makes the collection that was begun of a file and of those beside it, without a word to the user;
    /// `files` is null to leave them where they are. Returns std::nullopt if the user cancelled it. Throws
    /// Error.
    [[nodiscard]] static std::optional<Made> complete(WorkRunner& works, DatabaseConverter& converter,
                                                      const QString& file, const FolderList* files,
                                                      UnfinishedCollection& collection);

private:
    [[nodiscard]] bool mayBringAlong(const QString& file, const FolderList& files);

    Messages& m_messages;
    WorkRunner& m_works;
    DatabaseConverter& m_converter;
    const ProgramFolder& m_home;
    QString m_place;
};
