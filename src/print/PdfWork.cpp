// SPDX-License-Identifier: GPL-3.0-or-later

#include "print/PdfWork.h"

#include "print/PrintTexts.h"
#include "print/PrintedPages.h"

#include <QGuiApplication>

PdfWork::Device::Device(const QString& file) : m_file(file)
{
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

void PdfWork::Device::check() const
{
    if (m_failure) std::rethrow_exception(m_failure);
}

qint64 PdfWork::Device::readData(char* /*data*/, qint64 /*size*/)
{
    return -1;
}

qint64 PdfWork::Device::writeData(const char* data, qint64 size)
{
    if (m_failure) return -1;
    try {
        m_file.write({data, static_cast<std::size_t>(size)});
    } catch (...) {
        // it must not pass through Qt
        m_failure = std::current_exception();
        return -1;
    }
    return size;
}

PdfWork::PdfWork(PrintedPages& pages, const QPageLayout& layout, const QString& file)
    : m_device(file), m_writer(&m_device), m_print(PrintTexts::tr("Print to PDF"), pages, m_writer, {})
{
    m_writer.setResolution(PrintWork::resolution());
    m_writer.setPageLayout(layout);
    m_writer.setTitle(pages.caption());
    m_writer.setCreator(QGuiApplication::applicationDisplayName());
}

bool PdfWork::step()
{
    const bool isMore = m_print.step();
    m_device.check();
    if (!isMore) m_device.finish();
    return isMore;
}
