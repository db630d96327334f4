// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/CollectionCheck.h"

#include "check/CheckTexts.h"
#include "check/EngineCheck.h"
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
    case CheckTopic::ChangedRecords:
        return CheckTexts::tr("Content of the records");
    case CheckTopic::ChangedFiles:
        return CheckTexts::tr("Content of the files");
    }
    return {};
}

CollectionCheck::CollectionCheck(const QString& database, const ProgramFolder& /*folder*/,
                                 CheckScope /*scope*/, const QString& /*notes*/)
{
    m_checks.push_back(std::make_unique<EngineCheck>(CheckTopic::EngineIntegrity, database));
    m_checks.push_back(std::make_unique<EngineCheck>(CheckTopic::ForeignKeys, database));
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
    if (m_current >= m_checks.size()) return false;
    TopicCheck& check = *m_checks[m_current];
    CheckResult& result = check.result();
    try {
        if (check.step()) return true;
    } catch (const Error& error) {
        result.hindrance = error.description();
    }
    result.isDone = true;
    return ++m_current < m_checks.size();
}

QString CollectionCheck::title() const
{
    return CheckTexts::tr("Check Collection");
}

QString CollectionCheck::text() const
{
    const std::size_t last = m_checks.size() - 1;
    return checkCaption(m_checks[std::min(m_current, last)]->result().topic);
}

std::optional<int> CollectionCheck::percent() const
{
    return static_cast<int>(m_current * 100 / m_checks.size());
}

std::vector<CheckResult> CollectionCheck::results() const
{
    std::vector<CheckResult> results;
    for (const auto& check : m_checks)
        results.push_back(check->result());
    return results;
}

bool CollectionCheck::isSound() const
{
    return std::all_of(m_checks.begin(), m_checks.end(), [](const auto& check) {
        const CheckResult& result = check->result();
        return result.isDone && result.findings.empty() && result.hindrance.isEmpty();
    });
}
