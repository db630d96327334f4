// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

class QWidget;

/// What a window is made of, a line for each part in the order of its layouts: its properties if they differ
/// from those of a new widget of its Qt class, its colours, its rows, its commands and the order of the Tab
/// key. Nothing depends on fonts or pixels, nor on the names of the program's own classes.
QStringList portraitOf(const QWidget& window);

/// What a widget paints by itself: each call of its painter with pen, brush or text, equal ones counted.
QStringList paintingOf(QWidget& widget);

/// The texts that a window and all of its parts paint.
QStringList textsPaintedBy(QWidget& window);

/// Fails with a list of the lines that differ from those of `portraits/NAME.txt`. If ORVIK_RENEW_PORTRAITS is
/// set in the environment, writes that file instead; read what version control says of it before you commit
/// it.
void expectPortrait(const char* name, const QStringList& lines);
