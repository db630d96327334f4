// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/Finding.h"

#include <QAbstractItemModel>
#include <QStringList>

#include <set>
#include <vector>

/// The checks of a collection and how far they are and, below each of them, what the user should know of it
/// and what it found.
class FindingsModel final : public QAbstractItemModel
{
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    static constexpr int textColumn = 0;
    static constexpr int stateColumn = 1;

    /// Shows these checks as not made yet.
    void setChecks(const std::vector<CheckResult>& checks);

    /// Shows that one check is being made.
    void begin(int check);

    /// Shows what came of a check.
    void finish(int check, CheckResult result);

    /// Whether it is shown what came of a check.
    [[nodiscard]] bool isFinished(int check) const { return checkAt(check).state == State::Made; }

    /// Shows that the checks that were not made will not be.
    void stop();

    /// The finding of a row; null for other rows. Valid until the checks are replaced.
    [[nodiscard]] const Finding* finding(const QModelIndex& index) const;

    /// A sentence that says how many findings there are, and how many checks could not be made.
    [[nodiscard]] QString outcome() const;

    /// Whether something was done about a finding since it was found.
    [[nodiscard]] bool isSettled(const QModelIndex& index) const;
    void settle(const QModelIndex& index);

    /// The rows as text, one line each; that of a check brings all its findings.
    [[nodiscard]] QString text(const QModelIndexList& rows) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    enum class State
    {
        Waiting,
        Running,
        Made,
        Stopped
    };

    struct Check
    {
        CheckResult result;
        State state = State::Waiting;
        QStringList notes = {}; ///< shown before the findings
        std::set<int> settled = {};

        [[nodiscard]] int lines() const
        {
            return static_cast<int>(notes.size()) + static_cast<int>(result.findings.size());
        }
    };

    [[nodiscard]] static QString stateText(const Check& check);
    [[nodiscard]] static QString lineText(const Check& check, int line);
    [[nodiscard]] static QVariant stateIcon(const Check& check);
    [[nodiscard]] const Check& checkAt(int row) const { return m_checks[static_cast<std::size_t>(row)]; }
    void setState(int check, State state);

    std::vector<Check> m_checks;
};
