// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/AutomaticBackups.h"

#include "backup/BackupTexts.h"
#include "data/DatabaseSession.h"
#include "files/DatabaseFile.h"
#include "journal/Journal.h"
#include "platform/Clock.h"
#include "platform/Messages.h"
#include "platform/SteppedWork.h"
#include "platform/WorkRunner.h"
#include "util/Error.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <future>

namespace {

constexpr qint64 fewRecords = 10;

/// A backup that nobody asked for tells why it is made. Of a damaged database none is made: it would push out
/// one from before the damage. To find that out takes SQLite one statement, which of a large database takes
/// seconds and so runs in a thread of its own.
class UnaskedBackup final : public WrappedWork
{
public:
    /// The backup must outlive it.
    UnaskedBackup(SteppedWork& backup, QString database, QString remark)
        : WrappedWork(backup), m_database(std::move(database)), m_remark(std::move(remark))
    {
    }

    bool step() override
    {
        if (m_isSound) return WrappedWork::step();
        if (!m_check.valid()) m_check = std::async(std::launch::async, &isSound, m_database);
        if (isChecking()) return true;
        m_isSound = m_check.get();
        if (m_isSound) return true;
        throw Error(SQLITE_CORRUPT,
                    BackupTexts::tr("The database is damaged. Navigate, Check Collection… tells "
                                    "what can be done."));
    }
    bool undoStep() override { return isChecking() || WrappedWork::undoStep(); }
    [[nodiscard]] QString remark() const override { return m_remark; }
    [[nodiscard]] QString text() const override
    {
        return m_isSound ? WrappedWork::text() : BackupTexts::tr("Checking the database …");
    }

private:
    /// Whether the check is still under way after a moment.
    [[nodiscard]] bool isChecking() const
    {
        constexpr std::chrono::milliseconds moment{20};
        return m_check.valid() && m_check.wait_for(moment) != std::future_status::ready;
    }

    QString m_database;
    QString m_remark;
    std::future<bool> m_check;
    bool m_isSound = false;
};

/// Returns why something failed; an empty text if it did not.
QString failureOf(const std::function<void()>& body)
{
    try {
        body();
        return {};
    } catch (const Error& error) {
        return error.description();
    } catch (const std::exception& exception) {
        return QString::fromLocal8Bit(exception.what());
    }
}

} // namespace

bool AutomaticBackups::isDue(const std::vector<KeptBackups::Kept>& kept, const QDateTime& lastChange,
                             const QDateTime& now)
{
    if (!lastChange.isValid()) return false;
    return std::none_of(kept.begin(), kept.end(), [&](const KeptBackups::Kept& backup) {
        if (backup.made.date() == now.date()) return true;
        // of a clock that was put back since, only what both tell of the time before can be compared
        if (backup.made > now && lastChange <= now) return false;
        return backup.made > lastChange;
    });
}

void AutomaticBackups::beforeChange(qint64 records) const
{
    if (records <= fewRecords) return;
    backUp(BackupTexts::tr("The database is backed up before this change. Cancel makes the change without a "
                           "backup."),
           BackupTexts::tr("The change is made all the same."));
}

void AutomaticBackups::beforeReplacement() const
{
    backUp(BackupTexts::tr("The database is backed up before it is replaced. Cancel replaces it without a "
                           "backup."),
           BackupTexts::tr("It is replaced all the same."));
}

void AutomaticBackups::atExit(DatabaseSession& session) const
{
    const KeptBackups kept(m_folder);
    if (!session.isOpen() || session.isReadOnly() || !session.keepsJournal() || !kept.canBeAdded()) return;
    bool isNeeded = true; // if that cannot be read, the backup says why
    static_cast<void>(failureOf(
        [&] { isNeeded = isDue(kept.list(), Journal::lastMoment(session), m_platform.clock.now()); }));
    if (!isNeeded) return;
    backUp(BackupTexts::tr("The database is backed up before it is closed. Cancel closes it without a "
                           "backup."),
           BackupTexts::tr("What you have changed is saved all the same."));
}

void AutomaticBackups::backUp(const QString& remark, const QString& comfort) const
{
    const KeptBackups kept(m_folder);
    const QDateTime now = m_platform.clock.now();
    const QString failure = failureOf([&] {
        const auto backup = kept.work(m_database, m_folder, now);
        UnaskedBackup work(*backup, m_database, remark);
        static_cast<void>(m_platform.works.run(work));
    });
    kept.tidy(now);
    if (failure.isEmpty()) return;
    m_platform.messages.show(
        BackupTexts::tr("The database could not be backed up: %1\n\n%2").arg(failure, comfort));
}
