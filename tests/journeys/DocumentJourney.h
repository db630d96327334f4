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
        journey.database.runFile("journeys/rows/DocumentJourney.sql");
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
