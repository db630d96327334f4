// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "lists/ListKind.h"
#include "lists/LookupEntry.h"
#include "platform/Platform.h"

#include <QDialog>
#include <QPixmap>

#include <functional>
#include <optional>
#include <vector>

class ListsView;
class QPushButton;

/// The modal dialog in which the entry is chosen that another one is merged into. Lives for one choice.
class frmMergeEntry final : public QDialog
{
    Q_OBJECT

public:
    frmMergeEntry(const Platform& platform, std::function<QPixmap(qint64)> marker, QWidget* parent);

    /// Offers these entries for `from`, and returns the key of the chosen one.
    std::optional<qint64> choose(ListKind list, const LookupEntry& from, std::vector<LookupRow> others);

    void done(int result) override;

private:
    Platform m_platform;
    ListsView* m_entries;
    QPushButton* cmdOK;
};
