#include "platform/qt/wave_file.h"

#include <QDataStream>
#include <QFile>

namespace platform::qt {

namespace {

constexpr quint16 pcm = 1;
constexpr qint64 largestFile = 64 << 20;

std::optional<QAudioFormat> formatFrom(const QByteArray& chunk) {
  QDataStream fields(chunk);
  fields.setByteOrder(QDataStream::LittleEndian);
  quint16 coding = 0;
  quint16 channels = 0;
  quint32 rate = 0;
  quint32 bytesPerSecond = 0;
  quint16 bytesPerFrame = 0;
  quint16 bits = 0;
  fields >> coding >> channels >> rate >> bytesPerSecond >> bytesPerFrame >> bits;
  const bool known = coding == pcm && (bits == 8 || bits == 16) && channels >= 1 && channels <= 2;
  if (fields.status() != QDataStream::Ok || !known || rate < 8000 || rate > 192000) return std::nullopt;
  QAudioFormat format;
  format.setSampleRate(static_cast<int>(rate));
  format.setChannelCount(channels);
  format.setSampleFormat(bits == 8 ? QAudioFormat::UInt8 : QAudioFormat::Int16);
  return format;
}

}  // namespace

std::optional<WaveFile> readWaveFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly) || file.isSequential() || file.size() > largestFile)
    return std::nullopt;
  if (file.read(4) != "RIFF") return std::nullopt;
  file.skip(4);
  if (file.read(4) != "WAVE") return std::nullopt;
  QDataStream sizes(&file);
  sizes.setByteOrder(QDataStream::LittleEndian);
  std::optional<QAudioFormat> format;
  while (!file.atEnd()) {
    const QByteArray name = file.read(4);
    quint32 size = 0;
    sizes >> size;
    if (sizes.status() != QDataStream::Ok) return std::nullopt;
    if (size > file.bytesAvailable()) return std::nullopt;
    const QByteArray chunk = file.read(size);
    if (name == "fmt ") format = formatFrom(chunk);
    if (name == "data") return format ? std::optional(WaveFile{*format, chunk}) : std::nullopt;
    file.skip(size % 2);  // Chunks begin at even places.
  }
  return std::nullopt;
}

}  // namespace platform::qt
