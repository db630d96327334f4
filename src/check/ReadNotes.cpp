// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/ReadNotes.h"

#include <QDir>
#include <QFileInfo>

ReadNotes::ReadNotes(const QString& file)
{
    if (file.isEmpty()) return;
    QDir().mkpath(QFileInfo(file).path());
    m_file.setFileName(file);
    if (!m_file.open(QIODevice::ReadWrite | QIODevice::Append)) return;
    m_file.seek(0);
    while (!m_file.atEnd()) {
        const QByteArray line = m_file.readLine();
        // the last line may have been cut off
        const QByteArrayList parts = line.chopped(line.endsWith('\n') ? 1 : 0).split('\t');
        if (parts.size() != 4 || !line.endsWith('\n')) continue;
        m_known.insert(QString::fromUtf8(QByteArray::fromPercentEncoding(parts[3])),
                       {parts[0].toLongLong(), parts[1].toLongLong(), QByteArray::fromHex(parts[2])});
    }
}

void ReadNotes::add(const QString& name, const State& state)
{
    if (!m_file.isOpen()) return;
    m_file.write(QByteArray::number(state.size) + '\t' + QByteArray::number(state.modified) + '\t' +
                 state.sha256.toHex() + '\t' + name.toUtf8().toPercentEncoding("/ ") + '\n');
}

void ReadNotes::remove()
{
    if (m_file.isOpen()) m_file.remove();
}
