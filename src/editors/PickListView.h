// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTreeView>

/// A list with check boxes; the space bar toggles the ticks of all selected rows.
class PickListView final : public QTreeView
{
    Q_OBJECT

public:
    explicit PickListView(QWidget* parent);

Q_SIGNALS:
    void spacePressed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
