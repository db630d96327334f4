// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/LibreOffice.h"

#include "support/OtherPrograms.h"
#include "support/Testing.h"

namespace {

/// Commas, quotes around every text, UTF-8, every sheet.
const QString asText = u"csv:Text - txt - csv (StarCalc):44,34,76,1,,0,true,true,false,false,false,-1"_s;

SheetRows rowsOfText(const QString& text)
{
    SheetRows rows{{{}}};
    bool isQuoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        SheetCell& cell = rows.back().back();
        if (text[i] == u'"') {
            const bool isDoubled = isQuoted && i + 1 < text.size() && text[i + 1] == u'"';
            if (isDoubled) cell.text += text[i++];
            if (!isDoubled) isQuoted = !isQuoted;
            cell.isText = true;
        } else if (isQuoted || (text[i] != u',' && text[i] != u'\n')) {
            cell.text += text[i];
        } else if (text[i] == u',') {
            rows.back().emplace_back();
        } else {
            rows.push_back({{}});
        }
    }
    rows.pop_back(); // after the last line end
    return rows;
}

} // namespace

QMap<QString, SheetRows> readByLibreOffice(const QStringList& files, const QString& importFilter)
{
    const QTemporaryDir folder;
    const QString written = folder.filePath(u"written"_s);
    QStringList arguments{u"-env:UserInstallation=file://"_s + folder.filePath(u"user"_s), u"--headless"_s};
    if (!importFilter.isEmpty()) arguments << u"--infilter="_s + importFilter;
    arguments << u"--convert-to"_s << asText << u"--outdir"_s << written << files;
    const ProgramRun office = runProgram(u"soffice"_s, arguments);
    if (!office.hasEndedWell)
        throw std::runtime_error("soffice failed: " + (office.output + office.errors).toStdString());
    QMap<QString, SheetRows> sheets;
    for (const QFileInfo& each : QDir(written).entryInfoList(QDir::Files))
        sheets[each.completeBaseName()] = rowsOfText(QString::fromUtf8(contentOf(each.filePath())));
    return sheets;
}
