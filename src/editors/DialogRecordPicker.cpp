// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/DialogRecordPicker.h"

#include "editors/frmPicList.h"

PickedItems DialogRecordPicker::pick(PickListKind kind, const PickedItems& chosen, QWidget* window)
{
    PickedItems picked = chosen;
    frmPicList(m_platform, m_session, window).showList(kind, picked);
    return picked;
}
