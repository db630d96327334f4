// SPDX-License-Identifier: GPL-3.0-or-later

#include "filetext/IndexedDocuments.h"

TableScan indexedDocuments()
{
    return TableScan(
        QStringLiteral("Document"), QStringLiteral("FileLocation"),
        QStringLiteral("DocumentID > 1 AND dStatus COLLATE NOCASE <> 'DELETED' AND FileLocation <> ''"));
}
