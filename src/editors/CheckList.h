// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"

#include <QListWidget>

#include <vector>

/// A list with a check box for each of its records. Each item carries the record's key behind a letter that
/// tells its kind, such as `v12` for a venue.
class CheckList final : public QListWidget
{
    Q_OBJECT

public:
    CheckList(QChar keyLetter, QWidget* parent);

    /// Shows those that are checked first. They keep their places while the user ticks.
    void setEntries(const std::vector<CheckEntry>& entries);

    /// Adds an entry behind the others, and shows it.
    void append(const CheckEntry& entry);

    /// In the order in which they were set.
    [[nodiscard]] std::vector<CheckEntry> entries() const;

    void untickAll();

    /// Whether the ticks can be changed; the list can be read and scrolled all the same.
    void setLocked(bool locked);

private:
    void addItem(const CheckEntry& entry, int place);

    QChar m_keyLetter;
};
