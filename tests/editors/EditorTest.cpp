// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/EditorTest.h"

EditorTest::EditorTest() : m_state(ProgramFolder(m_database.folder()))
{
    m_database.runFile("editors/rows/Editor.sql");
    m_state.session.open(m_database.fileName());
    m_clock.moment = QDateTime(QDate(2005, 6, 15), QTime(14, 3, 9));
    QDir().mkpath(m_database.folder() + u"/data/documents"_s);
    QDir().mkpath(m_database.folder() + u"/data/orgcharts"_s);
}

QString EditorTest::userFile(const QString& name, const QByteArray& content) const
{
    QString path = m_database.folder() + u"/user/"_s + name;
    writeFile(path, content);
    return path;
}

QByteArray EditorTest::stored(const QString& pathInData) const
{
    return contentOf(m_database.folder() + u"/data/"_s + pathInData);
}

void EditorTest::refuseRows(const QString& table, const QString& column, int number) const
{
    // sessions run no triggers but update indexes, and abs() of the smallest integer overflows
    const QString index = u"CREATE INDEX refuse ON %1 (abs(-9223372036854775807 - (%2 = %3)))"_s;
    m_database.run(index.arg(table, column).arg(number).toUtf8().constData());
}

void EditorTest::check(std::vector<CheckEntry>& entries, std::initializer_list<qint64> keys)
{
    for (CheckEntry& entry : entries) {
        entry.isChecked = std::find(keys.begin(), keys.end(), entry.entry.key) != keys.end();
    }
}

QString keysOf(const std::vector<ListEntry>& entries)
{
    QStringList keys;
    for (const ListEntry& entry : entries)
        keys << QString::number(entry.key);
    return keys.join(u' ');
}

QString keysOf(const std::vector<CheckEntry>& entries)
{
    std::vector<ListEntry> checked;
    for (const CheckEntry& entry : entries) {
        if (entry.isChecked) checked.push_back(entry.entry);
    }
    return keysOf(checked);
}

QString textsOf(const std::vector<ListEntry>& entries)
{
    QStringList texts;
    for (const ListEntry& entry : entries)
        texts << entry.display;
    return texts.join(u'|');
}
