// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "search/CriterionBox.h"

#include <vector>

class QListWidget;

/// A criterion with a list of all rows of a lookup table, each with a check box.
class CheckListCriterion final : public CriterionBox
{
    Q_OBJECT

public:
    struct Entry
    {
        qint64 identifier = 0;
        QString name;
    };

    CheckListCriterion(const QString& stem, const QString& caption, QWidget* parent);

    /// Fills the list, in the order given, with nothing ticked.
    void setEntries(const std::vector<Entry>& entries);

    [[nodiscard]] clsAdvSearch::Items items() const override;
    void setItems(const clsAdvSearch::Items& items) override;

private:
    void tickAll(bool ticked);
    void countTicks();

    QListWidget* m_list;
    bool m_ticking = false; ///< while several entries change at once, which is announced once
};
