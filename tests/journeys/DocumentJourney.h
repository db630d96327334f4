// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "EditorJourney.h"
#include "support/TestFiles.h"

class DocumentJourney : public EditorJourney
{
protected:
    DocumentJourney() : EditorJourney("frmDocument", "journeys/rows/DocumentJourney.sql")
    {
        writeFile(source);
        start("mnuViewDocuments");
    }

    void fillIn(OpenDialog& dialog)
    {
        dialog.type("txtDocumentName", QStringLiteral("Levees"));
        dialog.type("rtbDocumentDescription", QStringLiteral("About levees"));
        dialog.type("txtOriginalFilename", source);
    }

    QString source = journey.database.folder() + QStringLiteral("/scan.PDF");
};
