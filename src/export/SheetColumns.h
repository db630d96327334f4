// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QTextDocument;

/// Makes the values of all sheets in a document begin at the same distance, whichever fields a record has.
/// `captionPercent` is the part of the width that the captions take.
void alignSheetValues(const QTextDocument& document, double captionPercent);
