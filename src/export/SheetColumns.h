// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QTextDocument;
class QTextLength;

/// Makes the values of all sheets in a document begin at the same distance, whichever fields a record has.
void alignSheetValues(const QTextDocument& document, const QTextLength& captions, const QTextLength& values);
