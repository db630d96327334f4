#pragma once

#include "platform/Platform.h"
#include "views/RelatedViews.h"

#include <QObject>

#include <array>

class ListPane;
class QAction;
class QMenu;
struct ProgramState;

/// The six commands that show the records linked to the selected one, or offer to add one where there are
/// none. They stand in a menu of their own, which shows those of the kind that is listed, and in the lists'
/// pop-up menus.
class RelatedCommands final : public QObject
{
    Q_OBJECT

public:
    /// The program's state and the list must outlive the commands.
    RelatedCommands(const Platform& platform, ProgramState& state, ListPane& list, QObject* parent);

    /// The commands that begin from a kind of record.
    [[nodiscard]] QList<QAction*> actions(ViewKind source) const;

    /// Puts all of them into a menu, which must outlive them.
    void addTo(QMenu& menu);

    /// Enables what the list's selection allows. `hindrance` says what else is in the way, as on a page
    /// without a list.
    void enable(const QString& hindrance);

Q_SIGNALS:
    /// The user answered Yes to the offer to add a record.
    void additionWanted(const RecordAddition& addition);

private:
    static constexpr std::size_t count = 6;

    void add(RelatedCommand command, const char* name, const QString& text, const QString& icon,
             const QString& statusTip, Qt::Key key);
    void follow(RelatedCommand command);

    Platform m_platform;
    ProgramState& m_state;
    ListPane& m_list;
    std::array<QAction*, count> m_actions{};
    QMenu* m_menu = nullptr;
};
