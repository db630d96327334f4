#pragma once

#include "platform/Platform.h"
#include "views/RecordPicker.h"

struct ProgramState;

/// Lets other windows choose records with the dialog that the editors choose theirs with.
class DialogRecordPicker final : public RecordPicker
{
public:
    /// The state must outlive the picker.
    DialogRecordPicker(const Platform& platform, ProgramState& state) : m_platform(platform), m_state(state)
    {
    }

    PickedItems pick(PickListKind kind, const PickedItems& chosen, QWidget* window) override;

private:
    Platform m_platform;
    ProgramState& m_state;
};
