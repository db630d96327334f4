// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "browse/list/RecordListModel.h"
#include "browse/list/RecordListView.h"

#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

TEST(ListModel, KeepsItsPromisesWhileItFillsSortsAndFilters)
{
    Journey journey;
    journey.addDocuments(2000);
    journey.start();
    auto& model = dynamic_cast<RecordListModel&>(*journey.list().model());
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QSignalSpy batches(&model, &QAbstractItemModel::rowsInserted);
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(model.rowCount(), 2000);
    EXPECT_LE(batches.count(), 4) << "rows are made known in growing batches";
    EXPECT_GE(batches.count(), 2) << "and not only when all are there";

    const QPersistentModelIndex kept = model.index(7, 0);
    const QString name = kept.data().toString();
    model.order(ListSort{0, true});
    EXPECT_EQ(kept.data().toString(), name);
    EXPECT_EQ(kept.row(), 1992);
    model.order(std::nullopt);
    EXPECT_EQ(kept.row(), 7);
    EXPECT_EQ(model.rowOf(model.identifier(1234)), 1234);
    EXPECT_EQ(model.rowOf(5), -1);

    // words that the user types while the list is still being read
    auto& field = journey.find<QLineEdit>("txtFilter");
    int early = -1;
    QTimer::singleShot(0, &model, [&] {
        journey.trigger("mnuSearchFilter");
        QTest::keyClicks(&field, QStringLiteral("99"));
        early = model.rowCount();
    });
    journey.trigger("mnuViewDocuments");
    const std::string all = journey.rows("SELECT COUNT(*) FROM Document WHERE DocumentName LIKE '%99%'");
    EXPECT_EQ(std::to_string(model.rowCount()), all);
    EXPECT_GT(early, 0);
    EXPECT_LT(early, model.rowCount());
    EXPECT_TRUE(field.hasFocus());

    const QPersistentModelIndex second = model.index(1, 0);
    model.order(ListSort{0, true});
    EXPECT_EQ(second.row(), model.rowCount() - 2);
    model.setFilter(FilterWords(QStringLiteral("99 -19")));
    EXPECT_FALSE(second.isValid());
    EXPECT_EQ(model.index(0, 0).data().toString().toStdString(), "Document 999") << "still sorted";
    EXPECT_EQ(model.rowOf(model.identifier(3)), 3);
    EXPECT_EQ(model.rowOf(199), -1);
    journey.trigger("mnuViewEvents");
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_FALSE(kept.isValid());
}

} // namespace
