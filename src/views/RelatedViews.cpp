// SPDX-License-Identifier: GPL-3.0-or-later

#include "views/RelatedViews.h"

#include "data/DatabaseSession.h"
#include "views/StandardQueries.h"
#include "views/ViewsTexts.h"

#include <array>
#include <utility>

namespace {

/// What a command reads, shows and offers.
struct Relation
{
    RecordKind source;
    RecordKind target;
    const char16_t* check; ///< finds the linked records, once the identifier is appended
    const char* caption;   ///< with %1 for the name of the source
    const char* question;
    const char16_t* presetKind = nullptr; ///< the word for the source in the editor's preset, if it takes one
};

/// In the order of the commands.
constexpr std::array<Relation, 6> relations{
    {{RecordKind::Document, RecordKind::Event,
      u"SELECT DISTINCT Event.EventID FROM Event, DocumentEvents WHERE Event.EventID = "
      u"DocumentEvents.EventID AND Event.EventID > 1 AND Status <> 'DELETED' AND DocumentID = ",
      QT_TRANSLATE_NOOP("Views", "View Only Events for Document \"%1\""),
      QT_TRANSLATE_NOOP("Views", "No Events exist for this Document. Would you like to add one?"),
      u"DOCUMENT"},
     {RecordKind::Document, RecordKind::Organization,
      u"SELECT OrganizationID FROM Document WHERE DocumentID = ",
      QT_TRANSLATE_NOOP("Views", "View Source Organization for Document \"%1\""),
      QT_TRANSLATE_NOOP("Views",
                        "No Source Organization exists for this Document. Would you like to add one?")},
     {RecordKind::Event, RecordKind::Document,
      u"SELECT DISTINCT Document.DocumentID FROM Document, DocumentEvents WHERE Document.DocumentID = "
      u"DocumentEvents.DocumentID AND Document.DocumentID > 1 AND dStatus <> 'DELETED' AND EventID = ",
      QT_TRANSLATE_NOOP("Views", "View Only Documents for Event \"%1\""),
      QT_TRANSLATE_NOOP("Views", "No Documents exist for this Event. Would you like to add one?")},
     {RecordKind::Event, RecordKind::Organization,
      u"SELECT DISTINCT Organization.OrganizationID FROM Organization, OrganizationEvents WHERE "
      u"Organization.OrganizationID = OrganizationEvents.OrganizationID AND Organization.OrganizationID > 1 "
      u"AND Status <> 'DELETED' AND EventID = ",
      QT_TRANSLATE_NOOP("Views", "View Only Organizations for Event \"%1\""),
      QT_TRANSLATE_NOOP("Views", "No Organizations exist for this Event. Would you like to add one?")},
     {RecordKind::Organization, RecordKind::Document,
      u"SELECT count(DocumentID) as dCount FROM Document WHERE DocumentID > 1 AND dStatus <> 'DELETED' AND "
      u"OrganizationID = ",
      QT_TRANSLATE_NOOP("Views", "View Only Documents for Organization \"%1\""),
      QT_TRANSLATE_NOOP("Views", "No Documents exist for this Organization. Would you like to add one?"),
      u"ORGANIZATION"},
     // the caption does not say what the view lists, but users know the view by it
     {RecordKind::Organization, RecordKind::Event,
      u"SELECT DISTINCT Event.EventID FROM Event, OrganizationEvents WHERE Event.EventID = "
      u"OrganizationEvents.EventID AND Event.EventID > 1 AND Status <> 'DELETED' AND OrganizationID = ",
      QT_TRANSLATE_NOOP("Views", "View Only Organizations for Event \"%1\""),
      QT_TRANSLATE_NOOP("Views", "No Events exist for this Organization. Would you like to add one?"),
      u"ORGANIZATION"}}};

const Relation& relationOf(RelatedCommand command)
{
    return relations.at(static_cast<std::size_t>(command));
}

RecordAddition additionFor(const Relation& relation, const RelatedSource& source)
{
    if (relation.presetKind == nullptr) return {relation.target, std::nullopt};
    return {relation.target,
            clsFieldInfo{QString::fromUtf16(relation.presetKind), source.identifier, source.name}};
}

} // namespace

RecordKind RelatedViews::sourceKind(RelatedCommand command)
{
    return relationOf(command).source;
}

/// Returns the condition that narrows the target's records to the linked ones, or an empty text if there are
/// none.
QString RelatedViews::conditionFor(RelatedCommand command, const QString& check,
                                   const QString& identifier) const
{
    RecordSet found = m_session.read(check);
    if (!found.next()) return {};
    switch (command) {
    case RelatedCommand::DocumentEvents:
        return QStringLiteral(" AND DocumentID = ") + identifier;
    case RelatedCommand::DocumentOrganization: {
        const qint64 organization = found.integer(found.column(u"OrganizationID"));
        // the reserved "None" counts as a source; a missing one does not
        if (organization < 1) return {};
        return QStringLiteral(" AND Organization.OrganizationID = ") + QString::number(organization);
    }
    case RelatedCommand::EventDocuments:
        return QStringLiteral(" AND DocumentID IN (") + check + u')';
    case RelatedCommand::EventOrganizations:
        return QStringLiteral(" AND OrganizationID IN (") + check + u')';
    case RelatedCommand::OrganizationDocuments:
        if (found.integer(found.column(u"dCount")) == 0) return {};
        return QStringLiteral(" AND Document.OrganizationID = ") + identifier;
    case RelatedCommand::OrganizationEvents:
        return QStringLiteral(" AND Organization.OrganizationID = ") + identifier;
    }
    return {};
}

RelatedOutcome RelatedViews::follow(RelatedCommand command, const RelatedSource& source) const
{
    const Relation& relation = relationOf(command);
    const QString identifier = QString::number(source.identifier);
    const QString condition =
        conditionFor(command, QString::fromUtf16(relation.check) + identifier, identifier);
    if (condition.isEmpty()) {
        return {std::nullopt, ViewsTexts::tr(relation.question), additionFor(relation, source)};
    }
    clsView view{viewOf(relation.target), m_queries.narrowed(relation.target, condition),
                 ViewsTexts::tr(relation.caption).arg(source.name)};
    // read once before it is shown: if that fails, the current view stays
    (void)m_session.read(view.SQL->sqlStr());
    return {std::move(view), {}, {}};
}
