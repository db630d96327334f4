// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "views/clsAdvSearch.h"

#include <QWidget>

class QBoxLayout;
class QCheckBox;
class QFrame;
class QLabel;

/// One criterion of the advanced search: a check box that switches it on, and below it a frame with the
/// possible choices and the number of those made. Switched off, it keeps its choices, but the search ignores
/// them.
class CriterionBox : public QWidget
{
    Q_OBJECT

public:
    [[nodiscard]] bool isOn() const;
    void setOn(bool on);

    /// The choices, in the order of the list. Throws Error 6 for an identifier beyond 16 bits.
    [[nodiscard]] virtual clsAdvSearch::Items items() const = 0;
    virtual void setItems(const clsAdvSearch::Items& items) = 0;

Q_SIGNALS:
    /// The user switched it on or off, or changed the choices.
    void changed();

protected:
    /// The names of the parts end in `stem`, as `chkDocVenues` and `fraDocVenues` do.
    CriterionBox(const QString& stem, const QString& caption, QWidget* parent);

    [[nodiscard]] QFrame* frame() const { return m_frame; }
    [[nodiscard]] QBoxLayout* frameLayout() const { return m_frameLayout; }

    /// The label of the count, for the criterion to place in its frame.
    [[nodiscard]] QLabel* countLabel() const { return m_count; }
    void showCount(const QString& text);

private:
    QCheckBox* m_check;
    QFrame* m_frame;
    QBoxLayout* m_frameLayout;
    QLabel* m_count;
};
