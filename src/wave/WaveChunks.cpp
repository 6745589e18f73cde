#include "wave/WaveChunks.h"

#include "core/ByteCodec.h"
#include "platform/RuntimeError.h"

namespace zefta {

std::optional<WaveChunk> NextChunk(BinaryFile& file, std::int32_t riffLength) {
    const std::int32_t position = file.Position();
    if (position > riffLength) return std::nullopt;
    WaveChunk chunk;
    chunk.identifier = file.ReadBytes(4);
    chunk.size = ReadLong(file);
    if (file.Position() == position) return std::nullopt;
    return chunk;
}

void SkipBody(BinaryFile& file, const WaveChunk& chunk, std::int32_t done) {
    if (chunk.size < done) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    file.Seek(chunk.size - done, SeekFrom::Current);
}

std::int32_t ReadLong(BinaryFile& file) {
    return ByteCodec::ToLong(file.ReadBytes(4));
}

std::int16_t ReadShort(BinaryFile& file) {
    return ByteCodec::ToShort(file.ReadBytes(2));
}

}  // namespace zefta
