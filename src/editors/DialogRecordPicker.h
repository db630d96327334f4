// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"
#include "views/RecordPicker.h"

class DatabaseSession;

/// Lets other windows choose records with the pick list of the editors.
class DialogRecordPicker final : public RecordPicker
{
public:
    /// The session must outlive the picker.
    DialogRecordPicker(const Platform& platform, DatabaseSession& session)
        : m_platform(platform), m_session(session)
    {
    }

    PickedItems pick(PickListKind kind, const PickedItems& chosen, QWidget* window) override;

private:
    Platform m_platform;
    DatabaseSession& m_session;
};
