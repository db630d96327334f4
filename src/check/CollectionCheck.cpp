// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/CollectionCheck.h"

#include "check/CheckTexts.h"
#include "check/CheckedDatabase.h"
#include "check/ContentCheck.h"
#include "check/DatesCheck.h"
#include "check/EngineCheck.h"
#include "check/FileTextsCheck.h"
#include "check/HistoryCheck.h"
#include "check/LinksCheck.h"
#include "check/MissingFilesCheck.h"
#include "check/RecordsCheck.h"
#include "check/StrayFilesCheck.h"
#include "util/Error.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

QString checkName(CheckTopic topic)
{
    switch (topic) {
    case CheckTopic::EngineIntegrity:
        return u"integrity"_s;
    case CheckTopic::ForeignKeys:
        return u"foreign-keys"_s;
    case CheckTopic::LinksWithoutRecord:
        return u"links"_s;
    case CheckTopic::UnreadableDates:
        return u"dates"_s;
    case CheckTopic::HistoryWithoutRecord:
        return u"history"_s;
    case CheckTopic::MissingFiles:
        return u"missing-files"_s;
    case CheckTopic::StrayFiles:
        return u"stray-files"_s;
    case CheckTopic::FileTexts:
        return u"file-texts"_s;
    case CheckTopic::ChangedRecords:
        return u"changed-records"_s;
    case CheckTopic::ChangedFiles:
        return u"changed-files"_s;
    }
    return {};
}

QString checkCaption(CheckTopic topic)
{
    switch (topic) {
    case CheckTopic::EngineIntegrity:
        return CheckTexts::tr("Structure of the database");
    case CheckTopic::ForeignKeys:
        return CheckTexts::tr("References within the database");
    case CheckTopic::LinksWithoutRecord:
        return CheckTexts::tr("Links without a record");
    case CheckTopic::UnreadableDates:
        return CheckTexts::tr("Unreadable dates");
    case CheckTopic::HistoryWithoutRecord:
        return CheckTexts::tr("History without a record");
    case CheckTopic::MissingFiles:
        return CheckTexts::tr("Missing files");
    case CheckTopic::StrayFiles:
        return CheckTexts::tr("Files that no record names");
    case CheckTopic::FileTexts:
        return CheckTexts::tr("Texts of the files");
    case CheckTopic::ChangedRecords:
        return CheckTexts::tr("Content of the records");
    case CheckTopic::ChangedFiles:
        return CheckTexts::tr("Content of the files");
    }
    return {};
}

CollectionCheck::CollectionCheck(const QString& database, const ProgramFolder& folder, CheckScope scope,
                                 const QString& notes)
    : m_database(std::make_unique<CheckedDatabase>(database))
{
    for (const CheckTopic topic : {CheckTopic::EngineIntegrity, CheckTopic::ForeignKeys}) {
        auto check = std::make_unique<EngineCheck>(topic, *m_database);
        m_engineChecks.push_back(check.get());
        m_checks.push_back(std::move(check));
    }
    m_checks.push_back(std::make_unique<LinksCheck>(*m_database));
    m_checks.push_back(std::make_unique<DatesCheck>(*m_database));
    m_checks.push_back(std::make_unique<HistoryCheck>(*m_database));
    m_checks.push_back(std::make_unique<MissingFilesCheck>(*m_database, folder));
    m_checks.push_back(std::make_unique<StrayFilesCheck>(*m_database, folder));
    m_checks.push_back(std::make_unique<FileTextsCheck>(*m_database, database, folder));
    if (scope == CheckScope::StructureAndFiles) {
        m_checks.push_back(std::make_unique<RecordsCheck>(*m_database));
        m_checks.push_back(std::make_unique<ContentCheck>(*m_database, folder, notes));
    }
    for (std::size_t i = m_engineChecks.size(); i < m_checks.size(); ++i)
        m_order.push_back(m_checks[i].get());
    m_order.insert(m_order.end(), m_engineChecks.begin(), m_engineChecks.end());
}

CollectionCheck::~CollectionCheck() = default;

QString CollectionCheck::notesOf(const QString& database)
{
    const QFileInfo file(database);
    const QString path = file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
    const QByteArray name = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256).toHex();
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + u"/orvik/check-"_s +
           QString::fromLatin1(name.first(16)) + u".txt"_s;
}

bool CollectionCheck::step()
{
    if (!m_isPrepared) return prepare();
    if (m_current >= m_checks.size()) return false;
    TopicCheck& check = *m_order[m_current];
    try {
        if (check.step()) return true;
    } catch (const Error& error) {
        check.hinder(error);
    }
    check.finish();
    return ++m_current < m_checks.size();
}

/// Without the database, nothing can be checked.
bool CollectionCheck::prepare()
{
    try {
        m_isPrepared = !m_database->prepare();
        if (m_isPrepared) {
            for (EngineCheck* check : m_engineChecks)
                check->begin();
        }
    } catch (const Error& error) {
        for (const auto& check : m_checks) {
            check->hinder(error);
            check->finish();
        }
        m_isPrepared = true;
        m_current = m_checks.size();
    }
    return m_current < m_checks.size();
}

QString CollectionCheck::title() const
{
    return CheckTexts::tr("Check Collection");
}

QString CollectionCheck::text() const
{
    const std::size_t last = m_checks.size() - 1;
    return checkCaption(m_order[std::min(m_current, last)]->result().topic);
}

std::optional<int> CollectionCheck::percent() const
{
    if (m_current >= m_checks.size()) return 100;
    const auto done = static_cast<std::size_t>(m_order[m_current]->percent().value_or(0));
    return static_cast<int>((m_current * 100 + done) / m_checks.size());
}

std::vector<CheckResult> CollectionCheck::results() const
{
    std::vector<CheckResult> results;
    results.reserve(m_checks.size());
    for (const auto& check : m_checks)
        results.push_back(check->result());
    return results;
}

bool CollectionCheck::isUnderWay(std::size_t check) const
{
    const bool isCurrent = m_current < m_order.size() && m_order[m_current] == m_checks[check].get();
    return !m_checks[check]->result().isDone && (isCurrent || check < m_engineChecks.size());
}

bool CollectionCheck::isSound() const
{
    return std::all_of(m_checks.begin(), m_checks.end(), [](const auto& check) {
        const CheckResult& result = check->result();
        return result.isDone && result.findings.empty() && result.hindrance.isEmpty();
    });
}
