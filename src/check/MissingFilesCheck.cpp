// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/MissingFilesCheck.h"

#include "check/CheckTexts.h"
#include "check/CheckedDatabase.h"
#include "check/FolderEntries.h"
#include "check/NamedRows.h"
#include "data/HeldRows.h"
#include "files/DistributionDiscs.h"
#include "journal/UploadedFiles.h"
#include "util/Error.h"
#include "util/ReadableLine.h"

using namespace Qt::StringLiterals;

bool MissingFilesCheck::step()
{
    if (!m_search) {
        // a folder that cannot be read is not an empty one
        for (const QString& folder : {ProgramFolders::documents, ProgramFolders::organizationCharts})
            FolderEntries(m_folder.folderPath(folder));
        m_search.emplace(m_folder);
        return true;
    }
    for (const MissingFile& missing : m_search->next(m_database.session()))
        tell(missing);
    return !m_search->isDone();
}

/// The label of the disc that a file is on if it is on one.
QString MissingFilesCheck::discOf(const MissingFile& missing)
{
    const auto rows =
        HeldRows(m_database.session())
            .read(u"SELECT FileTypeID FROM Document WHERE DocumentID = ?"_s, {missing.identifier});
    const bool isPhoto = missing.kind == RecordKind::Document && !rows.empty() &&
                         wholeNumberOf(rows.front(), u"FileTypeID") == DistributionDiscs::photoFileType;
    return QStringView(isPhoto ? DistributionDiscs::photosLabel : DistributionDiscs::dataLabel).toString();
}

void MissingFilesCheck::tell(const MissingFile& missing)
{
    if (isFull()) return add({});
    DatabaseSession& session = m_database.session();
    const QString record = NamedRows::recordText(session, missing.kind, missing.identifier);
    const Finding::Record shown{missing.kind, missing.identifier};
    if (!ProgramFolder::isPlainName(missing.name)) {
        add({CheckTexts::tr("%1 names the file \"%2\", which cannot be in the folder documents.")
                 .arg(record, readableLine(missing.name)),
             Finding::Step::ShowRecord, shown});
        return;
    }
    const bool isDocument = missing.kind == RecordKind::Document;
    const QString sentence =
        isDocument ? CheckTexts::tr("%1 names the file %2, which is not in the folder documents.")
                   : CheckTexts::tr("%1 has the chart %2, which is not in the folder orgcharts.");
    Finding finding{sentence.arg(record, readableLine(missing.name)), Finding::Step::ShowRecord, shown,
                    (isDocument ? u"documents/"_s : u"orgcharts/"_s) + missing.name};
    try {
        const auto hash = UploadedFiles::hashOf(session, missing.kind, missing.identifier, finding.file);
        if (hash) {
            finding.sha256 = *hash;
            finding.step = Finding::Step::FindFile;
        } else {
            finding.text += u' ' + CheckTexts::tr("It may be on the disc %1.").arg(discOf(missing));
        }
    } catch (const Error& error) {
        hinder(error);
    }
    add(std::move(finding));
}
