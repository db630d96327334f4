// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/CollectionCheck.h"
#include "opening/NewDatabaseFile.h"
#include "records/DocumentStore.h"
#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"
#include "support/TestFiles.h"

/// A collection in a folder of its own, whose findings a test asks for.
class CheckedCollection
{
public:
    CheckedCollection()
    {
        QDir().mkpath(data());
        NewDatabaseFile::make(database(), {});
    }

    [[nodiscard]] QString folder() const { return m_folder.path(); }
    [[nodiscard]] QString data() const { return folder() + QStringLiteral("/Rivers/data/"); }
    [[nodiscard]] QString database() const { return data() + QStringLiteral("Rivers.sqlite"); }
    [[nodiscard]] ProgramFolder files() const { return ProgramFolder(folder() + QStringLiteral("/Rivers")); }

    /// Runs statements by SQLite alone.
    void run(const QString& statements) const
    {
        SQLite::Database(QFile::encodeName(database()).toStdString(), SQLite::OPEN_READWRITE)
            .exec(statements.toStdString());
    }

    /// Takes a document in as its editor does. Returns its identifier.
    qint64 addDocument(const QString& title, const QByteArray& content,
                       const QString& name = QStringLiteral("a.txt"))
    {
        writeFile(folder() + QStringLiteral("/in/") + name, content);
        const ProgramFolder place = files();
        DocumentStore store(session(), place, m_clock);
        DocumentRecord record = store.blank(std::nullopt);
        record.documentName = title;
        record.documentDescription = title + QStringLiteral(" and what it says");
        record.originalFilename = folder() + QStringLiteral("/in/") + name;
        if (store.saveDocument(record)) throw std::runtime_error("the title is taken");
        return record.id;
    }

    /// The session with the collection, for what the program itself does.
    DatabaseSession& session()
    {
        if (!m_session.isOpen()) m_session.open(database());
        return m_session;
    }

    [[nodiscard]] const Clock& clock() const { return m_clock; }

    [[nodiscard]] std::vector<CheckResult> check(CheckScope scope = CheckScope::StructureAndFiles,
                                                 const QString& notes = {}) const
    {
        CollectionCheck check(database(), files(), scope, notes);
        while (check.step()) {
        }
        return check.results();
    }

    /// What was found and what hindered it, a line each: the name of the check and the sentence.
    [[nodiscard]] static std::string textOf(const std::vector<CheckResult>& results)
    {
        std::string text;
        for (const CheckResult& result : results) {
            const std::string name = checkName(result.topic).toStdString() + ": ";
            std::vector<std::string> lines; // files come in the order of their folder, which is any
            for (const Finding& finding : result.findings)
                lines.push_back(name + finding.text.toStdString() + "\n");
            std::sort(lines.begin(), lines.end());
            for (const std::string& line : lines)
                text += line;
            if (!result.hindrance.isEmpty()) text += name + "! " + result.hindrance.toStdString() + "\n";
            if (!result.isDone) text += name + "not done\n";
        }
        return text;
    }

    [[nodiscard]] std::string found(CheckScope scope = CheckScope::StructureAndFiles) const
    {
        return textOf(check(scope));
    }

private:
    QTemporaryDir m_folder;
    DatabaseSession m_session;
    ScriptedClock m_clock;
};
