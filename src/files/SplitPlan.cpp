// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/SplitPlan.h"

#include "files/FilesTexts.h"
#include "util/Error.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <cerrno>

namespace {

const QString staysKey = QStringLiteral("stays");
const QString movesKey = QStringLiteral("moves");
const QString databaseKey = QStringLiteral("database");
const QString workingKey = QStringLiteral("working");
const QString targetKey = QStringLiteral("target");
const QString copiedKey = QStringLiteral("copied");
const QString movedKey = QStringLiteral("moved");

QStringList textsOf(const QJsonValue& array)
{
    QStringList texts;
    for (const auto& text : array.toArray())
        texts << text.toString();
    return texts;
}

} // namespace

std::optional<SplitPlan> SplitPlan::load(const QString& file)
{
    QFile content(file);
    if (!content.open(QIODevice::ReadOnly)) return std::nullopt;
    const QJsonObject whole = QJsonDocument::fromJson(content.readAll()).object();
    SplitPlan plan;
    plan.stays = whole[staysKey].toString();
    for (const auto& value : whole[movesKey].toArray()) {
        const QJsonObject move = value.toObject();
        plan.moves.push_back({move[databaseKey].toString(), move[workingKey].toString(),
                              move[targetKey].toString(), textsOf(move[copiedKey]), textsOf(move[movedKey])});
    }
    return plan;
}

void SplitPlan::save(const QString& file) const
{
    QJsonArray list;
    for (const FolderMove& move : moves) {
        list << QJsonObject{{databaseKey, move.database},
                            {workingKey, move.working},
                            {targetKey, move.target},
                            {copiedKey, QJsonArray::fromStringList(move.copied)},
                            {movedKey, QJsonArray::fromStringList(move.moved)}};
    }
    const QByteArray content = QJsonDocument(QJsonObject{{staysKey, stays}, {movesKey, list}}).toJson();
    QSaveFile target(file);
    // the commit does not notice if the system could not take what was still to be written
    if (target.open(QIODevice::WriteOnly) && target.write(content) == content.size() && target.flush() &&
        target.commit())
        return;
    throw Error(EIO, FilesTexts::tr("The file cannot be made. (%1)").arg(file));
}
