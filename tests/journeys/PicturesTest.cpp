// SPDX-License-Identifier: GPL-3.0-or-later

// The pictures of the graphics as they leave the program.

#include "MapJourney.h"
#include "chart/ChartPane.h"
#include "chart/ChartView.h"
#include "map/MapPane.h"
#include "support/SizeLimit.h"
#include "timeline/TimelinePanel.h"
#include "widgets/Paper.h"
#include "widgets/PictureImage.h"

namespace {

/// On a dark desktop.
class Pictures : public MapJourney
{
protected:
    Pictures()
    {
        QApplication::setPalette(
            QPalette(Qt::white, ground, Qt::gray, Qt::black, Qt::gray, Qt::white, Qt::white, ground, ground));
        journey.database.runFile("journeys/rows/Chart.sql");
        journey.database.runFile("journeys/rows/DrawnTimeline.sql");
        QDir().mkpath(path(""));
    }
    ~Pictures() override { QApplication::setPalette(before); }

    void view(const char* command)
    {
        if (!journey.program) journey.start();
        journey.trigger(command);
        QTest::qWait(0);
    }

    [[nodiscard]] QString path(const char* name) const
    {
        return journey.database.folder() + u"/pictures/"_s + QString::fromUtf8(name);
    }

    [[nodiscard]] std::string saved() const
    {
        return QDir(path("")).entryList(QDir::Files, QDir::Name).join(u'|').toStdString();
    }

    void saveAs(const char* name)
    {
        journey.desktop.fileDialogs.files = {name == nullptr ? QString() : path(name)};
        journey.trigger("mnuViewSavePicture");
        journey.desktop.messages.finish();
    }

    std::string said() { return journey.find<QLabel>("pnlSaved").text().toStdString(); }

    /// What the picture saved under a name says, text by text, and its frame: title, description, size.
    std::set<QString> textsOf(const char* name)
    {
        std::set<QString> texts;
        QXmlStreamReader svg(contentOf(path(name)));
        while (!svg.atEnd()) {
            svg.readNext();
            EXPECT_NE(svg.name(), u"image"_s);
            if (!svg.isStartElement()) continue;
            if (svg.name() == u"svg"_s) texts.insert(svg.attributes().value(u"viewBox"_s).toString());
            QStringList places =
                svg.attributes().value(u"d"_s).toString().split(QRegularExpression(u"[MLCZ, ]"_s));
            places << svg.attributes().value(u"cx"_s).toString();
            for (const QString& place : places)
                EXPECT_GT(place.toDouble(), -0.1) << "beyond the edge, where not every program cuts it off";
            if (svg.name() == u"text"_s || svg.name() == u"title"_s || svg.name() == u"desc"_s)
                texts.insert(svg.readElementText());
        }
        EXPECT_FALSE(svg.hasError()) << svg.errorString().toStdString();
        return texts;
    }

    static void expectTexts(const std::set<QString>& texts, const QStringList& expected)
    {
        for (const QString& text : expected)
            EXPECT_EQ(texts.count(text), 1u) << text.toStdString();
    }

    static std::string at(const QImage& image, double x, double y)
    {
        return image.pixelColor(static_cast<int>(2 * x), static_cast<int>(2 * y)).name().toStdString();
    }

    /// Returns the image of a picture, which must be at twice the size and show nothing of the desktop.
    static QImage imageOf(const GraphicPicture& picture)
    {
        QImage image = PictureImage::image(picture);
        EXPECT_EQ(image.size(), picture.size * 2);
        bool isDark = false;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                isDark = isDark || image.pixelColor(x, y) == ground;
        }
        EXPECT_FALSE(isDark);
        return image;
    }

    static constexpr QColor ground{31, 29, 33};
    QPalette before = QApplication::palette();
};

TEST_F(Pictures, ShowTheTimelineDarkOnWhiteAndNothingAsSelected)
{
    view("mnuViewEvents");
    journey.widenTimeline(3 * 385);
    journey.select("Flood");
    auto& panel = journey.find<TimelinePanel>("pnlTimeline");
    ASSERT_TRUE(panel.timeline().lanes()[0].isSelected);
    const GraphicPicture picture = *panel.picture();
    const int lanes = journey.find<QWidget>("imgTime").height();
    EXPECT_EQ(picture.size.width(), 3 * 385);
    EXPECT_GT(picture.size.height(), lanes + 5 * 17 + 17) << "and a legend";
    const QImage image = imageOf(picture);
    const struct
    {
        double x;
        double y;
        const char* colour;
    } places[] = {
        {380, 3, "#000080"},          {387, 3, "#ffffff"},          {7, 8, "#ffc828"},
        {75, 17 + 3, "#ffffff"},      {79, 17 + 3, "#000080"},      {536, 17 + 3, "#000080"},
        {540, 17 + 3, "#ffffff"},     {154, 2 * 17 + 8, "#ffc828"}, {154 + 5, 2 * 17 + 8, "#000080"},
        {231, 3 * 17 + 8, "#000080"}, {1153, 4 * 17 + 3, "#000080"}};
    for (const auto& [x, y, colour] : places)
        EXPECT_EQ(at(image, x, lanes + y), colour) << x << ' ' << y;
}

