// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/AccessConversion.h"

#include "opening/DatabaseConverter.h"
#include "opening/OpeningTexts.h"
#include "util/Error.h"
#include "util/Logging.h"

#include <QFileInfo>

QString AccessConversion::databaseName(const QString& accessFile)
{
    return QFileInfo(accessFile).completeBaseName() + QStringLiteral(".sqlite");
}

std::optional<ImportReport> AccessConversion::run(DatabaseConverter& converter, const QString& source,
                                                  const QString& target, bool replace)
{
    using End = DatabaseConverter::Result::End;
    qCInfo(startLog).noquote() << "convert:" << source << "to" << target;
    const DatabaseConverter::Result result = converter.convert(source, target, replace);
    if (result.end == End::Cancelled) return std::nullopt;
    if (result.end == End::Failed) {
        throw Error(result.status, QStringLiteral("%1 (%2)").arg(result.error, source));
    }
    return result.report;
}

QString AccessConversion::message(const QString& source, const QString& target, const QString& report)
{
    return OpeningTexts::tr(
               "The Access file %1 was converted to the database %2, which the program uses from "
               "now on. The Access file is unchanged.\n\n%3")
        .arg(QFileInfo(source).fileName(), target, report);
}
