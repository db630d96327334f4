// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/CaseFile.h"

QStringList linesIn(const char* file)
{
    const QByteArray content = contentOf(QStringLiteral(ORVIK_TESTS "/") + QLatin1StringView(file));
    return QString::fromUtf8(content.trimmed()).split(u'\n');
}

std::vector<FileCase> casesIn(const char* file, std::size_t least)
{
    std::vector<FileCase> cases;
    for (const QString& line : linesIn(file)) {
        if (line.startsWith(u"$ "))
            cases.push_back({line.mid(2), {}});
        else
            cases.back().expected += line + u'\n';
    }
    if (cases.size() < least) throw std::runtime_error(std::string("too few cases in ") + file);
    return cases;
}

RecordKind kindNamed(const QString& table)
{
    for (const RecordKind kind : recordKinds)
        if (recordNames(kind).record == table) return kind;
    throw std::runtime_error("no such kind: " + table.toStdString());
}
