// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "export/ExportTable.h"

#include <QString>

class SettingsStore;

/// What the user chose when they last exported records of a kind. A value that is absent from the settings,
/// or that cannot be understood, is the default.
struct ExportChoices
{
    static ExportChoices read(SettingsStore& settings, RecordKind kind);
    void write(SettingsStore& settings, RecordKind kind) const;

    QString format; ///< the name of a format that is for the kind
    FieldChoice fields = FieldChoice::All;
    bool forSpreadsheet = true;
    bool hasPicture = true;
};
