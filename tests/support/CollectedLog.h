// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLoggingCategory>
#include <QStringList>

/// Collects what is logged as long as it lives; rules that a test sets end with it.
class CollectedLog
{
public:
    CollectedLog()
    {
        s_lines.clear();
        m_before =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext& context, const QString& text) {
                s_lines << QString::fromLatin1(context.category) + QStringLiteral(": ") + text;
            });
    }
    ~CollectedLog()
    {
        qInstallMessageHandler(m_before);
        QLoggingCategory::setFilterRules({});
    }
    CollectedLog(const CollectedLog&) = delete;
    CollectedLog& operator=(const CollectedLog&) = delete;

    [[nodiscard]] static const QStringList& lines() { return s_lines; }

private:
    static inline QStringList s_lines;
    QtMessageHandler m_before = nullptr;
};
