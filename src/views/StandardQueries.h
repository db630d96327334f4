#pragma once

#include "data/SQLObject.h"

#include <QCoreApplication>
#include <QString>

/// The three queries that show all records of a kind, made once at start-up and never changed. A narrower
/// view builds a query of its own from their clauses.
struct StandardQueries
{
    StandardQueries();

    SharedQuery documents;
    SharedQuery events;
    SharedQuery organizations;
    QString documentsTitle = QCoreApplication::translate("StandardQueries", "View ALL Documents");
    QString eventsTitle = QCoreApplication::translate("StandardQueries", "View ALL Events");
    QString organizationsTitle = QCoreApplication::translate("StandardQueries", "View ALL Organizations");
};
