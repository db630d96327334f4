// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/TopicCheck.h"

#include "check/CheckTexts.h"
#include "util/Error.h"

#include <QLocale>

namespace {

constexpr std::size_t mostTold = 1000;

} // namespace

void TopicCheck::hinder(const Error& reason)
{
    if (m_result.hindrance.isEmpty()) m_result.hindrance = reason.description();
}

void TopicCheck::finish()
{
    if (m_result.more > 0) {
        const QLocale locale;
        if (!m_result.remark.isEmpty()) m_result.remark += u' ';
        m_result.remark +=
            CheckTexts::tr("Only the first %1 of %2 findings are listed.")
                .arg(locale.toString(m_result.findings.size()), locale.toString(m_result.count()));
    }
    m_result.isDone = true;
}

void TopicCheck::add(Finding finding)
{
    if (isFull())
        ++m_result.more;
    else
        m_result.findings.push_back(std::move(finding));
}

bool TopicCheck::isFull() const
{
    return m_result.findings.size() >= mostTold;
}
