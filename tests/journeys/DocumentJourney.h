#pragma once

#include "Dialogs.h"
#include "Journey.h"

#include <QFile>

#include <gtest/gtest.h>

/// A journey with a few records, showing the documents.
class DocumentJourney : public ::testing::Test
{
protected:
    DocumentJourney()
    {
        journey.database.run("INSERT INTO FileTypes VALUES (1, 'None'), (2, 'Adobe PDF'), (4, 'Web Page')");
        journey.database.run("INSERT INTO Venue VALUES (1, 'Coast'), (2, 'Forest'), (3, 'City')");
        journey.database.run("INSERT INTO DocumentType VALUES (1, 'None'), (2, 'Report'), (3, 'Map')");
        journey.database.run("INSERT INTO DocumentCategory VALUES (1, 'None'), (2, 'Floods')");
        journey.database.run("INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES "
                             "(1, 'None', 'ACTIVE'), (7, 'Zebra Society', 'ACTIVE'), "
                             "(8, 'Levee Board', 'ACTIVE'), (9, 'Levee Watch', 'ACTIVE')");
        journey.database.run(
            "INSERT INTO Document (DocumentID, DocumentName, Author, DocumentDescription, Notes, FileTypeID, "
            "OrganizationID, OriginalFilename, FileLocation, URL, KeyDocument, dStatus) VALUES "
            "(1, 'None', NULL, NULL, NULL, 1, 1, NULL, NULL, NULL, 0, 'ACTIVE'), "
            "(2, 'Old Levees', 'A. Writer', 'First line' || char(13, 10) || 'second', NULL, 4, 8, "
            "'C:\\papers\\old.html', '2.html', 'http://levees.example/a b', 1, 'ACTIVE')");
        journey.database.run("INSERT INTO DocumentTypes VALUES (2, 3)");
        journey.database.run("INSERT INTO DocumentVenues VALUES (2, 2)");
        journey.database.run("UPDATE Document SET Publication = printf('%0300d', 7)");
        QFile(source).open(QIODevice::WriteOnly);
        journey.start();
        journey.trigger("mnuViewDocuments");
    }

    void inEditor(const char* command, const std::function<void(OpenDialog&)>& work)
    {
        inDialog(
            "frmDocument", [&] { journey.trigger(command); }, work);
    }

    void put(const QString& name)
    {
        QFile file(journey.dataFolder() + name);
        file.open(QIODevice::WriteOnly);
    }

    void fillIn(OpenDialog& dialog)
    {
        dialog.type("txtDocumentName", QStringLiteral("Levees"));
        dialog.type("rtbDocumentDescription", QStringLiteral("About levees"));
        dialog.type("txtOriginalFilename", source);
    }

    std::string rows(const char* statement) { return journey.database.ask(statement).toStdString(); }
    ScriptedMessages& messages() { return journey.desktop.messages; }

    Journey journey;
    QString source = journey.database.folder() + QStringLiteral("/scan.PDF");
};
