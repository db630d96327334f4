#include "editors/DialogRecordPicker.h"

#include "editors/frmPicList.h"
#include "state/ProgramState.h"

clsAdvSearch::Items DialogRecordPicker::pick(Records records, const clsAdvSearch::Items& chosen,
                                             QWidget* window)
{
    m_state.chosen = chosen;
    frmPicList(m_platform, m_state.session, window)
        .showList(static_cast<PickListKind>(records), m_state.chosen);
    return m_state.chosen;
}
