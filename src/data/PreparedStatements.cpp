// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/PreparedStatements.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t mostIdle = 16;

ColumnForm formOf(const EngineStatement& statement, int column, const Catalog& catalog)
{
    const QString type = statement.declaredType(column);
    return type.isEmpty() ? catalog.formByName(statement.columnName(column))
                          : Catalog::formOfDeclaredType(type);
}

} // namespace

PreparedStatement::PreparedStatement(EngineStatement prepared, const Catalog& catalog)
    : statement(std::move(prepared))
{
    const int count = statement.columnCount();
    for (int i = 0; i < count; ++i) {
        names.push_back(statement.columnName(i));
        forms.push_back(formOf(statement, i, catalog));
    }
}

void PreparedStatements::Return::operator()(PreparedStatement* statement) const
{
    std::unique_ptr<PreparedStatement> returned(statement);
    const auto home = owner.lock();
    if (!home) return;
    // a statement that has not ended would keep the file from being written
    returned->statement.reset();
    home->m_idle.push_front({shape, std::move(returned)});
    if (home->m_idle.size() > mostIdle) home->m_idle.pop_back();
}

PreparedStatements::Loan PreparedStatements::take(const std::shared_ptr<PreparedStatements>& owner,
                                                  const QString& shape)
{
    auto& idle = owner->m_idle;
    const auto found =
        std::find_if(idle.begin(), idle.end(), [&](const Idle& entry) { return entry.shape == shape; });
    if (found == idle.end()) return {nullptr, Return{}};
    Loan loan(found->statement.release(), Return{owner, shape});
    idle.erase(found);
    return loan;
}

PreparedStatements::Loan PreparedStatements::lend(const std::shared_ptr<PreparedStatements>& owner,
                                                  const QString& shape, PreparedStatement&& statement)
{
    return {std::make_unique<PreparedStatement>(std::move(statement)).release(), Return{owner, shape}};
}