TEST_F(Pictures, ShowEveryMarkerInSightOfTheMap)
{
    journey.database.run(
        u"INSERT INTO Organization (OrganizationID, OrganizationName, FunctionID, Lat, Lon, Status) "
        "VALUES (9, 'Theta', 3, 38.81, -90.3, 'ACTIVE')"_s);
    view("mnuViewOrganizations");
    journey.select("Epsilon");
    ASSERT_TRUE(map().ringed());
    const GraphicPicture picture = *journey.find<MapPane>("MapPane").picture();
    EXPECT_EQ(picture.size.width(), map().width());
    EXPECT_GT(picture.size.height(), map().height() + 16) << "and a legend";
    const QImage image = imageOf(picture);
    const auto colourOf = [&](const char* place, QPointF away = {}) {
        const QPointF middle = map().positionOf(entry(place)) + away;
        return at(image, middle.x(), middle.y());
    };
    EXPECT_EQ(colourOf("Reno, NV: Law"), "#ff0000");
    EXPECT_EQ(colourOf("Reno, NV: Law", {-12, 0}), "#c0c0c0") << "the state beside it";
    EXPECT_EQ(colourOf("Dallas, TX: Law"), "#ff0000");
    EXPECT_EQ(colourOf("Austin, TX: Fire & Rescue"), "#008000") << "over that of another function";
    EXPECT_EQ(at(image, 3, map().height() - 4), "#ffffff") << "the sea";
    const QPoint covered = map().positionOf(entry("O'Fallon, MO: Law")).toPoint();
    EXPECT_EQ(at(image, covered.x(), covered.y()),
              map().grab().toImage().pixelColor(covered).name().toStdString())
        << "the same one of two lies over the other";
    for (double away = 6.5; away < 11; away += 0.5)
        EXPECT_NE(colourOf("Reno, NV: Law", {away, 0}), QColor(Qt::white).name().toStdString())
            << "no ring: " << away;
}

TEST_F(Pictures, ShowEveryBarOfAChartThatIsScrolled)
{
    constexpr int types = 90;
    for (int type = 10; type < 10 + types; ++type) {
        journey.database.run(
            u"INSERT INTO DocumentType VALUES (%1, 'Type %1 of many with a long name'); "
            "INSERT INTO DocumentTypes (DocumentID, DocumentTypeID) VALUES (2, %1)"_s.arg(type));
    }
    view("mnuViewDocuments");
    auto& chart = journey.find<ChartView>("MSChart1");
    ASSERT_GT(chart.width(), chart.viewport()->visibleRegion().boundingRect().width());
    chart.setCurrentBar(0);
    const GraphicPicture picture = *journey.find<ChartPane>("ChartPane").picture();
    EXPECT_EQ(picture.size.width(), chart.width());
    const QImage image = imageOf(picture);
    const QColor blue = Paper::palette().color(QPalette::Highlight);
    // the row of pixels with the most bars is one just above the axis
    int most = 0;
    for (int y = 0; y < image.height(); ++y) {
        int bars = 0;
        for (int x = 1; x < image.width(); ++x)
            bars += image.pixelColor(x, y) == blue && image.pixelColor(x - 1, y) != blue ? 1 : 0;
        most = std::max(most, bars);
    }
    EXPECT_EQ(most, types + 2);

    journey.trigger("chartHorizontal");
    QTest::qWait(0);
    const GraphicPicture lying = *journey.find<ChartPane>("ChartPane").picture();
    EXPECT_EQ(lying.size.width(), chart.width());
    EXPECT_GT(lying.size.height(), journey.find<ChartPane>("ChartPane").height());
    const QImage lain = imageOf(lying);
    int bars = 0;
    const int x = static_cast<int>(lain.width() * 0.5);
    for (int y = 1; y < lain.height(); ++y)
        bars += lain.pixelColor(x, y) == blue && lain.pixelColor(x, y - 1) != blue ? 1 : 0;
    EXPECT_EQ(bars, types + 2);
}

