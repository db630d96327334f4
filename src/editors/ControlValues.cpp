// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/ControlValues.h"

#include "editors/ChartField.h"
#include "editors/CheckList.h"
#include "editors/EntryCombo.h"
#include "editors/FormControls.h"
#include "editors/LinkList.h"
#include "editors/PickerEdit.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>

void ControlValues::show(QLineEdit& line, const QString& text)
{
    line.setText(text);
}

void ControlValues::show(PickerEdit& picker, const QString& text)
{
    picker.showText(text);
}

void ControlValues::show(QPlainTextEdit& field, const QString& text)
{
    field.setPlainText(text);
}

void ControlValues::show(ChartField& chart, const QString& path)
{
    chart.setPath(path);
}

void ControlValues::show(QCheckBox& box, bool isSet)
{
    box.setChecked(isSet);
}

void ControlValues::show(EntryCombo& combo, qint64 key)
{
    combo.selectKey(key);
}

void ControlValues::show(LinkList& list, const std::vector<ListEntry>& entries)
{
    list.setEntries(entries);
}

void ControlValues::show(CheckList& list, const std::vector<CheckEntry>& entries)
{
    list.setEntries(entries);
}

void ControlValues::take(const QLineEdit& line, QString& text)
{
    text = line.text();
}

void ControlValues::take(const QPlainTextEdit& field, QString& text)
{
    text = FormControls::text(field, text);
}

void ControlValues::take(const ChartField& chart, QString& path)
{
    path = chart.path();
}

void ControlValues::take(const QCheckBox& box, bool& isSet)
{
    isSet = box.isChecked();
}

void ControlValues::take(const EntryCombo& combo, qint64& key)
{
    key = combo.key();
}

void ControlValues::take(const LinkList& list, std::vector<ListEntry>& entries)
{
    entries = list.entries();
}

void ControlValues::take(const CheckList& list, std::vector<CheckEntry>& entries)
{
    entries = list.entries();
}
