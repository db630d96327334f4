// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "search/CriterionBox.h"

class QListWidget;

/// A criterion with a list of picked records, a button to pick more of them and one to clear the list.
class ChosenListCriterion final : public CriterionBox
{
    Q_OBJECT

public:
    /// The names and captions of the two buttons.
    struct Buttons
    {
        QString addName;
        QString addCaption;
        QString clearName;
        QString clearCaption;
    };

    ChosenListCriterion(const QString& stem, const QString& caption, const Buttons& buttons, QWidget* parent);

    [[nodiscard]] clsAdvSearch::Items items() const override;
    void setItems(const clsAdvSearch::Items& items) override;

Q_SIGNALS:
    /// The user wants to pick records for the list.
    void addPressed();

private:
    QListWidget* m_list;
};
