// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/EditorTypes.h"
#include "views/clsView.h"

#include <QString>

#include <optional>

class DatabaseSession;
struct StandardQueries;

/// The commands that lead from a record to those linked to it.
enum class RelatedCommand
{
    DocumentEvents,
    DocumentOrganization,
    EventDocuments,
    EventOrganizations,
    OrganizationDocuments,
    OrganizationEvents
};

/// The record that a command begins from, with the text of its row.
struct RelatedSource
{
    qint64 identifier = 0;
    QString name;
};

/// A record to be added: its kind, and what its editor is preset with, if anything.
struct RecordAddition
{
    RecordKind kind = RecordKind::Document;
    std::optional<clsFieldInfo> preset;
};

/// Where a command leads: to a view or, if no record is linked, to a question and what Yes begins.
struct RelatedOutcome
{
    std::optional<clsView> view;
    QString question;
    RecordAddition addition;
};

/// Makes the views of linked records, each narrowed from the view of all records of its kind.
class RelatedViews
{
public:
    /// Both must outlive the object.
    RelatedViews(DatabaseSession& session, const StandardQueries& queries)
        : m_session(session), m_queries(queries)
    {
    }

    /// Looks for the linked records. Throws Error if they, or those of the view, cannot be read.
    [[nodiscard]] RelatedOutcome follow(RelatedCommand command, const RelatedSource& source) const;

    /// The kind of record that a command begins from.
    static RecordKind sourceKind(RelatedCommand command);

private:
    [[nodiscard]] QString conditionFor(RelatedCommand command, const QString& check,
                                       const QString& identifier) const;

    DatabaseSession& m_session;
    const StandardQueries& m_queries;
};
