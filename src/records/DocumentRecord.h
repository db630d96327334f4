// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"
#include "records/StoredState.h"

#include <QString>

#include <optional>
#include <vector>

/// A document as its editor holds it. Plain texts, as typed.
struct DocumentRecord
{
    qint64 id = -1; ///< below 0 until it is saved

    QString documentName;
    QString author;
    QString documentDate; ///< as typed
    QString publication;
    QString pageNum;
    QString pubNum;
    QString volume;
    QString url;
    QString originalFilename; ///< the path of the file to take, in the form that the user gave it
    bool takesFile = false;   ///< whether an update copies that file; a new document always takes it
    bool keyDocument = false;
    QString documentDescription;
    QString notes;
    qint64 fileTypeId = noneKey;
    qint64 organizationId = noneKey;

    // kept by the store alone:
    QString fileLocation;              ///< the stored file's name
    std::optional<StoredState> stored; ///< what was read; missing for a new record

    /// Each record once. Without links they hold "None"; an empty list is saved as that.
    std::vector<ListEntry> types;
    std::vector<ListEntry> categories;
    std::vector<CheckEntry> venues; ///< all venues; only those checked are linked
};
