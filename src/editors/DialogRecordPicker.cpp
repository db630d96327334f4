#include "editors/DialogRecordPicker.h"

#include "editors/frmPicList.h"

clsAdvSearch::Items DialogRecordPicker::pick(Records records, const clsAdvSearch::Items& chosen,
                                             QWidget* window)
{
    PickedItems picked = chosen;
    frmPicList(m_platform, m_session, window).showList(records, picked);
    return picked;
}
