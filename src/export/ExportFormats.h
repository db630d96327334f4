// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "export/ExportFormat.h"

/// All formats, in the order in which the user is offered them.
[[nodiscard]] const std::vector<ExportFormat>& exportFormats();

/// The format of that name; null if there is none.
[[nodiscard]] const ExportFormat* exportFormat(const QString& name);
