// Sound files as the game has them.
#pragma once

#include <QAudioFormat>
#include <QByteArray>
#include <QString>
#include <optional>

namespace platform::qt {

struct WaveFile {
  QAudioFormat format;
  QByteArray samples;
};

/// Reads a WAV file of 8 or 16 bit PCM samples; nothing when the file is missing or holds anything else.
std::optional<WaveFile> readWaveFile(const QString& path);

}  // namespace platform::qt
