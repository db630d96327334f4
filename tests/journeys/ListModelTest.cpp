// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "browse/list/RecordListModel.h"
#include "browse/list/RecordListView.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

TEST(ListModel, KeepsItsPromisesWhileItFillsAndSorts)
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
    journey.trigger("mnuViewEvents");
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_FALSE(kept.isValid());
}

} // namespace
