// SPDX-License-Identifier: GPL-3.0-or-later

#include "ManifestOutput.h"

#include "Output.h"
#include "export/JsonWriter.h"
#include "files/FolderList.h"

using namespace Qt::StringLiterals;

namespace console {

namespace {

FolderList::Amount amountOf(const Manifest& manifest)
{
    FolderList::Amount amount{static_cast<int>(manifest.files.size()), 0};
    for (const Manifest::File& file : manifest.files)
        amount.bytes += file.size;
    return amount;
}

} // namespace

void writeAmount(const Manifest& manifest, Output& output)
{
    const FolderList::Amount amount = amountOf(manifest);
    output.line(u"Files: %1 (%2)"_s.arg(amount.files).arg(amount.sizeText()));
}

void writeAmount(const Manifest& manifest, JsonWriter& json)
{
    const FolderList::Amount amount = amountOf(manifest);
    json.member(u"files", amount.files);
    json.member(u"bytes", amount.bytes);
    json.name(u"rows");
    json.beginObject();
    for (auto table = manifest.rows.begin(); table != manifest.rows.end(); ++table)
        json.member(table.key(), *table);
    json.endObject();
}

} // namespace console