TEST_F(Pictures, SayEverythingAsText)
{
    journey.database.run(u"UPDATE Event SET EventName = 'A & <B> \u00E9\u0001' WHERE EventID = 3"_s);
    view("mnuViewEvents");
    journey.widenTimeline(3 * 385);
    saveAs("timeline.svg");
    expectTexts(textsOf("timeline.svg"),
                {u"Timeline"_s, u"View ALL Events"_s, u"Displaying 5 Events"_s, u"04/01/1927 06:02"_s,
                 u"06:05"_s, u"Flood"_s, u"A & <B> \u00E9"_s, u"Quake"_s, u"Drought -->"_s, u"Event"_s,
                 u"Event that takes no time"_s, u"Key event"_s});

    view("mnuViewOrganizations");
    saveAs("map.svg");
    expectTexts(textsOf("map.svg"), {u"Map"_s, u"View ALL Organizations"_s, u"Displaying 7 Organizations"_s,
                                     u"Relief (2)"_s, u"Fire & Rescue (1)"_s, u"Law (3)"_s});
    const qint64 whole = QFileInfo(path("map.svg")).size();
    for (int i = 0; i < 4; ++i)
        map().zoomIn();
    saveAs("map.svg");
    EXPECT_LT(QFileInfo(path("map.svg")).size(), whole / 2) << "only what is in sight";
    EXPECT_EQ(textsOf("map.svg").count(u"Nevada"_s), 0u);

    view("mnuViewDocuments");
    saveAs("chart.svg");
    const auto chart = textsOf("chart.svg");
    expectTexts(chart, {u"Chart"_s, u"View ALL Documents"_s, u"Documents by Type"_s, u"After-Action Report"_s,
                        u"3"_s, u"Maps & Charts"_s, u"1"_s});
    EXPECT_TRUE(contentOf(path("chart.svg")).contains("', sans-serif\"")) << "if the font is missing";
    EXPECT_EQ(contentOf(path("chart.svg")).count("Documents by Type"), 1);
    saveAs("chart.png");
    const QSize size = QImage(path("chart.png")).size() / 2;
    EXPECT_EQ(chart.count(u"0 0 %1 %2"_s.arg(size.width()).arg(size.height())), 1u) << "its own frame";
}

TEST_F(Pictures, AreSavedWhereTheUserSays)
{
    const QByteArray png = "\x89PNG";
    view("mnuViewOrganizations");
    saveAs(nullptr);
    EXPECT_EQ(saved(), "");
    saveAs("plain");
    EXPECT_EQ(said(), "Saved: plain.png");
    saveAs("map.Svg");
    saveAs("map.jpg");
    EXPECT_EQ(saved(), "map.Svg|map.jpg.png|plain.png");
    EXPECT_TRUE(contentOf(path("plain.png")).startsWith(png));
    EXPECT_TRUE(contentOf(path("map.jpg.png")).startsWith(png));
    EXPECT_TRUE(contentOf(path("map.Svg")).startsWith("<?xml"));

    const QByteArray kept = contentOf(path("map.Svg"));
    journey.desktop.messages.expectMessageBeginning(u"savePicture Error (27): "_s);
    {
        const SizeLimit full(4096);
        saveAs("map.Svg");
    }
    EXPECT_EQ(contentOf(path("map.Svg")), kept);
    EXPECT_EQ(saved(), "map.Svg|map.jpg.png|plain.png");

    journey.trigger("mnuViewCopyPicture");
    EXPECT_EQ(said(), "Picture copied");
    const QMimeData& copied = *QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(copied.imageData().value<QImage>().size(), QImage(path("plain.png")).size());
    EXPECT_TRUE(copied.data(u"image/svg+xml"_s).contains("<text"));

    // a caption is no file's name; and a graphic may show nothing
    const clsView events = journey.program->state().queries.all(RecordKind::Event);
    journey.program->state().history.addView(
        {ViewKind::Events, events.SQL, u"..a/b: \"cdef\"?\n "_s + u"😀"_s.repeated(90)});
    saveAs(nullptr);
    EXPECT_EQ(journey.desktop.fileDialogs.proposed.back(), u"a b cdef "_s + u"😀"_s.repeated(47) + u".png"_s);
    journey.database.run(u"UPDATE Event SET Status = 'DELETED'"_s);
    journey.trigger("mnuViewRefresh");
    for (const char* command : {"mnuViewCopyPicture", "mnuViewSavePicture"}) {
        journey.desktop.messages.expectMessage(
            u"The graphic shows nothing just now, so there is no picture of it."_s);
        journey.trigger(command);
        journey.desktop.messages.finish();
    }
}

} // namespace
