#pragma once

#include "records/PickList.h"
#include "views/clsAdvSearch.h"

class QWidget;

/// Lets the user choose several records of a kind at once; a dialog of the editors does.
class RecordPicker
{
public:
    using Records = PickListKind;

    virtual ~RecordPicker() = default;

    /// Asks over the window that wants to know. What is chosen afterwards; `chosen` itself where the user
    /// changed their mind. City locations are named `city, state`. Failures show their own message.
    virtual clsAdvSearch::Items pick(Records records, const clsAdvSearch::Items& chosen, QWidget* window) = 0;

protected:
    RecordPicker() = default;
    RecordPicker(const RecordPicker&) = default;
    RecordPicker& operator=(const RecordPicker&) = default;
};
