// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/RecordKind.h"

namespace {

QString recordWord(RecordKind kind)
{
    switch (kind) {
    case RecordKind::Document:
        return QStringLiteral("Document");
    case RecordKind::Event:
        return QStringLiteral("Event");
    case RecordKind::Organization:
        break;
    }
    return QStringLiteral("Organization");
}

} // namespace

RecordNames recordNames(RecordKind kind)
{
    const QString record = recordWord(kind);
    return {record, record + QStringLiteral("ID"), record + QStringLiteral("Name")};
}
