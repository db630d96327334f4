// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/UnfinishedFile.h"
#include "print/PrintWork.h"

#include <QIODevice>
#include <QPdfWriter>

#include <exception>
#include <optional>

class QPageLayout;

/// Writes pages as a PDF file. Nothing is left of it if that fails or is cancelled.
class PdfWork final : public SteppedWork
{
public:
    /// The pages must have begun with that layout, and outlive the work. Throws Error if the file cannot be
    /// written.
    PdfWork(PrintedPages& pages, const QPageLayout& layout, const QString& file);

    bool step() override;
    [[nodiscard]] QString title() const override { return m_print.title(); }
    [[nodiscard]] QString text() const override { return m_print.text(); }
    [[nodiscard]] std::optional<int> percent() const override { return m_print.percent(); }

private:
    /// Passes on to the file what Qt writes, and keeps the failure, of which Qt tells nobody.
    class Device final : public QIODevice
    {
    public:
        explicit Device(const QString& file);

        /// Throws what a write threw.
        void check() const;
        void finish() { m_file.finish(); }
        [[nodiscard]] bool isSequential() const override { return true; }

    protected:
        qint64 readData(char* data, qint64 size) override;
        qint64 writeData(const char* data, qint64 size) override;

    private:
        UnfinishedFile m_file;
        std::exception_ptr m_failure;
    };

    Device m_device;
    QPdfWriter m_writer;
    PrintWork m_print; ///< ends before its device does
};
