// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/PickList.h"

class QWidget;

/// Lets the user choose several records of a kind at once; a dialog of the editors does.
class RecordPicker
{
public:
    virtual ~RecordPicker() = default;

    /// Opens over `window`. Returns what is chosen afterwards, or `chosen` itself if the user changed their
    /// mind. City locations are named `city, state`. Failures show their own message.
    virtual PickedItems pick(PickListKind kind, const PickedItems& chosen, QWidget* window) = 0;

protected:
    RecordPicker() = default;
    RecordPicker(const RecordPicker&) = default;
    RecordPicker& operator=(const RecordPicker&) = default;
};
