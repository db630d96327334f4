// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportChoices.h"

#include "export/ExportFormats.h"
#include "platform/StdREG.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString section = u"Export"_s;
const QString yes = u"Yes"_s;
const QString no = u"No"_s;
const QString ofList = u"List"_s;
const QString allFields = u"All"_s;

/// The name of a value for the records of a kind.
QString valueName(RecordKind kind, const QString& value)
{
    return recordNames(kind).record + value;
}

QString firstFormat(RecordKind kind)
{
    const std::vector<ExportFormat>& all = exportFormats();
    const auto first =
        std::find_if(all.begin(), all.end(), [kind](const ExportFormat& each) { return each.isFor(kind); });
    return first == all.end() ? QString() : first->name;
}

} // namespace

ExportChoices ExportChoices::read(SettingsStore& settings, RecordKind kind)
{
    const StdREG key(settings);
    const auto text = [&](const QString& value) { return key.GetRegString(section, valueName(kind, value)); };
    ExportChoices choices;
    choices.format = text(u"Format"_s);
    const ExportFormat* format = exportFormat(choices.format);
    if (format == nullptr || !format->isFor(kind)) choices.format = firstFormat(kind);
    if (text(u"Fields"_s) == ofList) choices.fields = FieldChoice::OfList;
    choices.forSpreadsheet = text(u"ForSpreadsheet"_s) != no;
    choices.hasPicture = text(u"Picture"_s) != no;
    return choices;
}

void ExportChoices::write(SettingsStore& settings, RecordKind kind) const
{
    StdREG key(settings);
    const auto set = [&](const QString& value, const QString& text) {
        key.WriteRegString(section, valueName(kind, value), text);
    };
    set(u"Format"_s, format);
    set(u"Fields"_s, fields == FieldChoice::OfList ? ofList : allFields);
    set(u"ForSpreadsheet"_s, forSpreadsheet ? yes : no);
    set(u"Picture"_s, hasPicture ? yes : no);
}
