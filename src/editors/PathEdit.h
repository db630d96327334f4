// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "widgets/LineEdit.h"

/// A line for the path of a file, which is typed, pasted or set.
class PathEdit final : public LineEdit
{
    Q_OBJECT

public:
    explicit PathEdit(QWidget* parent);

    /// The path. What was typed may have been copied from a file manager or a terminal, so it is stripped of
    /// what these put around a path; a path that the program set is returned as it is.
    [[nodiscard]] QString path() const;
};
