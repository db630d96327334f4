// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/Finding.h"
#include "files/ProgramFolder.h"
#include "platform/SteppedWork.h"

#include <memory>
#include <vector>

class CheckedDatabase;
class EngineCheck;
class TopicCheck;

/// How thoroughly a collection is checked.
enum class CheckScope
{
    Structure,
    StructureAndFiles ///< the content of every record and file, too
};

/// Checks a collection. It changes nothing, and it can be made while somebody works with the collection.
///
/// SQLite's own checks run beside the others and are waited for last.
///
/// A check that cannot be made does not keep the others from being made; its result says why.
class CollectionCheck final : public SteppedWork
{
public:
    /// `database` is the file in `folder`. In the file `notes` is kept what was read of a check of the files
    /// that was given up, so that the next one goes on there; if it is empty, every check begins anew. Never
    /// throws, and neither do its steps.
    CollectionCheck(const QString& database, const ProgramFolder& folder, CheckScope scope,
                    const QString& notes = {});
    ~CollectionCheck() override;

    bool step() override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString text() const override;
    [[nodiscard]] std::optional<int> percent() const override;

    /// Where the notes of a database's check belong: in the user's cache, never in the collection.
    [[nodiscard]] static QString notesOf(const QString& database);

    /// One for each check that belongs to the scope, those that were not made yet too.
    [[nodiscard]] std::vector<CheckResult> results() const;

    /// How many of these were made, which are not the first ones.
    [[nodiscard]] std::size_t made() const { return m_current; }

    /// Whether one of these is being made. SQLite's own are from the beginning.
    [[nodiscard]] bool isUnderWay(std::size_t check) const;

    /// Whether nothing at all was found and every check was made to its end.
    [[nodiscard]] bool isSound() const;

private:
    bool prepare();

    std::unique_ptr<CheckedDatabase> m_database;
    std::vector<std::unique_ptr<TopicCheck>> m_checks;
    std::vector<EngineCheck*> m_engineChecks;
    bool m_isPrepared = false;
    std::vector<TopicCheck*> m_order; ///< in which they are made
    std::size_t m_current = 0;
};
