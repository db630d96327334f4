// SPDX-License-Identifier: GPL-3.0-or-later

#include "WarningTone.h"

#include <QDataStream>
#include <QIODevice>

#include <cmath>
#include <numbers>

QByteArray warningTone()
{
    constexpr quint32 samplesPerSecond = 8000;
    constexpr quint32 samples = 3 * samplesPerSecond;
    constexpr quint32 dataBytes = samples * 2;
    constexpr double frequency = 1050;
    constexpr double loudness = 12000;

    QByteArray file;
    QDataStream stream(&file, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("RIFF", 4);
    stream << quint32{36 + dataBytes};
    stream.writeRawData("WAVEfmt ", 8);
    // Uncompressed, one channel of 16 bits.
    stream << quint32{16} << quint16{1} << quint16{1} << samplesPerSecond << quint32{samplesPerSecond * 2}
           << quint16{2} << quint16{16};
    stream.writeRawData("data", 4);
    stream << dataBytes;
    for (quint32 sample = 0; sample < samples; ++sample) {
        const double turns = frequency * sample / samplesPerSecond;
        stream << static_cast<qint16>(std::lround(loudness * std::sin(2 * std::numbers::pi * turns)));
    }
    return file;
}
