#pragma once

#include <QDataStream>
#include <QFile>
#include <QString>
#include <QtMath>

// Writes a tone as a wav file in the format the game wants: PCM, 11,025 Hz,
// 8 bit, mono. Returns false when the file cannot be written.
inline bool writeTone(const QString& path, int samples, double frequency = 440)
{
    QByteArray data;
    for (int i = 0; i < samples; ++i)
        data.append(static_cast<char>(128 + 100 * qSin(2 * M_PI * frequency * i / 11025.0)));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QDataStream out(&file);
    out.setByteOrder(QDataStream::LittleEndian);
    out.writeRawData("RIFF", 4);
    out << quint32(36 + data.size());
    out.writeRawData("WAVEfmt ", 8);
    out << quint32(16) << quint16(1) << quint16(1) << quint32(11025) << quint32(11025) << quint16(1)
        << quint16(8);
    out.writeRawData("data", 4);
    out << quint32(data.size());
    out.writeRawData(data.constData(), data.size());
    return file.error() == QFile::NoError;
}
