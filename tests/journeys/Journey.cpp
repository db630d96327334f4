// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"

DatabaseConverter::Result NoConverter::convert(const QString& source, const QString& /*target*/,
                                               bool /*replace*/)
{
    ADD_FAILURE() << "not meant to be converted: " << source.toStdString();
    return {};
}

Journey::Journey()
{
    QDir().mkpath(dataFolder() + u"documents"_s);
    QDir().mkpath(mapsFolder());
    for (const char* name : {"states.shp", "states.shx", "states.dbf"})
        QFile::copy(QStringLiteral(ORVIK_MAPS "/") + QLatin1StringView(name),
                    mapsFolder() + QLatin1StringView(name));
}

void Journey::start(const QString& databaseName, const StartRequest& request)
{
    if (databaseName == u"test.sqlite"_s) {
        QFile::link(database.fileName(), dataFolder() + databaseName);
    }
    desktop.setDatabase(databaseName);
    program.emplace(desktop.platform(), *converter, ProgramFolder(database.folder()), QString());
    program->Main(request);
    // keys reach the window's commands only while it is active
    program->window()->activateWindow();
    if (!QTest::qWaitForWindowActive(program->window())) throw std::runtime_error("the window is not active");
}

void Journey::idle()
{
    QEventLoop loop;
    QTimer clock;
    int turns = 0;
    QObject::connect(&clock, &QTimer::timeout, [&] {
        if (++turns == 10) loop.quit();
    });
    clock.start(0);
    loop.exec();
}

void Journey::addDocuments(int count)
{
    database.run(u"WITH RECURSIVE n(i) AS (VALUES (100) UNION ALL SELECT i + 1 FROM n WHERE i < 99 + %1) "
                 "INSERT INTO Document (DocumentID, DocumentName, dStatus) "
                 "SELECT i, 'Document ' || i, 'ACTIVE' FROM n"_s.arg(count));
}

void Journey::select(const char* name)
{
    const QModelIndexList found =
        list().model()->match(list().model()->index(0, 0), Qt::DisplayRole, QString::fromUtf8(name), 1,
                              Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (found.isEmpty()) throw std::runtime_error(std::string("no such row: ") + name);
    list().scrollTo(found.front());
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().visualRect(found.front()).center());
}

std::string Journey::selected()
{
    QStringList names;
    for (int row = 0; row < list().model()->rowCount(); ++row) {
        const QModelIndex index = list().model()->index(row, 0);
        if (list().selectionModel()->isSelected(index)) names << index.data().toString();
    }
    return names.join(u'|').toStdString();
}

void Journey::inDialog(const char* name, const char* command, const std::function<void(OpenDialog&)>& work)
{
    ::inDialog(
        name, [&] { trigger(command); }, work);
}

void Journey::widenTimeline(int pixels)
{
    QTest::qWait(0);
    QWidget& window = *program->window();
    window.resize(window.width() + pixels - find<QWidget>("picTimeline").width(), 800);
    QTest::qWait(0);
    if (find<QWidget>("picTimeline").width() != pixels) throw std::runtime_error("the window did not follow");
}

std::string Journey::column(int column)
{
    QStringList texts;
    const QAbstractItemModel& model = *list().model();
    for (int row = 0; row < model.rowCount(); ++row)
        texts << model.index(row, column).data().toString();
    return texts.join(u'|').toStdString();
}

bool Journey::showsMarks()
{
    const QImage picture = list().grab().toImage();
    const QRgb mark = qRgb(255, 221, 87);
    for (int pixel = 0; pixel < picture.width() * picture.height(); ++pixel) {
        if (picture.pixel(pixel % picture.width(), pixel / picture.width()) == mark) return true;
    }
    return false;
}

QStringList Journey::dump()
{
    QStringList all;
    const auto ask = [this](const QString& statement) { return database.ask(statement).split(u'\n'); };
    for (const QString& table :
         ask(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name <> 'Journal'")))
        all << ask(QStringLiteral("SELECT quote('%1'), * FROM \"%1\"").arg(table));
    all.removeAll(QString());
    return all;
}

std::string Journey::historyMenu()
{
    QMenu& navigate = find<QMenu>("mnuNavigate");
    Q_EMIT navigate.aboutToShow();
    QStringList captions;
    for (const QAction* entry : find<QMenu>("mnuHistory").actions()) {
        captions << (entry->isChecked() ? u'[' + entry->text() + u']' : entry->text());
    }
    return captions.join(u'|').toStdString();
}
