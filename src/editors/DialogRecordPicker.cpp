#include "editors/DialogRecordPicker.h"

#include "editors/frmPicList.h"
#include "state/ProgramState.h"

PickedItems DialogRecordPicker::pick(PickListKind kind, const PickedItems& chosen, QWidget* window)
{
    m_state.chosen = chosen;
    frmPicList(m_platform, m_state.session, window).showList(kind, m_state.chosen);
    return m_state.chosen;
}
