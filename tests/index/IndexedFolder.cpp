// SPDX-License-Identifier: GPL-3.0-or-later

#include "index/IndexedFolder.h"

#include "support/Testing.h"

#include <QDateTime>
#include <QTimeZone>

namespace {

constexpr int patience = 60'000; ///< milliseconds

/// What a run that was ended had begun is taken back before the index can be read, which is a write.
SQLite::Database opened(const QString& index)
{
    return SQLite::Database(index.toStdString(), SQLite::OPEN_READWRITE);
}

} // namespace

IndexedFolder::IndexedFolder()
{
    QDir(m_folder.path()).mkdir(u"documents"_s);
}

QString IndexedFolder::path(const QString& name) const
{
    return m_folder.filePath(u"documents/"_s + name);
}

void IndexedFolder::write(const QString& name, const QByteArray& content, int seconds) const
{
    writeFile(path(name), content);
    QFile file(path(name));
    const QDateTime longAgo = QDateTime(QDate(2001, 2, 3), QTime(4, 5), Qt::UTC).addSecs(seconds);
    if (!file.open(QIODevice::ReadWrite) || !file.setFileTime(longAgo, QFile::FileModificationTime))
        throw std::runtime_error("cannot set the time of " + name.toStdString());
}

void IndexedFolder::replacePdfReader(const QByteArray& script)
{
    m_programs = m_folder.filePath(u"programs"_s);
    const QString program = m_programs + u"/pdftotext"_s;
    QDir().mkpath(m_programs);
    QFile::remove(program);
    if (script.isEmpty()) return;
    writeFile(program, "#!/bin/sh\n" + script);
    QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
}

void IndexedFolder::start(QProcess& process, const QStringList& names) const
{
    if (!m_programs.isEmpty()) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"PATH"_s, m_programs);
        process.setProcessEnvironment(environment);
    }
    process.start(QStringLiteral(ORVIK_INDEX_TOOL), {index(), m_folder.filePath(u"documents"_s)});
    for (const QString& name : names)
        process.write(name.toUtf8() + '\0');
    process.closeWriteChannel();
}

bool IndexedFolder::isWhole() const
{
    return opened(index()).execAndGet("PRAGMA integrity_check").getString() == "ok";
}

IndexRun IndexedFolder::run(const QStringList& names) const
{
    QProcess process;
    start(process, names);
    IndexRun run;
    if (!process.waitForFinished(patience)) return run;
    if (process.exitStatus() == QProcess::NormalExit) run.status = process.exitCode();
    run.output = process.readAllStandardOutput();
    EXPECT_TRUE(isWhole());
    const char* const lostTexts = "SELECT count(*) FROM FileText WHERE rowid NOT IN "
                                  "(SELECT FileID FROM File WHERE Failure IS NULL)";
    EXPECT_EQ(opened(index()).execAndGet(lostTexts).getInt(), 0);
    return run;
}

QMap<QString, QString> IndexedFolder::contents() const
{
    SQLite::Database database = opened(index());
    SQLite::Statement rows(database, "SELECT Name, ifnull('! ' || Failure, Text) FROM File "
                                     "LEFT JOIN FileText ON FileText.rowid = FileID");
    QMap<QString, QString> contents;
    while (rows.executeStep())
        contents[QString::fromUtf8(rows.getColumn(0).getText())] =
            QString::fromUtf8(rows.getColumn(1).getText());
    return contents;
}

QStringList IndexedFolder::holding(const QString& word) const
{
    SQLite::Database database = opened(index());
    SQLite::Statement rows(database, "SELECT Name FROM FileText JOIN File ON FileID = FileText.rowid "
                                     "WHERE FileText MATCH ? ORDER BY Name");
    rows.bind(1, u"\"%1\""_s.arg(word).toStdString());
    QStringList names;
    while (rows.executeStep())
        names += QString::fromUtf8(rows.getColumn(0).getText());
    return names;
}

QByteArray pdfOf(const QByteArray& text, const QByteArray& inTrailer)
{
    const QByteArray content = "BT /F1 12 Tf 72 770 Td (" + text + ") Tj ET";
    return "%PDF-1.4\n"
           "1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
           "2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj\n"
           "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]/Contents 4 0 R"
           "/Resources<</Font<</F1 5 0 R>>>>>>endobj\n"
           "4 0 obj<</Length " +
           QByteArray::number(content.size()) + ">>stream\n" + content +
           "\nendstream endobj\n"
           "5 0 obj<</Type/Font/Subtype/Type1/BaseFont/Helvetica/Encoding/WinAnsiEncoding>>endobj\n"
           "trailer<</Size 6/Root 1 0 R" +
           inTrailer + ">>\n%%EOF\n";
}
