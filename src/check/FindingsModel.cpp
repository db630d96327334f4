// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/FindingsModel.h"

#include "widgets/IconSet.h"
#include "widgets/PlainToolTip.h"

#include <QPixmap>

#include <algorithm>

namespace {

constexpr int iconWidth = 16;

/// What the index of a finding says of its check; that of a check itself says 0.
quintptr identifierOf(int check)
{
    return static_cast<quintptr>(check) + 1;
}

int checkOf(const QModelIndex& index)
{
    return static_cast<int>(index.internalId()) - 1;
}

} // namespace

void FindingsModel::setChecks(const std::vector<CheckResult>& checks)
{
    beginResetModel();
    m_checks.clear();
    for (const CheckResult& check : checks)
        m_checks.push_back({{check.topic}});
    endResetModel();
}

void FindingsModel::begin(int check)
{
    setState(check, State::Running);
}

void FindingsModel::finish(int check, CheckResult result)
{
    Check& shown = m_checks[static_cast<std::size_t>(check)];
    QStringList notes;
    for (const QString& note : {result.hindrance, result.remark})
        if (!note.isEmpty()) notes << note;
    const auto lines = static_cast<int>(notes.size()) + static_cast<int>(result.findings.size());
    if (lines > 0) beginInsertRows(index(check, textColumn), 0, lines - 1);
    shown.result = std::move(result);
    shown.notes = notes;
    if (lines > 0) endInsertRows();
    setState(check, State::Made);
}

void FindingsModel::stop()
{
    for (int check = 0; check < rowCount(); ++check) {
        const State state = checkAt(check).state;
        if (state == State::Waiting || state == State::Running) setState(check, State::Stopped);
    }
}

void FindingsModel::setState(int check, State state)
{
    m_checks[static_cast<std::size_t>(check)].state = state;
    const QModelIndex changed = index(check, stateColumn);
    Q_EMIT dataChanged(changed, changed);
}

const Finding* FindingsModel::finding(const QModelIndex& index) const
{
    if (!index.isValid() || index.internalId() == 0) return nullptr;
    const Check& check = checkAt(checkOf(index));
    const auto row = index.row() - check.notes.size();
    return row < 0 ? nullptr : &check.result.findings[static_cast<std::size_t>(row)];
}

QString FindingsModel::outcome() const
{
    int count = 0;
    int hindered = 0;
    for (const Check& check : m_checks) {
        count += check.result.count();
        hindered += check.result.hindrance.isEmpty() ? 0 : 1;
    }
    QString found = count == 0   ? tr("Nothing was found.")
                    : count == 1 ? tr("There is 1 finding.")
                                 : tr("There are %n findings.", nullptr, count);
    if (hindered == 0) return found;
    return found + u' ' +
           (hindered == 1 ? tr("1 check could not be made to its end.")
                          : tr("%n checks could not be made to their end.", nullptr, hindered));
}

bool FindingsModel::isSettled(const QModelIndex& index) const
{
    return finding(index) != nullptr && checkAt(checkOf(index)).settled.contains(index.row());
}

void FindingsModel::settle(const QModelIndex& index)
{
    m_checks[static_cast<std::size_t>(checkOf(index))].settled.insert(index.row());
    Q_EMIT dataChanged(index.siblingAtColumn(textColumn), index.siblingAtColumn(stateColumn));
}

QString FindingsModel::text(const QModelIndexList& rows) const
{
    QModelIndexList sorted = rows;
    const auto place = [](const QModelIndex& index) {
        const bool isCheck = index.internalId() == 0;
        return std::pair(isCheck ? index.row() : checkOf(index), isCheck ? -1 : index.row());
    };
    std::sort(sorted.begin(), sorted.end(), [&place](const QModelIndex& one, const QModelIndex& other) {
        return place(one) < place(other);
    });
    QString text;
    int whole = -1; // the check of which every line is there already
    for (const QModelIndex& row : sorted) {
        const auto [check, line] = place(row);
        const Check& shown = checkAt(check);
        if (line >= 0) {
            if (check != whole) text += lineText(shown, line) + u'\n';
            continue;
        }
        whole = check;
        text += QStringLiteral("%1: %2\n").arg(checkCaption(shown.result.topic), stateText(shown));
        for (int each = 0; each < shown.lines(); ++each)
            text += u'\t' + lineText(shown, each) + u'\n';
    }
    return text;
}

QString FindingsModel::stateText(const Check& check)
{
    switch (check.state) {
    case State::Waiting:
        return tr("Waiting");
    case State::Running:
        return tr("Running …");
    case State::Stopped:
        return tr("Stopped");
    case State::Made:
        break;
    }
    const int count = check.result.count();
    if (!check.result.hindrance.isEmpty()) {
        return count == 0   ? tr("Could not be made")
               : count == 1 ? tr("1 finding, not finished")
                            : tr("%n findings, not finished", nullptr, count);
    }
    return count == 0   ? tr("Nothing found")
           : count == 1 ? tr("1 finding")
                        : tr("%n findings", nullptr, count);
}

QVariant FindingsModel::stateIcon(const Check& check)
{
    if (check.state != State::Made) {
        // keeps the rows as high, and the texts where they are, when the icons come
        QPixmap nothing(iconWidth, iconWidth);
        nothing.fill(Qt::transparent);
        return nothing;
    }
    const bool isSound = check.result.findings.empty() && check.result.hindrance.isEmpty();
    return IconSet::themeIcon(isSound ? QStringLiteral("checkmark") : QStringLiteral("data-warning"));
}

QString FindingsModel::lineText(const Check& check, int line)
{
    const auto row = line - check.notes.size();
    return row < 0 ? check.notes[line] : check.result.findings[static_cast<std::size_t>(row)].text;
}

QModelIndex FindingsModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent)) return {};
    return createIndex(row, column, parent.isValid() ? identifierOf(parent.row()) : 0);
}

QModelIndex FindingsModel::parent(const QModelIndex& index) const
{
    if (!index.isValid() || index.internalId() == 0) return {};
    return createIndex(checkOf(index), textColumn, quintptr(0));
}

int FindingsModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid()) return static_cast<int>(m_checks.size());
    return parent.internalId() == 0 && parent.column() == textColumn ? checkAt(parent.row()).lines() : 0;
}

int FindingsModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 2;
}

QVariant FindingsModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const bool isState = index.column() == stateColumn;
    const bool isCheck = index.internalId() == 0;
    const Check& check = checkAt(isCheck ? index.row() : checkOf(index));
    if (role == Qt::DecorationRole) return isCheck && isState ? stateIcon(check) : QVariant();
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    QString text;
    if (isCheck)
        text = isState ? stateText(check) : checkCaption(check.result.topic);
    else if (!isState)
        text = lineText(check, index.row());
    else if (isSettled(index))
        text = tr("Done");
    return role == Qt::DisplayRole ? text : PlainToolTip::text(text);
}

QVariant FindingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return section == textColumn ? tr("Check") : tr("Result");
}
