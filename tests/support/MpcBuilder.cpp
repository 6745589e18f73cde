#include "support/MpcBuilder.h"

#include "core/ByteCodec.h"
#include "support/TagBuilders.h"

namespace zefta::test {

std::string Mpc7(std::int32_t frames, int profile, int channels) {
    return "MP+\7" + ByteCodec::FromLong(frames) + std::string(2, '\0') + static_cast<char>(profile) +
           static_cast<char>(channels);
}

std::string MpcOld(int version, int channels, int rateByte, std::int32_t frames) {
    std::string bytes(4, '\0');
    bytes[1] = static_cast<char>((version - 4) << 3);
    bytes[2] = static_cast<char>(channels);
    bytes[3] = static_cast<char>(rateByte);
    return bytes + ByteCodec::FromLong(frames);
}

std::string MpcNumber(std::uint64_t number) {
    std::string bytes(1, static_cast<char>(number & 127));
    while ((number >>= 7) > 0) bytes.insert(0, 1, static_cast<char>(128 | (number & 127)));
    return bytes;
}

std::string MpcPacket(std::string_view key, std::string_view body, std::optional<std::uint64_t> size) {
    // The size counts its own bytes: it grows by one where that makes it longer.
    std::uint64_t whole = key.size() + 1 + body.size();
    while (MpcNumber(whole).size() + key.size() + body.size() > whole) ++whole;
    return std::string(key) + MpcNumber(size.value_or(whole)) + std::string(body);
}

std::string MpcStreamHeader::Packet() const {
    std::string body(4, '\x55');
    body += '\x08';
    body += MpcNumber(samples) + MpcNumber(silence);
    body += static_cast<char>(rate << 5 | 27);
    body += static_cast<char>((channels - 1) << 4 | 8 | 3);
    return MpcPacket("SH", body);
}

std::string MpcEncoderInfo(int profile) {
    return MpcPacket("EI", static_cast<char>(profile) + std::string("\1\36\1"));
}

std::string Mpc8(std::string_view packets, std::size_t audioBytes) {
    return "MPCK" + std::string(packets) + MpcPacket("RG", "\1" + std::string(8, '\0')) +
           MpcPacket("AP", Audio(audioBytes)) + MpcPacket("SE", "");
}

std::string Mpc8(const MpcStreamHeader& header, std::size_t audioBytes) {
    return Mpc8(header.Packet() + MpcEncoderInfo(160), audioBytes);
}

}  // namespace zefta::test
