// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/Catalog.h"
#include "data/EngineStatement.h"

#include <QString>

#include <list>
#include <memory>
#include <vector>

/// A statement that reads, ready to run, with what its columns are called and how they are held.
struct PreparedStatement
{
    PreparedStatement(EngineStatement prepared, const Catalog& catalog);

    EngineStatement statement;
    std::vector<QString> names;
    std::vector<ColumnForm> forms;
};

/// The statements that were read last, kept prepared: for most of them, preparing takes longer than running.
/// Each is lent to one reader at a time and returned when that reader goes, unless the file was
/// closed meanwhile.
class PreparedStatements
{
public:
    struct Return
    {
        std::weak_ptr<PreparedStatements> owner;
        QString shape;
        void operator()(PreparedStatement* statement) const;
    };
    using Loan = std::unique_ptr<PreparedStatement, Return>;

    /// A statement of that shape that is not being read; null if there is none.
    [[nodiscard]] static Loan take(const std::shared_ptr<PreparedStatements>& owner, const QString& shape);

    /// Lends a new statement.
    [[nodiscard]] static Loan lend(const std::shared_ptr<PreparedStatements>& owner, const QString& shape,
                                   PreparedStatement&& statement);

private:
    struct Idle
    {
        QString shape;
        std::unique_ptr<PreparedStatement> statement;
    };
    std::list<Idle> m_idle; ///< the last to come back first
};
