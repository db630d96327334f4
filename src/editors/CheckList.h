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

    void setEntries(const std::vector<CheckEntry>& entries);
    [[nodiscard]] std::vector<CheckEntry> entries() const;

    void untickAll();

    /// Whether the ticks can be changed; the list can be read and scrolled all the same.
    void setLocked(bool locked);

private:
    QChar m_keyLetter;
};
