// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"

#include <QString>

#include <vector>

class ChartField;
class CheckList;
class EntryCombo;
class LinkList;
class PickerEdit;
class QCheckBox;
class QLineEdit;
class QPlainTextEdit;

/// How each kind of control shows a value of a record, and what it holds when the user is done with it.
namespace ControlValues {

void show(QLineEdit& line, const QString& text);
void show(PickerEdit& picker, const QString& text);
void show(QPlainTextEdit& field, const QString& text);
void show(ChartField& chart, const QString& path);
void show(QCheckBox& box, bool isSet);
void show(EntryCombo& combo, qint64 key);
void show(LinkList& list, const std::vector<ListEntry>& entries);
void show(CheckList& list, const std::vector<CheckEntry>& entries);

/// Each replaces the value of the record by that of the control.
void take(const QLineEdit& line, QString& text);
void take(const QPlainTextEdit& field, QString& text);
void take(const ChartField& chart, QString& path);
void take(const QCheckBox& box, bool& isSet);
void take(const EntryCombo& combo, qint64& key);
void take(const LinkList& list, std::vector<ListEntry>& entries);
void take(const CheckList& list, std::vector<CheckEntry>& entries);

} // namespace ControlValues
